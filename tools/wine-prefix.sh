#!/bin/bash
# wine-prefix.sh FOLDER - makes a small, quiet Wine prefix to copy from, once: about ten seconds. When it is
# there already it returns at once.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
# shellcheck source=tools/wine-env.sh
. "$here/wine-env.sh"

mkdir -p "$(dirname "$1")"
folder=$(realpath -m "$1")
stamp="$folder/.ready-1"   # count up when the recipe below changes
[ -e "$stamp" ] && exit 0
exec 9>"$folder.lock"
flock 9   # several tests may want the first one
[ -e "$stamp" ] && exit 0

rm -rf "$folder"
HOME=$(mktemp -d)   # the prefix would be linked into the real home folder
trap 'rm -rf "$HOME"' EXIT
export HOME WINEPREFIX="$folder"
unset DISPLAY   # boots without a screen, too
exec 8>&2 >"$folder.log" 2>&1

setting() { "$wine64" reg add "$1" /v "$2" /t "$3" /d "$4" /f; }
fail() {
    echo "wine-prefix: $1" >&8
    tail -n 20 "$folder.log" >&8
    exit 1
}

trap 'fail "line $LINENO failed:"' ERR
"$wineserver" -p || true   # stays between the commands
"$wine64" wineboot -i
"$wine64" winecfg -v win10 || true   # Debian's default is Windows 7
ln -sf /usr/share/wine/fonts/* "$folder/drive_c/windows/Fonts/"   # where Wine 8 itself does not look for them
setting 'HKCU\Software\Wine\WineDbg' ShowCrashDialog REG_DWORD 0   # a crash ends, with its trace on stderr
setting 'HKCU\Software\Wine\Drivers' Audio REG_SZ ''
setting 'HKCU\Software\Wine\X11 Driver' Managed REG_SZ N           # captions without a window manager
setting 'HKCU\Software\Wine\Fonts\Replacements' 'Segoe UI' REG_SZ 'Open Sans'
setting 'HKCU\Software\Wine\Fonts\Replacements' Consolas REG_SZ 'DejaVu Sans Mono'
setting 'HKCU\Control Panel\Desktop' FontSmoothing REG_SZ 2
setting 'HKCU\Control Panel\Desktop' FontSmoothingType REG_DWORD 1   # grey
stop_services || true

# 690 MB of copies become links to the packaged files; 26 MB are left.
packaged=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows
find "$folder/drive_c/windows" -type f | while IFS= read -r file; do
    original="$packaged/$(basename "$file")"
    if [ -f "$original" ] && cmp -s "$file" "$original"; then ln -sf "$original" "$file"; fi
done
# "My Documents" and the like would be links to folders of the real user.
find "$folder/drive_c/users" -type l | while IFS= read -r link; do
    rm "$link"
    mkdir "$link"
done
[ -s "$folder/user.reg" ]
rm -f "$folder.log"
touch "$stamp"
