#!/usr/bin/env bash
# Checks the form of the code and runs the static analysis. What is wrong stands in the last lines.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
cmake --preset lint >/dev/null
# The analysis reads its own compiler's precompiled headers; nothing else is built.
grep -oP '"command": "\K.* -x c\+\+-header .*(?=",)' build/lint/compile_commands.json |
    (cd build/lint && xargs -P "$(nproc)" -I{} sh -c '{}')
clang++ -std=c++17 -O1 -fno-rtti -fPIC -shared $(llvm-config --cppflags) tools/lint/OwnCode.cpp -o build/lint/own-code.so
log=build/lint/log
git ls-files 'src/*.cpp' 'tests/*.cpp' 'harness/*.cpp' 'bench/*.cpp' 'attack/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --load=build/lint/own-code.so --quiet -p build/lint >"$log" 2>&1 ||
    { grep -E -A4 'error:|^Error' "$log" || tail "$log"; exit 1; }
