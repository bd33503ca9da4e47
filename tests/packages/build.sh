#!/usr/bin/env bash
# build.sh BUILD FOLDER   builds the packages into a folder where older ones lie, with the inspector
# of that build: compiling it takes longer than all else
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../scripts" && pwd)
rm -rf "$2"
mkdir -p "$2"
touch "$2"/libvexpa1_0.9.0_amd64.deb "$2"/libvexpa1-dbgsym_0.9.0_amd64.deb \
    "$2"/vexpa-tools_0.9.0_amd64.deb

# Without debug information, which nobody here looks at.
DEB_BUILD_OPTIONS=noautodbgsym DEB_CXXFLAGS_STRIP=-g "$scripts/build-packages.sh" --tool-from "$1" "$2"

for package in libvexpa1 libvexpa-runtime1 libvexpa-dev vexpa-tools; do
    found=("$2/$package"_*.deb)
    [ ${#found[@]} -eq 1 ] || { echo "of $package there are: ${found[*]}"; exit 1; }
done
[ "$(ls "$2"/*.deb | wc -l)" -eq 4 ] || { ls "$2"; exit 1; }
