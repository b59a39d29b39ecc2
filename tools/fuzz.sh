#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (AddressSanitizer and UndefinedBehaviorSanitizer) into
# build-fuzz/ and runs each for a bounded time from its seeds:
#   tools/fuzz.sh                       every target, 60 s each
#   tools/fuzz.sh --time 600 json       one target, ten minutes
#   tools/fuzz.sh --runs 10000000 fi    one target, a fixed number of executions
# A target's seeds are the globs listed in fuzz/<name>.seeds (relative to the repository root); a
# line "dict FILE" there names its dictionary in fuzz/, a line "max_len N" caps the inputs' size (a
# few large seeds would otherwise slow every execution down to their size). New inputs that grow coverage are kept in
# build-fuzz/corpus/<name>/, so later runs go on from there. Any crash, leak or timeout fails.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
limit=(-max_total_time=60)
targets=()
while [ $# -gt 0 ]; do
    case "$1" in
    --time) limit=(-max_total_time="$2"); shift 2 ;;
    --runs) limit=(-runs="$2"); shift 2 ;;
    *) targets+=("$1"); shift ;;
    esac
done

bash "$root/tools/install-deps.sh" clang libclang-rt-14-dev
build="$root/build-fuzz"
CXX=clang++ cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQX_BUILD_FUZZ=ON \
    -DQX_BUILD_TESTS=OFF -DQX_BUILD_EXAMPLES=ON >/dev/null
if [ ${#targets[@]} -eq 0 ]; then
    for source in "$root"/fuzz/*_fuzz.cpp; do
        name=$(basename "$source" .cpp)
        targets+=("${name%_fuzz}")
    done
fi
echo "building ${targets[*]}..."
cmake --build "$build" -j "$(nproc)" --target $(printf 'qx_%s_fuzz ' "${targets[@]}") >"$build/build.log" 2>&1 ||
    { tail -n 40 "$build/build.log"; exit 1; }

export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
for name in "${targets[@]}"; do
    corpus="$build/corpus/$name"
    mkdir -p "$corpus"
    dict=()
    maxLen=()
    seeds="$root/fuzz/$name.seeds"
    if [ -f "$seeds" ]; then
        while read -r kind value; do
            case "$kind" in
            '' | '#'*) ;;
            dict) dict=(-dict="$root/fuzz/$value") ;;
            max_len) maxLen=(-max_len="$value") ;;
            *) for f in $root/$kind; do [ -f "$f" ] && cp -n "$f" "$corpus/" || true; done ;;
            esac
        done <"$seeds"
    fi
    echo "fuzzing $name..."
    log="$build/$name.log"
    # Crash inputs are written into the build folder, not the working directory.
    if ! (cd "$build" && "$build/fuzz/qx_${name}_fuzz" "${limit[@]}" -timeout=10 -rss_limit_mb=2560 \
        -print_final_stats=1 "${dict[@]}" "${maxLen[@]}" "$corpus" >"$log" 2>&1); then
        tail -n 60 "$log"
        echo "fuzz target $name failed; the input is in $build"
        exit 1
    fi
    grep -E "^(stat::number_of_executed_units|stat::peak_rss_mb|#[0-9]+ +DONE)" "$log" || true
done
echo "fuzz ok"
