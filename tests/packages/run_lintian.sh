#!/usr/bin/env bash
# run_lintian.sh PACKAGES   fails on whatever lintian calls a warning or an error
set -euo pipefail
check=(lintian --allow-root --fail-on error,warning)
"${check[@]}" "$1"/libvexpa*_*.deb
# That inspector comes from a build which looks for its libraries beside itself.
"${check[@]}" --suppress-tags custom-library-search-path "$1"/vexpa-tools_*.deb
