#!/usr/bin/env bash
# run_lintian.sh PACKAGES   fails on whatever lintian calls a warning or an error
set -euo pipefail
lintian --allow-root --fail-on error,warning "$1"/*.deb
