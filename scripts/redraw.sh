#!/usr/bin/env bash
# Stores anew what the bars draw in each style, for the tests to compare with. Look at the change before you
# keep it: each line is a call with its place and its colours.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh release test_commandbar
REDRAW=1 build/release/tests/commandbar/test_commandbar --gtest_filter='*Drawn*' || true
git diff --stat -- tests/commandbar/drawn
