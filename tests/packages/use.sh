#!/usr/bin/env bash
# use.sh ROOT FOLDER DOCUMENT   builds programs against packages that were installed into a root
# of their own, and runs them and the inspector
set -euo pipefail
root=$1 folder=$2 document=$3
consumers=$(cd "$(dirname "${BASH_SOURCE[0]}")/../install" && pwd)
libraries=$(dirname "$(find "$root/usr/lib" -name 'libvexpa.so.1')")
rm -rf "$folder"
mkdir -p "$folder"

# As in a system, nothing but the linker's own search leads to the libraries.
for library in "$libraries"/libvexpa*.so.1; do
    if readelf --dynamic "$library" | grep -E 'RPATH|RUNPATH'; then
        echo "$library looks for libraries in places of its own"
        exit 1
    fi
done
export LD_LIBRARY_PATH=$libraries

cmake -S "$consumers/find_package" -B "$folder/cmake" -G Ninja \
    -DCMAKE_PREFIX_PATH="$root/usr" "-DCOMPONENTS=runtime tool" >"$folder/log"
cmake --build "$folder/cmake" >>"$folder/log"
"$folder/cmake/consumer" "$document" | diff - "$consumers/consumer.expected"

PKG_CONFIG_PATH=$libraries/pkgconfig OUT=$folder/make \
    sh "$consumers/make/make_and_run.sh" consumer "$document" | tail -n 1 |
    diff - <(tail -n 1 "$consumers/consumer.expected")

"$root/usr/bin/vexpa" check "$document"
bash -n "$root/usr/share/bash-completion/completions/vexpa"
gzip -t "$root/usr/share/man/man1/vexpa.1.gz"
