#!/usr/bin/env bash
# Installs the library into a folder, and builds and runs a program outside the tree with it.
# usage: library_installs.sh CMAKE BUILD SOURCES COMPILER
set -euo pipefail
cmake=$1
build=$2
sources=$3
compiler=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
    echo "$1" >&2
    exit 1
}

"$cmake" --install "$build" --component dev --prefix "$folder/stage" >"$folder/log" 2>&1 \
    || fail "not installed: $(cat "$folder/log")"
# All public headers, and nothing else.
diff <(cd "$sources/include" && find . -type f | sort) \
    <(cd "$folder/stage/include" && find . -type f | sort) || fail "other headers than the public ones"

"$cmake" -S "$sources/tests/packaging/outside" -B "$folder/build" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="-Wall -Wextra -Werror" -DCMAKE_PREFIX_PATH="$folder/stage" \
    >"$folder/log" 2>&1 || fail "not found: $(cat "$folder/log")"
"$cmake" --build "$folder/build" >"$folder/log" 2>&1 || fail "not built: $(cat "$folder/log")"
said=$("$folder/build/outside")
[ "$said" = "20/090 whole" ] || fail "the program said: $said"
