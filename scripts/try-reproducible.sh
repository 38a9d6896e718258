#!/usr/bin/env bash
# Builds the package of the last commit twice: in two folders, at two times, in two languages and time zones, the second
# one without the compiler's cache. Fails if the two differ in a byte; what differs is shown if diffoscope is there.
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
pack_in() { # folder, then what the environment is to be
    local folder=$work/$1
    shift
    mkdir -p "$folder"
    git archive HEAD | tar -xmC "$folder"
    env "$@" "$folder/package" >"$work/log" || { tail -40 "$work/log"; exit 1; }
    package=$(ls "$folder"/build/*.deb)
}

pack_in one LC_ALL=C.UTF-8 TZ=UTC
first=$package
umask 077
pack_in "another folder/with a longer way" LC_ALL=C TZ=Pacific/Kiritimati CCACHE_DISABLE=1
if ! cmp "$first" "$package"; then
    ! command -v diffoscope >/dev/null || diffoscope "$first" "$package" | head -60
    exit 1
fi
sha256sum "$package" | cut -d' ' -f1
echo "The same $(stat -c %s "$package") bytes twice."
