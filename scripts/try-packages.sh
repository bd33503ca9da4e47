#!/usr/bin/env bash
# scripts/try-packages.sh FOLDER   installs the packages that build-packages.sh left in a folder
# into a new, minimal Debian 12, builds small programs against them there and runs them. Needs
# root, debootstrap and a Debian mirror (MIRROR=...).
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
[ $# -eq 1 ] || { sed -n '2,4s/^# //p' "${BASH_SOURCE[0]}" >&2; exit 2; }

clean=$(mktemp -d)
trap 'rm -rf --one-file-system "$clean"' EXIT
debootstrap --variant=minbase bookworm "$clean" ${MIRROR:+"$MIRROR"}
mkdir "$clean/packages" "$clean/consumers"
cp "$1"/*.deb "$clean/packages"
rm -f "$clean"/packages/*-dbgsym_*.deb
cp -r "$root/tests/install/." "$clean/consumers"
cp "$root/samples/report.docx" "$clean"

chroot "$clean" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 sh -eux <<'END'
apt-get install -y -q --no-install-recommends /packages/*.deb
vexpa --version
vexpa check /report.docx
apt-get install -y -q --no-install-recommends cmake g++ make ninja-build pkg-config
cmake -S /consumers/find_package -B /tmp/cmake -G Ninja -DCOMPONENTS="runtime tool"
cmake --build /tmp/cmake
/tmp/cmake/consumer /report.docx | diff - /consumers/consumer.expected
OUT=/tmp/make sh /consumers/make/make_and_run.sh consumer /report.docx |
    tail -n +2 | diff - /consumers/consumer.expected
END
echo "the packages install and work in a clean root"
