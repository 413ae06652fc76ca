#!/bin/bash
# setup.sh LEVEL - installs what Debian 12 needs to build, run, test, bench or package this program, if it is
# not there yet. Uses sudo when it is not called by root.
set -u

build=(cmake ninja-build ccache g++ g++-mingw-w64-x86-64-posix binutils-mingw-w64-x86-64 googletest)
# The libx* are only "recommended" to Wine, but it draws and points badly without them.
run=(wine wine64 xvfb xauth imagemagick x11-utils xdotool locales
     fonts-wine fonts-open-sans fonts-dejavu-core fonts-liberation
     libxcomposite1 libxcursor1 libxfixes3 libxi6 libxinerama1 libxrandr2 libxrender1 libxxf86vm1)

case "${1:-}" in
    build) wanted=("${build[@]}") ;;
    package) wanted=("${build[@]}" python3) ;;
    run) wanted=("${build[@]}" "${run[@]}" python3) ;;
    test) wanted=("${build[@]}" "${run[@]}" clang-14 libclang-rt-14-dev python3) ;;
    bench) wanted=("${build[@]}" "${run[@]}" libbenchmark-dev python3) ;;
    *)
        echo "usage: setup.sh build|run|test|bench|package" >&2
        exit 2
        ;;
esac

fail() {
    echo "setup: $1" >&2
    exit 1
}

command -v dpkg-query >/dev/null || fail "this is not Debian; please install by hand: ${wanted[*]}"
# shellcheck disable=SC2016  # dpkg-query's own variables
installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${wanted[@]}" 2>/dev/null)
missing=()
for package in "${wanted[@]}"; do
    grep -qx "$package installed" <<<"$installed" || missing+=("$package")
done
[ ${#missing[@]} = 0 ] && exit 0

as_root=()
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || fail "not root and no sudo; please install as root: ${missing[*]}"
    as_root=(sudo)
fi
echo "Installing ${missing[*]}"
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
log=$(mktemp)
trap 'rm -f "$log"' EXIT
"${apt[@]}" update >"$log" 2>&1   # one unreachable source need not matter: the installation will tell
if ! "${apt[@]}" install --no-install-recommends "${missing[@]}" >>"$log" 2>&1; then
    grep -E '^(E|W|Err):?' "$log" | tail -n 15 >&2
    fail "apt-get could not install what is missing"
fi
