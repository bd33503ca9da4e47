#!/usr/bin/env bash
# scripts/dump-abi.sh LIBRARY HEADERS   prints the binary interface of a library that was built
# with debug information, as far as the headers in that folder show it.
# scripts/dump-abi.sh --update          builds the preset `dev` and puts the interfaces that its
# libraries have into abi/*.abi: for a change that is meant (docs/abi.md).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# Nothing of where it was built, of sources, or of what callers cannot see.
dump() {
    abidw --exported-interfaces-only --headers-dir "$2" --drop-private-types \
        --suppressions "$root/abi/not-ours.suppr" \
        --drop-undefined-syms --no-elf-needed --no-corpus-path --no-comp-dir-path \
        --no-show-locs --no-parameter-names --type-id-style hash "$1" |
        sed "s, path='[./]*, path=',"  # a compiler cache may make them relative
}

update() {
    cd "$root"
    cmake --preset dev >/dev/null
    cmake --build --preset dev --target vexpa vexpa_runtime
    prefix=$(mktemp -d)
    trap 'rm -rf "$prefix"' EXIT
    for component in vexpa_library vexpa_runtime vexpa_development; do
        cmake --install build/dev --prefix "$prefix" --component $component >/dev/null
    done
    for library in libvexpa libvexpa-runtime; do
        dump "$prefix"/lib*/$library.so.1 "$prefix/include" >"$prefix/dump"
        mv "$prefix/dump" abi/$library-1.abi
    done
    git --no-pager diff --stat abi
}

if [ $# -eq 1 ] && [ "$1" = --update ]; then
    update
elif [ $# -eq 2 ]; then
    dump "$1" "$2"
else
    sed -n '2,5s/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
fi
