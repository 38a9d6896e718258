#!/usr/bin/env bash
# Re-codes a sample letter in the real program on a virtual display and leaves a picture in build/demo.png.
set -euo pipefail
cd "$(dirname "$0")/.."
build/release/harness/demo tests/samples/text/pushkin-dos866.txt build/demo.png
echo "The letter, re-coded from DOS 866: build/demo.png"
