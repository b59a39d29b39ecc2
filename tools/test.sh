#!/usr/bin/env bash
# Installs what the library needs, builds it and runs the whole test suite.
#   tools/test.sh             plain build in build/
#   tools/test.sh --sanitize  AddressSanitizer + UndefinedBehaviorSanitizer build in build-sanitize/
set -euo pipefail
cd "$(dirname "$0")/.."

sanitize=OFF
build=build
if [ "${1:-}" = "--sanitize" ]; then
    sanitize=ON
    build=build-sanitize
fi

bash tools/install-deps.sh

cmake -S . -B "$build" -DQX_SANITIZE="$sanitize" -DQX_BUILD_TESTS=ON
cmake --build "$build" -j "$(nproc)"
if [ "$sanitize" = ON ]; then
    export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1
    export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
fi
ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
