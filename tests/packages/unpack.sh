#!/usr/bin/env bash
# unpack.sh PACKAGES ROOT
set -euo pipefail
rm -rf "$2"
mkdir -p "$2"
for package in "$1"/*.deb; do dpkg-deb --extract "$package" "$2"; done
