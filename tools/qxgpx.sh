#!/usr/bin/env bash
# The main job: installs what is needed, builds the library and qxgpx (release, in build-qxgpx/),
# and runs qxgpx, on the shipped sample unless arguments say otherwise:
#   tools/qxgpx.sh                          summary of examples/gpx/sample.gpx
#   tools/qxgpx.sh --timings --out out.gpx my-track.gpx
# What it is doing goes to stderr, one line per step, so that stdout holds the summary alone.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$root/build-qxgpx"
step() { echo "qxgpx.sh: $*" >&2; }

bash "$root/tools/install-deps.sh" # says "installing packages: ..." when it has to
step "configuring..."
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DQX_BUILD_TESTS=OFF -DQX_BUILD_EXAMPLES=ON >/dev/null
step "building (a minute or two on two cores the first time)..."
cmake --build "$build" -j 2 --target qxgpx >&2
step "running qxgpx"
exec "$build/examples/gpx/qxgpx" "$@"
