#!/usr/bin/env bash
# Configures and builds one preset. Arguments: the preset, then targets (none: everything).
set -euo pipefail
cd "$(dirname "$0")/.."
preset=$1
shift
log=$(mktemp)
trap 'rm -f "$log"' EXIT
echo "Preparing the build ($preset)."
cmake --preset "$preset" >"$log" || { cat "$log"; exit 1; }
echo "Compiling: done and all, the seconds so far, and what was done last."
export NINJA_STATUS="[%f/%t, %es] "
cmake --build --preset "$preset" ${1:+--target "$@"}
