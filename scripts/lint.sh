#!/usr/bin/env bash
# Checks the form of the code and runs the static analysis; needs a configured release build.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
# The analysis can't read the other compiler's precompiled headers, so it gets the commands without them.
mkdir -p build/lint
sed -E 's/-Winvalid-pch -include [^ ]*cmake_pch\.hxx//' build/release/compile_commands.json \
    >build/lint/compile_commands.json
clang++ -std=c++17 -O1 -fno-rtti -fPIC -shared $(llvm-config --cppflags) tools/lint/OwnCode.cpp -o build/lint/own-code.so
git ls-files 'src/*.cpp' 'tests/*.cpp' 'harness/*.cpp' 'bench/*.cpp' 'attack/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --load=build/lint/own-code.so --quiet -p build/lint
