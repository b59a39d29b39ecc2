#!/usr/bin/env bash
# Builds the benchmarks (optimised, in build-bench/) and runs one of them.
#   tools/bench.sh xml [points]   XML text load and write on a generated GPX document
#                                 (default 178000 track points, about 50 MB)
#   tools/bench.sh gpx [points]   the GPX bindings against gSOAP and CodeSynthesis XSD on the same
#                                 document; installs the peers' Debian packages first. Without
#                                 points, also loads 10,000, 100,000 and 1,000,000 points to show
#                                 the growth, and writes the results into docs/benchmark-gpx.md and
#                                 the chart docs/benchmark-gpx.svg
#   tools/bench.sh json [points]  JSON write and load of the GPX bindings against XML on the same
#                                 document
#   tools/bench.sh fastinfoset [points]
#                                 Fast Infoset against XML text on the GPX bindings (sizes, load and
#                                 write), and the reference Java converters on the same document
#   tools/bench.sh <name>         any other bench/<name>_bench.cpp
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -lt 1 ]; then
    echo "usage: $0 <benchmark> [points]   (one of: $(ls bench/*_bench.cpp | sed 's|bench/||; s|_bench.cpp||' | tr '\n' ' '))" >&2
    exit 2
fi
name="$1"
build=build-bench
if [ "$name" = gpx ]; then
    bash tools/install-deps.sh gsoap libgsoap-dev xsdcxx libxerces-c-dev
fi
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_BENCH=ON -DQX_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j 2 --target "${name}_bench"
if [ "$name" = xml ] || [ "$name" = gpx ] || [ "$name" = json ] || [ "$name" = fastinfoset ]; then
    points="${2:-178000}"
    document="$build/bench-$points.gpx"
    generate() { [ -f "$build/bench-$1.gpx" ] || python3 ../shared/tools/gen_gpx.py --points "$1" -o "$build/bench-$1.gpx"; }
    generate "$points"
    if [ "$name" = gpx ] && [ $# -lt 2 ]; then
        for scale in 10000 100000 1000000; do generate $scale; done
        "$build/bench/gpx_bench" --report docs "$document" "$build"/bench-{10000,100000,1000000}.gpx
    else
        "$build/bench/${name}_bench" "$document"
    fi
else
    "$build/bench/${name}_bench"
fi
