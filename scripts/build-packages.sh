#!/usr/bin/env bash
# scripts/build-packages.sh [--tool-from BUILD] FOLDER   builds the Debian packages of this tree
# into a folder, in place of those that lie there: libvexpa1, libvexpa-runtime1, libvexpa-dev,
# vexpa-tools, debug symbols. Installs what it needs first.
#
# With --tool-from the inspector is not built for the packages but taken from that build: quick,
# for looking at the packaging.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
. "$root/scripts/install-packages.sh"

usage() {
    sed -n '2,4s/^# //p' "${BASH_SOURCE[0]}" >&2
    exit 2
}

if [ "${1-}" = --tool-from ]; then
    [ $# -ge 2 ] || usage
    VEXPA_TOOL_TREE=$(realpath "$2")
    export VEXPA_TOOL_TREE
    shift 2
fi
[ $# -eq 1 ] || usage
mkdir -p "$1"
folder=$(realpath "$1")

install_packages "$root/packages.txt" build packages
version=$(sed -n 's/^project(vexpa VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
# When the tree was last changed: the only time that shows in the packages.
SOURCE_DATE_EPOCH=$(git -C "$root" log -1 --format=%ct 2>/dev/null || stat -c %Y "$root/CHANGELOG.md")
export SOURCE_DATE_EPOCH

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
tree=$work/libvexpa-$version
mkdir "$tree"
tar -C "$root" --exclude=./build --exclude=./.git -cf - . | tar -C "$tree" -xf -
cp -r "$root/packaging/debian" "$tree/debian"
cat >"$tree/debian/changelog" <<END
libvexpa ($version) unstable; urgency=medium

  * Built from the tree of this version: see its CHANGELOG.md.

 -- libvexpa maintainers <maintainers@example.org>  $(LC_ALL=C date -u -R -d "@$SOURCE_DATE_EPOCH")
END

(cd "$tree" && dpkg-buildpackage --build=binary --no-sign)
# Whoever takes *.deb from there gets one version.
rm -f "$folder"/libvexpa{1,-runtime1,-dev}{,-dbgsym}_*.deb "$folder"/vexpa-tools{,-dbgsym}_*.deb \
    "$folder"/libvexpa_*.{changes,buildinfo}
mv "$work"/*.deb "$work"/*.changes "$work"/*.buildinfo "$folder"
