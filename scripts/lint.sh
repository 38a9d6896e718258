#!/usr/bin/env bash
# Checks the form of the code and runs the static analysis; needs a configured release build.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
# The analysis can't read the other compiler's precompiled headers, so it gets the commands without them.
mkdir -p build/lint
sed -E 's/-Winvalid-pch -include [^ ]*cmake_pch\.hxx//' build/release/compile_commands.json \
    >build/lint/compile_commands.json
git ls-files 'src/*.cpp' 'tests/*.cpp' 'harness/*.cpp' 'bench/*.cpp' 'attack/*.cpp' |
    xargs -P "$(nproc)" -n 4 clang-tidy --quiet -p build/lint
