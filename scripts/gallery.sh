#!/usr/bin/env bash
# Leaves a picture of every dialog, of the tabs in each style, of the progress window and of the wizard's window in
# build/gallery: in plain, one and a half and double size, light, dark, black and with text of 14 and 20 points. A dialog
# is found by its row in the table of dialogs.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release test_windows
for percent in 100 150 200; do
    for look in light dark black 14 20; do
        folder=build/gallery/$percent-$look
        mkdir -p "$folder"
        tests='*AllDialogs*:TabStrip*:JobProgress*:WizardWindow.IsThere*'
        case $look in
            light) wish=() ;;
            14 | 20) wish=(POINTS="$look") tests='*AllDialogs*:JobProgress*:WizardWindow.IsThere*' ;;
            *) wish=("${look^^}=1") ;;
        esac
        env -u DARK -u BLACK -u POINTS "${wish[@]}" QT_SCALE_FACTOR="${percent::1}.${percent:1}" GALLERY="$folder" \
            build/release/tests/windows/test_windows --gtest_filter="$tests" --gtest_brief=1
    done
done
echo "The dialogs: build/gallery"
