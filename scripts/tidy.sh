#!/usr/bin/env bash
# scripts/tidy.sh [PATTERN]   runs clang-tidy over every source of the tree, or over those whose
# path matches the pattern. Fails when it finds something.
#
# Needs besides packages.txt: clang-tidy, libbenchmark-dev.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. scripts/install-packages.sh
install_packages packages.txt
install_packages <(printf '%s\n' clang-tidy libbenchmark-dev)

cmake --preset tidy >/dev/null
run-clang-tidy -quiet -p build/tidy -j "$(nproc)" \
    "^$PWD/(vexpa|runtime|tool|examples|tests|fuzz|bench)/.*${1:-}"
