#!/usr/bin/env bash
# scripts/pre-commit.sh [--all]   looks at what is about to be committed, or at every file as it lies
# there: layout of C++, generated tables, white space, documents. Takes a few seconds, and changes
# nothing.
#
# As a hook:  ln -s ../../scripts/pre-commit.sh .git/hooks/pre-commit
set -euo pipefail
cd "$(git rev-parse --show-toplevel)"

if [ "${1:-}" = --all ]; then
    mapfile -d '' files < <(git ls-files -z)
else
    mapfile -d '' files < <(git diff --cached --name-only --diff-filter=d -z)
    [ ${#files[@]} -gt 0 ] || exit 0
    # What is committed may differ from what lies there.
    staged=$(mktemp -d)
    trap 'rm -rf "$staged"' EXIT
    git checkout-index --all --prefix="$staged/"
    cd "$staged"
fi

status=0
fail() {
    echo "pre-commit: $1" >&2
    status=1
}

sources=() texts=() untabbed=()
for file in "${files[@]}"; do
    case $file in
        samples/*.* | fuzz/seeds/* | fuzz/corpora/* | tests/tool/golden/* | tests/examples/expected/*) continue ;;
        *.generated.cpp) ;;
        *.cpp | *.h) sources+=("$file") ;;
    esac
    texts+=("$file")
    # A tab belongs into a table, and before what make runs.
    case $file in
        *.tsv | Makefile | */Makefile | packaging/debian/rules) ;;
        *) untabbed+=("$file") ;;
    esac
done

# Other versions lay out otherwise.
if ! clang-format --version 2>/dev/null | grep -q 'version 14\.'; then
    echo "pre-commit: without clang-format 14 the layout of C++ is not looked at" >&2
elif [ ${#sources[@]} -gt 0 ]; then
    clang-format --dry-run --Werror "${sources[@]}" || fail "the layout differs: clang-format -i FILE"
fi
if [ ${#texts[@]} -gt 0 ]; then
    grep -InE $'[ \t]+$' -- "${texts[@]}" && fail "white space at the end of a line"
    grep -Il $'\r' -- "${texts[@]}" && fail "a carriage return"
    for file in "${texts[@]}"; do
        [ ! -s "$file" ] || [ -z "$(tail -c 1 -- "$file")" ] || fail "$file: no end of line at the end"
    done
fi
if [ ${#untabbed[@]} -gt 0 ]; then
    grep -In $'\t' -- "${untabbed[@]}" && fail "a tab"
fi

python3 vexpa/xmlfx/make_token_table.py --check || fail "tokens"
python3 vexpa/opc/make_relationship_types.py --check || fail "relationship types"
for check in links snippets kept; do
    python3 -B tests/docs/check_docs.py "$check" . || fail "documents: $check"
done
exit $status
