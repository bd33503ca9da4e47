#!/usr/bin/env bash
# fuzz/minimise.sh [TARGET...]   of what fuzz/run.sh has found so far keeps the few small inputs
# that reach as much as all small ones together, in fuzz/corpora/TARGET.tar.xz. The next runs begin
# with them, and the tests run them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

most_bytes=4096  # larger inputs take long, and mostly only repeat themselves

targets=("$@")
if ((${#targets[@]} == 0)); then
    for folder in fuzz/seeds/*/; do targets+=("$(basename "$folder")"); done
fi

out=$PWD/build/fuzz
mkdir -p fuzz/corpora
for name in "${targets[@]}"; do
    rm -rf "$out/small/$name" "$out/few/$name"
    mkdir -p "$out/small/$name" "$out/few/$name"
    find "$out/corpus/$name" -type f -size -"$((most_bytes + 1))c" -exec cp -t "$out/small/$name" {} +
    "$out/fuzz/fuzz_$name" -set_cover_merge=1 -rss_limit_mb=2048 "$out/few/$name" "$out/small/$name" \
        >"$out/logs/minimise-$name.log" 2>&1
    (cd "$out/few/$name" && cmake -E tar cJf "$OLDPWD/fuzz/corpora/$name.tar.xz" \
        --format=gnutar --mtime=2000-01-01UTC .)
    echo "$name: $(find "$out/few/$name" -type f | wc -l) inputs"
done
