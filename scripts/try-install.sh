#!/usr/bin/env bash
# Tries the package that ./package left as a stranger's machine meets it: makes a bare Debian 12 in an empty folder, lets
# apt install the package there with what it depends on and nothing else, starts editor, wizard and command in it as a
# user, removes it, and looks that nothing is left but the user's settings. For root; fetches about 150 MB. The quick try
# is scripts/try-package.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh package clean-root
package=$(ls build/quillshift_*.deb)
lintian --fail-on error --allow-root "$package"

work=$(mktemp -d)
root=$work/root
log=$work/log
server=
finish() {
    status=$?
    [ -z "$server" ] || kill "$server"
    umount -q "$root/proc" || true
    [ "$status" -eq 0 ] || tail -20 "$log"
    rm -rf --one-file-system "$work"
}
trap finish EXIT
in_root() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin DEBIAN_FRONTEND=noninteractive "$@" >>"$log" 2>&1; }
as_user() { chroot --userspec=1000:1000 "$root" env -i PATH=/usr/bin:/bin HOME=/home/user LANG=C.UTF-8 DISPLAY="$DISPLAY" "$@"; }
# What changes with each run of apt is none of the package's.
list_files() {
    (cd "$root" && find . -xdev \( -path ./proc -o -path ./home -o -path ./tmp -o -path './var/cache/*' -o -path './var/log/*' \
        -o -path './var/lib/apt/*' -o -path './var/lib/dpkg/*' \) -prune -o -print | sort)
}

debootstrap --variant=minbase bookworm "$root" >>"$log" 2>&1
mountpoint -q "$root/proc" || mount -t proc proc "$root/proc"
in_root apt-get update
in_root useradd --create-home --uid 1000 user
list_files >"$work/before"
cp "$package" "$root/tmp/"
in_root apt-get install -y --no-install-recommends "/tmp/$(basename "$package")"
echo "Installed with $(grep -c '^Setting up' "$log") packages beside the bare system's."

coproc XVFB { exec Xvfb -displayfd 1 -screen 0 1024x768x24 2>>"$log"; }
server=$XVFB_PID
read -r -u "${XVFB[0]}" display
export DISPLAY=:$display
show_window() { # command, part of the title
    as_user "$1" >>"$log" 2>&1 &
    local program=$! title=
    for ((i = 0; i < 200; ++i)); do
        title=$(xdotool search --onlyvisible --name "$2" getwindowname 2>/dev/null | head -1) || true
        [ -n "$title" ] && break
        sleep 0.1
    done
    import -window root "build/$1.png"
    kill "$program"
    wait "$program" || true
    [ -n "$title" ] || { echo "$1 showed no window." >&2; exit 1; }
    echo "Started: $title"
}
show_window quillshift Quillshift
show_window quillshift-rescue 'Мастер'
printf '\360\322\311\327\305\324' | as_user quillshift-wizard --from koi8-r | grep -qx Привет
echo "Started: quillshift-wizard"

in_root apt-get purge -y --autoremove quillshift
list_files >"$work/after"
diff "$work/before" "$work/after" || { echo "Left behind, or gone: see above." >&2; exit 1; }
[ -f "$root/home/user/.local/share/quillshift/settings.db" ] || { echo "The settings are gone." >&2; exit 1; }
echo "Removed without trace but the settings."
