#!/usr/bin/env bash
# Stores anew what bars, icons and bitmaps look like, for the tests to compare with. Look at the change before
# you keep it: each line is a call with its place and colours, or a line of pixels (blue/green/red/alpha).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release test_commandbar test_icons test_bitmaps
for test in commandbar/test_commandbar commandbar/icons/test_icons controls/test_bitmaps; do
    REDRAW=1 "build/release/tests/$test" --gtest_filter='*AsStored*' --gtest_brief=1
done
git diff --stat -- '*/drawn/*'
