#!/usr/bin/env bash
# install.sh PACKAGES ROOT   lets dpkg install the packages into an empty root, which has the list of
# this system's packages but none of their files: what they depend on has to be in it. Then they
# are removed again from a copy, where nothing may be left.
set -euo pipefail
packages=("$1"/*.deb)
root=$2

dpkg_in() {  # ROOT ARGUMENTS...
    local dpkg=(dpkg)
    [ "$(id -u)" -eq 0 ] || dpkg=(fakeroot dpkg --force-not-root)
    PATH=$PATH:/usr/sbin:/sbin "${dpkg[@]}" --root="$1" --log=/dev/null "${@:2}"
}

rm -rf "$root" "$root.removed"
database=var/lib/dpkg
mkdir -p "$root/$database/info" "$root/$database/updates" "$root/$database/triggers"
cp "/$database/status" "$root/$database"
(cd "/$database/info" && printf '%s\0' *.list) | (cd "$root/$database/info" && xargs -0 touch)
dpkg_in "$root" --install "${packages[@]}"

cp -a "$root" "$root.removed"
names=()
for package in "${packages[@]}"; do names+=("$(dpkg-deb --field "$package" Package)"); done
dpkg_in "$root.removed" --purge "${names[@]}"
left=$(cd "$root.removed" && find . -path ./var -prune -o ! -type d -print)
rm -rf "$root.removed"
[ -z "$left" ] || { printf 'these stay behind:\n%s\n' "$left"; exit 1; }
