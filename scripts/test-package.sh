#!/usr/bin/env bash
# Installs the built library into a temporary prefix, builds the tiny add-in of tests/package
# against it twice (through the CMake package, and through pkg-config with only the flags it
# gives), runs both, and checks that the library found its install tree beside itself.
# BUILD_DIR picks the build folder (default build/), which must be built already.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${BUILD_DIR:-build}
prefix=$(mktemp -d)
work=$(mktemp -d)
trap 'rm -rf "$prefix" "$work"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(find "$prefix" -name libKELSHAREu.so -printf '%h\n')
export ORV_REGISTRY_DIR="$work/registry"

check() { # NAME OUTPUT
    local expected
    expected=$(printf 'install %s/\nresources %s/lang/English/KELRESu.DLL\narchive stored by the add-in' \
        "$libdir" "$libdir")
    if [ "$2" != "$expected" ]; then
        printf 'package: the add-in built through %s printed\n%s\ninstead of\n%s\n' "$1" "$2" "$expected"
        exit 1
    fi
    echo "package: the add-in built through $1 found its install tree in $libdir/"
}

cmake -S tests/package/addin -B "$work/cmake" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/cmake" >/dev/null
check "find_package(KELSHAREu CONFIG)" "$("$work/cmake/tiny_addin")"

pc_path=$(dirname "$(find "$prefix" -name KELSHAREu.pc)")
# shellcheck disable=SC2046 # the flags are words
g++ tests/package/addin/main.cpp -o "$work/tiny_addin_pc" \
    $(PKG_CONFIG_PATH="$pc_path" pkg-config --cflags --libs KELSHAREu)
check "pkg-config" "$("$work/tiny_addin_pc")"

# The installed host runs on the installed library and its tree, with no path built into it.
"$prefix/bin/orvhost" env | grep -qx "install folder *$libdir/" ||
    { echo "package: the installed orvhost did not find the install tree"; exit 1; }
echo "package: the installed orvhost found the install tree in $libdir/"
