#!/usr/bin/env bash
# check_dump.sh LIBRARY HEADERS RELEASED NOW   dumps the binary interface of a library to NOW, and
# compares it with that of the release. Any change fails, also one that breaks nobody: it then
# belongs into the released dump on purpose.
set -euo pipefail
scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../scripts" && pwd)
"$scripts/dump-abi.sh" "$1" "$2" >"$4"
# One declared alone says nothing of the class: then debug information was left out.
if grep "<class-decl .*is-declaration-only='yes'" "$4" | grep -v "name='GlobalBlock'"; then
    echo "these classes are not in the debug information of $1" >&2
    exit 1
fi
abidiff --harmless "$3" "$4"
