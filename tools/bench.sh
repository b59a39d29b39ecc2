#!/usr/bin/env bash
# Builds the benchmarks in build-bench/ (optimised) and runs them on a generated document.
#   tools/bench.sh [points]    track points of the generated GPX document (default 178000, about 50 MB)
set -euo pipefail
cd "$(dirname "$0")/.."
points="${1:-178000}"
build=build-bench
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_BENCH=ON -DQX_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j 2 --target xml_bench
document="$build/bench-$points.gpx"
[ -f "$document" ] || python3 ../shared/tools/gen_gpx.py --points "$points" -o "$document"
"$build/bench/xml_bench" "$document"
