#!/usr/bin/env bash
# scripts/coverage.sh   builds with clang's counters, runs all tests but those of the tool and
# prints how much of vexpa/ and runtime/ they reach; fails below the bars that
# scripts/coverage_table.py names. What is not reached is listed in build/coverage/unreached.txt.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/install-packages.sh
install_packages packages.txt

cmake --preset coverage >/dev/null
cmake --build --preset coverage

# Programs are run side by side and start each other, so each has a few files of its own
# (%m), which its runs add to.
out=$PWD/build/coverage
rm -rf "$out/profiles"
export LLVM_PROFILE_FILE=$out/profiles/%4m.profraw
ctest --preset coverage -j "$(nproc)" --progress
llvm-profdata merge -sparse "$out"/profiles/*.profraw -o "$out/coverage.profdata"

mapfile -t programs < <(find "$out" -path '*/CMakeFiles' -prune -o -type f -executable -print |
    xargs -r grep -l __llvm_covmap)
objects=()
for program in "${programs[@]}"; do objects+=(-object "$program"); done

# An inline function that a program does not use has no counts there, which is no mismatch.
llvm-cov export -instr-profile "$out/coverage.profdata" "${objects[@]}" \
    2> >(grep -v 'functions have mismatched data' >&2) |
    python3 scripts/coverage_table.py "$out/unreached.txt"
