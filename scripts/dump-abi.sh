#!/usr/bin/env bash
# scripts/dump-abi.sh LIBRARY HEADERS   prints the binary interface of a library that was built
# with debug information, as far as the headers in that folder show it.
#
# abi/libvexpa-1.abi and abi/libvexpa-runtime-1.abi were made by this, from an installed build
# of the preset `dev`:
#
#     scripts/dump-abi.sh PREFIX/lib/libvexpa.so.1 PREFIX/include > abi/libvexpa-1.abi
set -euo pipefail
[ $# -eq 2 ] || { sed -n '2,3s/^# //p' "${BASH_SOURCE[0]}" >&2; exit 2; }

# Nothing of where it was built, of sources, or of what callers cannot see.
exec abidw --exported-interfaces-only --headers-dir "$2" --drop-private-types \
    --suppressions "$(dirname "${BASH_SOURCE[0]}")/../abi/not-ours.suppr" \
    --drop-undefined-syms --no-elf-needed --no-corpus-path --no-comp-dir-path \
    --no-show-locs --no-parameter-names --type-id-style hash "$1"
