#!/usr/bin/env bash
# Installs the Debian packages that are missing for the named jobs: build, test, package, lint.
# Run by ./run, ./test and .ci/run; installs nothing, and needs no network, when all of them are there.
set -euo pipefail

build="build-essential cmake ninja-build ccache qt6-base-dev qt6-translations-l10n libcups2-dev libsdl2-dev libsqlite3-dev
       nettle-dev pkgconf fonts-liberation fonts-dejavu-core libx11-dev libxcb1-dev libxfixes-dev libxi-dev"
test="poppler-utils libgtest-dev libgmock-dev libbenchmark-dev libxtst-dev xvfb openbox imagemagick xclip sqlite3
      x11-xserver-utils cups-client cups-daemon cups-ipp-utils dbus-daemon at-spi2-core python3-pyatspi"
package="xvfb xdotool gzip dpkg-dev lintian appstream desktop-file-utils"
clean_root="debootstrap imagemagick"
bench="xvfb openbox python3-xlib featherpad mousepad enca uchardet python3-chardet"
lint="clang clang-format clang-tidy libclang-dev libclang-rt-14-dev llvm-dev"

wanted=
for job in "$@"; do
    case "$job" in
        build) wanted+=" $build" ;;
        test) wanted+=" $test" ;;
        clean-root) wanted+=" $clean_root" ;;
        bench) wanted+=" $bench" ;;
        package) wanted+=" $package" ;;
        lint) wanted+=" $lint" ;;
        *) echo "setup: unknown job $job" >&2; exit 2 ;;
    esac
done

missing=()
for package in $wanted; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
if [ ${#missing[@]} -eq 0 ]; then
    echo "All packages are there."
    exit 0
fi

echo "Installing: ${missing[*]}"
as_root=
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please run this once as root: sudo is missing." >&2; exit 1; }
    as_root=sudo
fi
export DEBIAN_FRONTEND=noninteractive
$as_root apt-get update -q
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
