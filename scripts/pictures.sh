#!/usr/bin/env bash
# Takes the pictures of docs/pictures anew: the main window, its dialogs and modes, light and dark, in the real program
# on a virtual display. Look at them before you keep them.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh build test
scripts/build.sh release demo
mkdir -p docs/pictures
build/release/harness/demo tests/samples/text/pushkin-dos866.txt docs/pictures
mogrify -strip -colors 64 -define png:compression-level=9 docs/pictures/*.png
ls -l docs/pictures
