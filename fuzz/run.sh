#!/usr/bin/env bash
# fuzz/run.sh SECONDS [TARGET...]   builds the fuzz targets and runs each for so long or for 50
# million inputs, JOBS (two unless set) at a time, all unless some are named. The table of what
# they did goes to build/fuzz/report.md, inputs that broke something to build/fuzz/finds/TARGET/;
# corpora begin with fuzz/corpora/ and grow from run to run; fuzz/minimise.sh keeps the best of them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

seconds=${1:?usage: fuzz/run.sh SECONDS [TARGET...]}
shift
targets=("$@")
if ((${#targets[@]} == 0)); then
    for folder in fuzz/seeds/*/; do targets+=("$(basename "$folder")"); done
fi

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

out=$PWD/build/fuzz
mkdir -p "$out/logs"

run_target() {
    local name=$1 options=()
    mkdir -p "$out/corpus/$name" "$out/finds/$name"
    local kept=$PWD/fuzz/corpora/$name.tar.xz
    [ ! -f "$kept" ] || (cd "$out/corpus/$name" && cmake -E tar xf "$kept")
    [ -f "fuzz/dictionaries/$name.dict" ] && options+=("-dict=fuzz/dictionaries/$name.dict")
    "$out/fuzz/fuzz_$name" "${options[@]}" -max_total_time="$seconds" -runs=50000000 -max_len=65536 \
        -timeout=10 -rss_limit_mb=1024 -print_final_stats=1 \
        -artifact_prefix="$out/finds/$name/" \
        "$out/corpus/$name" "fuzz/seeds/$name" >"$out/logs/$name.log" 2>&1 || true
}
export -f run_target
export out seconds
printf '%s\n' "${targets[@]}" | xargs -P "${JOBS:-2}" -I{} bash -c 'run_target {}'

# The last value after a word in a target's log.
last() { grep -oE "$2 *[0-9]+" "$out/logs/$1.log" | tail -1 | grep -oE '[0-9]+$' || echo '-'; }

{
    echo "| Target | Executions | A second | Edges | Features | Inputs | Peak MB | Finds |"
    echo "|---|---|---|---|---|---|---|---|"
    for name in "${targets[@]}"; do
        finds=$(find "$out/finds/$name" -type f | wc -l)
        printf '| %s | %s | %s | %s | %s | %s | %s | %s |\n' "$name" \
            "$(last "$name" 'number_of_executed_units:')" "$(last "$name" 'average_exec_per_sec:')" \
            "$(last "$name" 'cov:')" "$(last "$name" 'ft:')" \
            "$(find "$out/corpus/$name" -type f | wc -l)" "$(last "$name" 'peak_rss_mb:')" "$finds"
    done
} | tee "$out/report.md"
! find "$out/finds" -type f | grep -q .
