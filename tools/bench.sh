#!/usr/bin/env bash
# Builds the benchmarks (release build in build-bench/) and runs one of them.
#   tools/bench.sh conversions    text conversions against the bare C library calls
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -ne 1 ]; then
    echo "usage: $0 <benchmark>   (one of: $(ls bench/*.cpp | sed 's|bench/||; s|_bench.cpp||; s|.cpp||' | tr '\n' ' '))" >&2
    exit 2
fi
target="$1_bench"
[ -f "bench/$1.cpp" ] && target="$1"
cmake -S . -B build-bench -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_BENCH=ON -DQX_BUILD_TESTS=OFF >/dev/null
cmake --build build-bench -j 2 --target "$target"
"build-bench/bench/$target"
