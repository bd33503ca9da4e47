#!/usr/bin/env bash
# scripts/pre-commit.sh [--all]   looks at what is about to be committed, or at every file: layout of
# C++, generated tables, white space, documents. Takes a second or two, and changes nothing.
#
# As a hook:  ln -s ../../scripts/pre-commit.sh .git/hooks/pre-commit
set -euo pipefail
cd "$(git rev-parse --show-toplevel)"

if [ "${1:-}" = --all ]; then
    mapfile -d '' files < <(git ls-files -z)
else
    mapfile -d '' files < <(git diff --cached --name-only --diff-filter=d -z)
fi
[ ${#files[@]} -gt 0 ] || exit 0

status=0
fail() {
    echo "pre-commit: $1" >&2
    status=1
}

sources=() texts=()
for file in "${files[@]}"; do
    case $file in
        *.generated.cpp) texts+=("$file") ;;
        *.cpp | *.h) sources+=("$file") texts+=("$file") ;;
        samples/*.* | fuzz/seeds/* | tests/tool/golden/* | tests/examples/expected/*) ;;
        *) texts+=("$file") ;;
    esac
done

if [ ${#sources[@]} -gt 0 ]; then
    clang-format --dry-run --Werror "${sources[@]}" || fail "the layout differs: clang-format -i FILE"
fi
if [ ${#texts[@]} -gt 0 ]; then
    # A tab belongs into a table only.
    grep -InE $'[ \t]+$' -- "${texts[@]}" && fail "white space at the end of a line"
    grep -Il $'\r' -- "${texts[@]}" && fail "a carriage return"
    for file in "${texts[@]}"; do
        [[ $file == *.tsv ]] || ! grep -Iq $'\t' -- "$file" || fail "$file: a tab"
        [ ! -s "$file" ] || [ -z "$(tail -c 1 -- "$file")" ] || fail "$file: no end of line at the end"
    done
fi

python3 vexpa/xmlfx/make_token_table.py --check || fail "tokens"
python3 vexpa/opc/make_relationship_types.py --check || fail "relationship types"
for check in links snippets kept; do
    python3 -B tests/docs/check_docs.py "$check" . || fail "documents: $check"
done
exit $status
