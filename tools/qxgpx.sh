#!/usr/bin/env bash
# The main job: installs what is needed, builds the library and qxgpx (release, in build-qxgpx/),
# and runs qxgpx, on the shipped sample unless arguments say otherwise:
#   tools/qxgpx.sh                          summary of examples/gpx/sample.gpx
#   tools/qxgpx.sh --timings --out out.gpx my-track.gpx
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/tools/install-deps.sh"
build="$root/build-qxgpx"
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_TESTS=OFF -DQX_BUILD_EXAMPLES=ON >/dev/null
cmake --build "$build" -j 2 --target qxgpx >/dev/null
exec "$build/examples/gpx/qxgpx" "$@"
