#!/usr/bin/env bash
# package_list.sh TREE   what install_packages would install, of a small list and of packages.txt
set -euo pipefail
. "$1/scripts/install-packages.sh"

expect() {  # EXPECTED ARGUMENTS...
    local found
    found=$(list_packages "${@:2}" | xargs)
    [ "$found" = "$1" ] || { echo "list_packages ${*:2}: '$found', not '$1'"; exit 1; }
}

list=$(mktemp)
trap 'rm -f "$list"' EXIT
printf '%s\n' '# A list' early '' '# [one] of two' a b '# a comment' '# [two]' c >"$list"
expect "early a b c" "$list"
expect "a b" "$list" one
expect "a b c" "$list" two one
expect "" "$list" three

# What a document is shown with needs none of what the tests need.
build=$(list_packages "$1/packages.txt" build)
all=$(list_packages "$1/packages.txt")
[ -n "$build" ] || { echo "packages.txt names nothing to build with"; exit 1; }
for package in clang doxygen libclang-rt-dev lintian llvm valgrind; do
    grep -qx $package <<<"$all" || { echo "packages.txt does not name $package"; exit 1; }
    ! grep -qx $package <<<"$build" || { echo "packages.txt builds with $package"; exit 1; }
done
