#!/usr/bin/env bash
# Stores anew what bars, icons, bitmaps and surfaces look like, for the tests to compare with. Look at the
# change before you keep it: a line is a call with its place and colours, or pixels (blue/green/red/alpha).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release test_commandbar test_icons test_bitmaps test_windows
for test in commandbar/test_commandbar commandbar/icons/test_icons controls/test_bitmaps windows/test_windows; do
    REDRAW=1 "build/release/tests/$test" --gtest_filter='*AsStored*' --gtest_brief=1
done
git diff --stat -- '*/drawn/*'
