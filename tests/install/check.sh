#!/usr/bin/env bash
# Installs the built library into a folder of the build tree and builds the consumer against it
# twice: through find_package, whose qx_generate_bindings compiles the consumer's schema, and through
# pkg-config with the installed qxxsd run by hand; then runs the installed qxconv. Arguments: build
# dir, consumer source dir, C++ compiler.
set -euo pipefail
build=$1
consumer=$2
compiler=$3
work="$build/install-check"
prefix="$work/prefix"
rm -rf "$work"

cmake --install "$build" --prefix "$prefix" >/dev/null

# A copy of the consumer, so that its included schema can change.
cp -r "$consumer" "$work/source"
cmake -S "$work/source" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler" >/dev/null
cmake --build "$work/cmake" >/dev/null
header="$work/cmake/consumer_bindings/order.h"
made=$(stat -c %Y "$header")
sleep 1
touch "$work/source/item.xsd"
cmake --build "$work/cmake" >/dev/null
if [ "$(stat -c %Y "$header")" = "$made" ]; then
    echo "the bindings were not made again after the included schema changed"
    exit 1
fi
"$work/cmake/consumer"

libdir=$(dirname "$(find "$prefix" -name 'qxxmllib16.pc' -path '*/pkgconfig/*' | head -n 1)")/..
export PKG_CONFIG_PATH="$libdir/pkgconfig"
"$prefix/bin/qxxsd" "$consumer/order.xsd" -o "$work/pkgconfig-bindings"
# shellcheck disable=SC2046 # the flags are meant to split
"$compiler" -o "$work/pkgconfig-consumer" "$consumer/consumer.cpp" "$work/pkgconfig-bindings/order.cpp" \
    -I"$work/pkgconfig-bindings" $(pkg-config --cflags --libs qxxmllib16) \
    -Wl,-rpath,"$(pkg-config --variable=libdir qxxmllib16)"
"$work/pkgconfig-consumer"

# The installed converter runs from where it is installed: the schema to JSON and back.
"$prefix/bin/qxconv" "$consumer/order.xsd" "$work/order.json"
"$prefix/bin/qxconv" "$work/order.json" "$work/order.xml"
