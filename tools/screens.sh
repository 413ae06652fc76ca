#!/bin/bash
# screens.sh [FOLDER] - makes the pictures of the documents: every page and dialog of the program as it is
# shipped, used by mouse and keys on the demonstration set. Into docs/screens, or into another folder.
#
#   PROGRAM=folder  take the program, its sets and pictures from there instead of building and staging them
set -eu
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
target=$(realpath -m "${1:-$root/docs/screens}")
width=1280 height=760
home='C:\Stich'   # where the pictures shall say that it all lies
lots=20000        # folders, to be searched for long enough to be seen at it

fail() {
    echo "screens: $1" >&2
    exit 1
}

if [ -z "${PROGRAM:-}" ]; then
    env -u DISPLAY "$root/run" >/dev/null
    PROGRAM=$root/build/run/Stich
fi

# shellcheck source=tools/wine-env.sh
. "$root/tools/wine-env.sh"
work=$(mktemp -d)
trap 'stop_services; [ -n "${screen_pid:-}" ] && kill "$screen_pid"; rm -rf "$work"' EXIT
mkdir -p "$target"
export WINEPREFIX="$work/prefix"
cp -a "$root/build/wine-template" "$WINEPREFIX"
stich=$WINEPREFIX/drive_c/Stich
cp -r "$PROGRAM" "$stich"
rm -rf "${stich:?}/TestSets"/*
cp "$PROGRAM/TestSets"/{Demo,Formen}.kvs "$stich/TestSets/"

# The system's own texts in German, with a locale that ./run may have compiled.
[ -d "$root/build/run/locale/de_DE.UTF-8" ] && export LOCPATH="$root/build/run/locale"
{ export LC_ALL=de_DE.UTF-8; } 2>/dev/null

setting() { "$wine64" reg add "$1" /v "$2" /t REG_SZ /d "$3" /f </dev/null >/dev/null 2>&1; }
start_screen "${width}x$height" "$work"
start_services
setting 'HKCU\Software\Wine\X11 Driver' Managed N
setting 'HKCU\Software\Veltor2\Stich' Window "0 0 $width $height 96 0"
setting 'HKCU\Software\Veltor2\Stich' PathROI "$home\\Ausschnitte\\"
setting 'HKCU\Software\Veltor2\Stich' SaveSatus btnSaveAllROI2
mkdir "$stich/Ausschnitte"

# --- Steps

# window NAME - waits until a window with such a title is there, and prints its number.
window() {
    local id
    for _ in $(seq 200); do
        id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1)
        if [ -n "$id" ]; then
            echo "$id"
            return
        fi
        sleep 0.1
    done
    fail "there is no window $1"
}

# gone NAME - waits until it is there no longer.
gone() {
    for _ in $(seq 300); do
        xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
        sleep 0.1
    done
    fail "the window $1 stays"
}

# settled - leaves the screen in $work/screen.png, once it is the same twice but for a blinking caret.
settled() {
    local changed
    import -silent -window root "$work/before.png"
    for _ in $(seq 60); do
        sleep 0.3
        import -silent -window root "$work/screen.png"
        changed=$(compare -metric AE "$work/before.png" "$work/screen.png" null: 2>&1) || true
        [[ "$changed" =~ ^[0-9]+$ ]] && [ "$changed" -lt 100 ] && return
        cp "$work/screen.png" "$work/before.png"
    done
}

keys() {
    xdotool key --delay 60 "$@"
    settled
}

write() {
    xdotool type --delay 30 "$1"
    settled
}

# click X Y - and the mouse goes where it lights nothing up.
click() {
    xdotool mousemove "$1" "$2" sleep 0.1 click 1 sleep 0.1 mousemove $((width - 2)) $((height - 2))
    settled
}

# shot NAME - leaves the picture of the screen as it is.
shot() {
    convert "$work/screen.png" +repage -strip -dither None -colors 255 -define png:compression-level=9 \
        -define png:exclude-chunks=date,time "PNG8:$target/$1.png"
    echo "$1.png"
}

start() {
    "$wine64" "$home\\Stich.exe" </dev/null >/dev/null 2>&1 &
    editor=$!
    window '^Stichprobe$' >/dev/null
    settled
}

# Closes without a question, and saves nothing.
leave() {
    keys alt+a
    wait "$editor" || true
}

# item NUMBER - shows it, and its list has the focus.
item() {
    click 230 580
    xdotool key Home key --delay 60 --repeat $(($1 - 1)) Down
    settled
}

# number KEY VALUE - types it into the box with that access key.
number() {
    xdotool key "alt+$1" sleep 0.2 key Home key shift+End
    write "$2"
    keys Return
}

# --- The pages

start
keys alt+p Down End   # the first of the sets, without a selection in its name
keys alt+c
click 461 105          # the button of the source folder
window '^Quellverzeichnis$' >/dev/null
write 'C:\Stich\Picture\Demo\gut'
keys Return
gone '^Quellverzeichnis$'
item 12
shot create

keys alt+b alt+n
write 'Rand oben'
keys Return
number x 140
number y 40
number d 176
number h 140
keys alt+e
write 'hier kratzt der Greifer'

item 10
for class in 2 2 1 1 2 2 2 2 3 1 1 3 1 1 3 1 1 4 1 1 4 1 1 4; do keys $class; done
item 16
click 700 250   # into the region
shot regions

keys alt+k
shot classes

# --- Cutting out: while it goes on

xdotool mousemove 688 72 sleep 0.1 click 1 mousemove $((width - 2)) $((height - 2))
for _ in $(seq 6000); do
    [ -e "$stich/Ausschnitte/DSC0017_Rand oben.bmp" ] && break
    sleep 0.005
done
kill -STOP "$editor"   # in the middle of it: the same one each time
import -silent -window root "$work/screen.png"
kill -CONT "$editor"
shot cutting
gone '^Bereiche speichern$'
settled
leave

# --- Missing pictures

mv "$stich/Picture/Demo/Riß" "$stich/Picture/Risse"
start
xdotool key --delay 60 alt+p Down
window '^Fehlende Dateien$' >/dev/null
settled
shot missing
keys Escape
gone '^Fehlende Dateien$'
leave

# --- Waiting: a set whose pictures lie in very many folders

archive=$stich/Picture/Archiv
/usr/bin/python3 - "$archive" "$PROGRAM/Picture/Formen/Kreis/Kreis 1.bmp" "$stich/TestSets/Archiv.kvs" "$lots" <<'END'
import os, shutil, sys
folder, picture, kvs, count = sys.argv[1:4] + [int(sys.argv[4])]
os.mkdir(folder)
shutil.copyfile(picture, folder + "/Kreis.bmp")
numbers = range(1, count + 1)
for i in numbers:
    os.mkdir(f"{folder}/{i:05}")
    os.link(folder + "/Kreis.bmp", f"{folder}/{i:05}/Kreis.bmp")
lines = ["[Common]", "Classes=2", "StdClass=1", "ROIs=1", f"Items={count}", "DoubleSelection=0",
         "[Class1]", "Name=gut", "[Class2]", "Name=schlecht", "[ROI0]", "Name=(gesamtes Bild)"]
lines += [f"{i}=1" for i in numbers] + ["[Items]"] + [f"{i}=Picture\\Archiv\\{i:05}\\Kreis.bmp" for i in numbers]
with open(kvs, "w", encoding="ascii", newline="\r\n") as file:
    file.write("\n".join(lines) + "\n")
END
start
xdotool key --delay 60 alt+p Down End
for _ in $(seq 300); do
    import -silent -window root "$work/screen.png"
    # Of the line that crosses the progress bar, the part that is not yet blue.
    left=$(convert "$work/screen.png" -crop 394x1+789+736 +repage -format '%[fx:int(100*mean.r)]' info:)
    [ "$left" -gt 40 ] && [ "$left" -lt 80 ] && break
done
[ "$left" -lt 80 ] || fail "the waiting was too short to be seen"
shot waiting
kill "$editor"
wait "$editor" || true
