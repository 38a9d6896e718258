#!/usr/bin/env bash
# Tries the package that ./package left: checks it, installs it into an empty root, starts the editor from there on a
# virtual display, and looks that removing it leaves nothing.
set -euo pipefail
cd "$(dirname "$0")/.."
package=$(ls build/quillshift_*.deb)
lintian --fail-on error --allow-root "$package"
desktop-file-validate packaging/*.desktop
appstreamcli validate --no-net packaging/*.metainfo.xml >build/appstream.log || { cat build/appstream.log; exit 1; }
rm build/appstream.log

root=$(mktemp -d)
server=
finish() {
    [ -z "$server" ] || kill "$server"
    rm -rf "$root" "$root.log"
}
trap finish EXIT
as_dpkg() { dpkg --root="$root" --force-depends --force-not-root --log=/dev/null "$@" >"$root.log" 2>&1; }
mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
touch "$root"/var/lib/dpkg/{status,available}
as_dpkg --install "$package"

export HOME=$root/home XDG_DATA_HOME=$root/home/data XDG_STATE_HOME=$root/home/state XDG_RUNTIME_DIR=$root/home
install -d -m 700 "$HOME"
coproc XVFB { exec Xvfb -displayfd 1 -screen 0 1024x768x24 2>"$root.log"; }
server=$XVFB_PID
read -r -u "${XVFB[0]}" display
export DISPLAY=:$display
"$root/usr/bin/quillshift" &
editor=$!
for ((i = 0; i < 100; ++i)); do
    title=$(xdotool search --onlyvisible --name 'Quillshift' getwindowname 2>/dev/null | head -1) || true
    [ -n "$title" ] && break
    sleep 0.1
done
kill "$editor"
wait "$editor" || true
[ -n "$title" ] || { echo "The installed editor showed no window." >&2; exit 1; }
echo "Installed and started: $title"

as_dpkg --purge quillshift
left=$(find "$root" -mindepth 1 ! -path "$root/var*" ! -path "$root/home*" -print)
[ -z "$left" ] || { echo "Left behind: $left" >&2; exit 1; }
[ -f "$XDG_DATA_HOME/quillshift/settings.db" ] || { echo "The settings are gone." >&2; exit 1; }
echo "Removed without trace but the settings."
