#!/usr/bin/env bash
# Installs what the library needs, builds it and runs the whole test suite.
#   tools/test.sh             plain build in build/
#   tools/test.sh --sanitize  AddressSanitizer + UndefinedBehaviorSanitizer build in build-sanitize/
#   tools/test.sh --tsan      ThreadSanitizer build in build-tsan/ of the thread stress test alone
set -euo pipefail
cd "$(dirname "$0")/.."

options=()
build=build
targets=()
tests=()
case "${1:-}" in
--sanitize)
    options=(-DQX_SANITIZE=ON)
    build=build-sanitize
    export ASAN_OPTIONS=halt_on_error=1:detect_leaks=1
    export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
    ;;
--tsan)
    options=(-DQX_TSAN=ON)
    build=build-tsan
    targets=(--target qx_threads_tests)
    tests=(-R '^ThreadStress\.')
    export TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1
    ;;
esac

bash tools/install-deps.sh

cmake -S . -B "$build" "${options[@]}" -DQX_BUILD_TESTS=ON
cmake --build "$build" -j "$(nproc)" "${targets[@]}"
ctest --test-dir "$build" --output-on-failure -j "$(nproc)" "${tests[@]}"
