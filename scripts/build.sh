#!/usr/bin/env bash
# Configures and builds one preset. Arguments: the preset, then targets (none: everything).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1
shift
cmake --preset "$preset" >"/tmp/quillshift-configure-$$.log" || { cat "/tmp/quillshift-configure-$$.log"; exit 1; }
rm -f "/tmp/quillshift-configure-$$.log"
if [ $# -gt 0 ]; then cmake --build --preset "$preset" --target "$@"; else cmake --build --preset "$preset"; fi
