#!/usr/bin/env bash
# check_depends.sh PACKAGES   the libraries' versions as far as the symbols files know them
set -euo pipefail

require() {  # PACKAGE DEPENDENCY
    local depends
    depends=$(dpkg-deb --field "$folder/$1"_*.deb Depends)
    case ", $depends," in
    *", $2,"*) ;;
    *) echo "$1 does not depend on '$2' but on: $depends"; failed=1 ;;
    esac
}

folder=$1
failed=0
version=$(dpkg-deb --field "$folder"/libvexpa1_*.deb Version)
require libvexpa1 "libvexpa-runtime1 (>= 1.0.0)"
require libvexpa-dev "libvexpa1 (= $version)"
require libvexpa-dev "libvexpa-runtime1 (= $version)"
require vexpa-tools "libvexpa1 (>= 1.0.0)"
require vexpa-tools "libvexpa-runtime1 (>= 1.0.0)"
exit $failed
