#!/bin/sh
# Installs the built library into a scratch prefix and builds a consumer against it, once with
# find_package and once with pkg-config, then runs both programs.
# Usage: run.sh <project build directory> <scratch directory>
set -eu
build=$1
work=$2
here=$(cd "$(dirname "$0")" && pwd)
prefix=$work/prefix

rm -rf "$work"
mkdir -p "$work"
cmake --install "$build" --prefix "$prefix" >/dev/null

cmake -S "$here" -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
"$work/cmake/consumer"
echo "consumer: find_package(Ravelin) works"

libdir=$(dirname "$(find "$prefix" -name ravelin.pc)")/..
export PKG_CONFIG_PATH="$libdir/pkgconfig"
# shellcheck disable=SC2046
${CXX:-c++} $(pkg-config --cflags ravelin) "$here/main.cpp" -o "$work/consumer-pc" \
    $(pkg-config --libs ravelin)
LD_LIBRARY_PATH="$libdir" "$work/consumer-pc"
echo "consumer: pkg-config ravelin works"
