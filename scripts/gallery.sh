#!/usr/bin/env bash
# Leaves a picture of every dialog in build/gallery, in plain and double size, light and dark. A dialog is found by
# its row in the table of dialogs.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release test_windows
for scale in 1 2; do
    for look in light dark; do
        folder=build/gallery/$((scale * 100))-$look
        mkdir -p "$folder"
        dark=(-u DARK)
        [ "$look" = light ] || dark=(DARK=1)
        env "${dark[@]}" QT_SCALE_FACTOR="$scale" GALLERY="$folder" \
            build/release/tests/windows/test_windows --gtest_filter='*AllDialogs*' --gtest_brief=1
    done
done
echo "The dialogs: build/gallery"
