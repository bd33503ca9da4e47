#!/usr/bin/env bash
# bench/compare.sh [--quick] [--rows GLOB,..] [--drivers NAME,..]
# Measures this library beside its peers and the physical limit, and writes docs/performance.md
# with its charts; a part of the whole goes to build/bench/report instead. Installs what is
# missing, builds, makes the packages it reads. --help tells the rest.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/install-packages.sh"

install_packages "$root/packages.txt"
install_packages "$root/bench/peers.txt"

cd "$root"
cmake --preset bench >&2
cmake --build --preset bench >&2
exec python3 bench/compare/main.py --build build/bench "$@"
