#!/usr/bin/env bash
# hook.sh TREE   commits to a clone of the tree, with the hook as it stands in the tree
set -euo pipefail
clone=$(mktemp -d)
trap 'rm -rf "$clone"' EXIT
git clone -q --shared "$1" "$clone"
cd "$clone"
cp "$1/scripts/pre-commit.sh" .git/hooks/pre-commit
git config user.name somebody
git config user.email somebody@example.org

# commits STATUS WHAT   whether the index is refused as it should be
commits() {
    local status=0
    git commit -q -m change >.git/said 2>&1 || status=1
    [ $status -eq "$1" ] || { echo "$2: status $status"; cat .git/said; exit 1; }
}

printf 'a line \n' >notes.txt
git add notes.txt
printf 'a line\n' >notes.txt
commits 1 "what is staged is wrong, and what lies there is right"

git add notes.txt
printf 'a line \n' >notes.txt
commits 0 "what is staged is right, and what lies there is wrong"

printf 'a\ttab\n' >notes.txt
git add notes.txt
commits 1 "a tab"

printf 'all:\n\ttrue\n' >Makefile
git add Makefile
git reset -q notes.txt
commits 0 "the tab that make needs"
