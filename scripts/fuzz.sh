#!/usr/bin/env bash
# Feeds the readers of foreign files with broken input. Argument: for how many seconds each. Inputs found on the way
# stay in build/fuzz/corpus, a failing one in build/fuzz.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh fuzz
mkdir -p build/fuzz/corpus/rtf build/fuzz/corpus/wizard
build/fuzz/fuzz/fuzz_rtf -dict=fuzz/rtf.dict -max_total_time="$1" -max_len=20000 -print_final_stats=1 \
    -artifact_prefix=build/fuzz/ build/fuzz/corpus/rtf fuzz/corpus/rtf
build/fuzz/fuzz/fuzz_wizard -max_total_time="$1" -max_len=3000 -print_final_stats=1 \
    -artifact_prefix=build/fuzz/ build/fuzz/corpus/wizard
build/fuzz/fuzz/fuzz_wizard_pieces -max_total_time="$1" -max_len=1500 -print_final_stats=1 \
    -artifact_prefix=build/fuzz/ build/fuzz/corpus/wizard
