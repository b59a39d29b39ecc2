#!/usr/bin/env bash
# Installs the built library into a folder of the build tree and builds the consumer against it
# twice: through find_package and through pkg-config. Arguments: build dir, consumer source dir,
# C++ compiler.
set -euo pipefail
build=$1
consumer=$2
compiler=$3
work="$build/install-check"
prefix="$work/prefix"
rm -rf "$work"

cmake --install "$build" --prefix "$prefix" >/dev/null

cmake -S "$consumer" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"

libdir=$(dirname "$(find "$prefix" -name 'qxxmllib16.pc' -path '*/pkgconfig/*' | head -n 1)")/..
export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046 # the flags are meant to split
"$compiler" -o "$work/pkgconfig-consumer" "$consumer/consumer.cpp" $(pkg-config --cflags --libs qxxmllib16) \
    -Wl,-rpath,"$(pkg-config --variable=libdir qxxmllib16)"
"$work/pkgconfig-consumer"
