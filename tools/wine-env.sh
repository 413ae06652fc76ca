# shellcheck shell=bash
# Sourced by whatever runs Windows programs here: where Wine is, how quiet it is, and its locale and screen.

wine64=/usr/lib/wine/wine64   # the program itself: the `wine` on the PATH is a script that looks for 32 bits
wineserver=/usr/lib/wine/wineserver

export WINEARCH=win64 WINEDEBUG="${WINEDEBUG:--all}"
export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}"   # no offers to install these

# Files with umlauts in their names cannot be opened in a locale that does not know them. A locale that is
# named but not installed counts as such a one.
if [ "$(locale charmap 2>/dev/null)" != UTF-8 ]; then export LC_ALL=C.UTF-8; fi

# start_screen WIDTHxHEIGHT FOLDER - an X server in memory on the first free number. Sets DISPLAY and
# screen_pid; FOLDER takes its log.
start_screen() {
    local number="$2/display"
    : >"$number"
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp -noreset 3>"$number" </dev/null >"$2/xvfb.log" 2>&1 &
    screen_pid=$!
    for _ in $(seq 500); do
        if [ -s "$number" ]; then
            DISPLAY=:$(cat "$number")
            export DISPLAY
            return 0
        fi
        kill -0 "$screen_pid" 2>/dev/null || break
        sleep 0.02
    done
    echo "the virtual screen did not start:" >&2
    cat "$2/xvfb.log" >&2
    return 1
}

# start_services - Wine's own services, in WINEPREFIX. Whatever starts first would hand them its output to
# keep open, and who reads that output would wait for them.
start_services() {
    "$wineserver" -p5 </dev/null >/dev/null 2>&1
    "$wine64" wineboot </dev/null >/dev/null 2>&1
}

# stop_services - ends everything in WINEPREFIX and writes its registry. Not -k9: services would outlive it.
stop_services() {
    "$wineserver" -k
    timeout 10 "$wineserver" -w
} </dev/null >/dev/null 2>&1
