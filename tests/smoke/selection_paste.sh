#!/usr/bin/env bash
# Runs the tests of the primary selection on an X server of their own, where nobody owns one: the
# off-screen pictures of other tests have no such selection.
# usage: selection_paste.sh TEST_PROGRAM
set -euo pipefail
program=$1
folder=$(mktemp -d)
server=
finish() {
    [ -z "$server" ] || kill "$server" 2>/dev/null || true
    rm -rf "$folder"
}
trap finish EXIT

# The server chooses a display that is free and says which.
exec 3<>"$folder/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset >/dev/null 2>&1 &
server=$!
for _ in $(seq 100); do
    [ -s "$folder/display" ] && break
    sleep 0.1
done
DISPLAY=:$(tr -d '[:space:]' <"$folder/display")
export DISPLAY XDG_RUNTIME_DIR=$folder LC_ALL=C.UTF-8 QUANDREL_TEST_PLATFORM=xcb
# The leak of a connection that a library keeps open is not a fault of the program.
echo "leak:libdbus-1" >"$folder/leaks"
export LSAN_OPTIONS=suppressions=$folder/leaks
"$program" --gtest_brief=1 --gtest_filter='PrimarySelection.*' >"$folder/out" 2>&1 || {
    cat "$folder/out" >&2
    exit 1
}
grep -q 'PASSED  \] [1-9]' "$folder/out" || {
    echo "no test was run: $(cat "$folder/out")" >&2
    exit 1
}
