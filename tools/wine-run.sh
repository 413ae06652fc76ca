#!/bin/bash
# wine-run.sh PROGRAM.exe ARGUMENTS... - runs a Windows program in a Wine prefix and on a screen of its own.
# Its output and exit code pass through (one that is not 0 is told on stderr); an unhandled exception gives 5.
#
#   WINE_TEMPLATE=folder  prefix to copy (default build/wine-template; made when missing)
#   WINE_KEEP=folder      use this prefix and keep it, instead of a fresh one
#   WINE_DISPLAY=:n       use this X server instead of a fresh one
#   WINE_SCREEN=1280x1024 size of the fresh one
#   WINE_TIMEOUT=seconds  end the program then, with exit code 124 (default 120)
#   WINE_SHOT=file.png    leave a picture of the screen, WINE_SHOT_AT=seconds after the start (default 2)
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/wine-env.sh
. "$here/wine-env.sh"

template=$(realpath -m "${WINE_TEMPLATE:-$here/../build/wine-template}")
"$here/wine-prefix.sh" "$template" || exit 97
work=$(mktemp -d)
screen_pid=
if [ -n "${WINE_KEEP:-}" ]; then
    WINEPREFIX=$(realpath -m "$WINE_KEEP")
    [ -d "$WINEPREFIX" ] || cp -a "$template" "$WINEPREFIX"
else
    WINEPREFIX="$work/prefix"
    cp -a "$template" "$WINEPREFIX"   # 0.05 s. No hard links: Wine writes its registry files in place
fi
export WINEPREFIX

# shellcheck disable=SC2317  # both are called by the trap
finish() {
    stop_services
    [ -n "$screen_pid" ] && kill "$screen_pid"
    rm -rf "$work"
}
# shellcheck disable=SC2317
clean_up() {   # takes a second, which only a prefix that is used again has to wait for
    if [ -n "${WINE_KEEP:-}" ]; then
        finish >/dev/null 2>&1
    else
        (exec </dev/null >/dev/null 2>&1; finish) &
    fi
}
trap clean_up EXIT
trap 'exit 143' TERM INT HUP

if [ -n "${WINE_DISPLAY:-}" ]; then
    export DISPLAY="$WINE_DISPLAY"
else
    start_screen "${WINE_SCREEN:-1280x1024}" "$work" || exit 97
fi
if [ -n "${WINE_SHOT:-}" ]; then
    (sleep "${WINE_SHOT_AT:-2}"; import -window root "$WINE_SHOT") </dev/null >/dev/null 2>&1 &
fi
start_services
timeout -k 5 "${WINE_TIMEOUT:-120}" "$wine64" "$@" 2> >(exec tee "$work/errors" >&2)
result=$?
# After a crash the exit code is 0 in half of the runs; the trace on stderr is always there.
if [ "$result" = 0 ] && grep -q '^wine: Unhandled ' "$work/errors"; then result=5; fi
[ "$result" = 0 ] || echo "wine-run: $1 ended with $result" >&2
exit "$result"
