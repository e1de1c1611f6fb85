#!/usr/bin/env bash
# Options that are answered on the terminal: the program prints and exits, without a window. Help and
# version need no screen.
# usage: options.sh PROGRAM
set -euo pipefail
program=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_CONFIG_HOME=$folder XDG_STATE_HOME=$folder XDG_RUNTIME_DIR=$folder LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY
fail() {
    echo "$1" >&2
    exit 1
}

# Runs the program with an option, for at most 20 seconds: its exit code, output and errors.
run() {
    code=0
    timeout 20 "$program" "$@" >"$folder/out" 2>"$folder/err" || code=$?
}

for option in --help -h; do
    run "$option"
    [ "$code" = 0 ] || fail "$option ended with $code: $(cat "$folder/err")"
    grep -q '^Usage: quandrel ' "$folder/out" || fail "$option printed $(cat "$folder/out")"
done
for option in --version -v; do
    run "$option"
    [ "$code" = 0 ] || fail "$option ended with $code: $(cat "$folder/err")"
    grep -q '^Quandrel, ver ' "$folder/out" || fail "$option printed $(cat "$folder/out")"
done
export QT_QPA_PLATFORM=offscreen
run --no-such-option
[ "$code" = 2 ] || fail "an unknown option ended with $code"
grep -q "'--no-such-option' is not an option" "$folder/err" || fail "no complaint: $(cat "$folder/err")"
[ ! -s "$folder/out" ] || fail "a complaint on standard output"
run -style fusion --version
[ "$code" = 0 ] || fail "an option of Qt beside --version ended with $code"
