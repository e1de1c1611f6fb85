#!/usr/bin/env bash
# Runs the program as a user does, on a screen of its own with a small window manager: opens a file
# of planes, accepts the format dialog, and exits.
# usage: window_smoke.sh PROGRAM
set -euo pipefail
program=$1
folder=$(mktemp -d)
example=$folder/beds.txt
printf '30\t120\n45\t200\n80\t310\n' >"$example"
jobs_to_end=()
finish() {
    for job in "${jobs_to_end[@]}"; do
        kill "$job" 2>/dev/null || true
    done
    rm -rf "$folder"
}
trap finish EXIT
fail() {
    echo "$1" >&2
    exit 1
}

export XDG_CONFIG_HOME=$folder XDG_STATE_HOME=$folder XDG_RUNTIME_DIR=$folder LC_ALL=C.UTF-8 QT_QPA_PLATFORM=xcb
# The leak of a connection that a library keeps open is not a fault of the program.
echo "leak:libdbus-1" >"$folder/leaks"
export LSAN_OPTIONS=suppressions=$folder/leaks

# The server chooses a display that is free and says which. It keeps its state between clients:
# a reset as the first one leaves would end the window manager that just begins.
exec 3<>"$folder/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp -noreset >/dev/null 2>&1 &
jobs_to_end+=($!)
for _ in $(seq 100); do
    [ -s "$folder/display" ] && break
    sleep 0.1
done
DISPLAY=:$(tr -d '[:space:]' <"$folder/display")
export DISPLAY
matchbox-window-manager -use_titlebar no >/dev/null 2>&1 &
jobs_to_end+=($!)
# A window that is there before the window manager never gets the keyboard.
for _ in $(seq 100); do
    xdotool get_num_desktops >/dev/null 2>&1 && break
    sleep 0.1
done

"$program" "$example" >"$folder/out" 2>&1 &
running=$!
jobs_to_end+=("$running")

# Waits for a window of this name and prints its number.
window() {
    local found
    for _ in $(seq 200); do
        found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1 || true)
        if [ -n "$found" ]; then
            echo "$found"
            return
        fi
        kill -0 "$running" 2>/dev/null || fail "the program ended: $(cat "$folder/out")"
        sleep 0.1
    done
    fail "no window $1"
}

# Presses a key until a condition holds: a key may arrive before the window is ready.
press_until() {
    local key=$1
    shift
    for _ in $(seq 15); do
        xdotool key "$key"
        # On a busy machine the answer takes a while, and a second key would go to what comes next.
        for _ in $(seq 20); do
            "$@" && return
            sleep 0.1
        done
    done
    fail "$key had no effect"
}
dialog_is_gone() { ! xdotool search --onlyvisible --name "$dialog" >/dev/null 2>&1; }
program_is_gone() { ! kill -0 "$running" 2>/dev/null; }

dialog="File structure and data conventions"
window "$dialog" >/dev/null
press_until Return dialog_is_gone
window "Quandrel, ver 9.5.1" >/dev/null
press_until ctrl+q program_is_gone
wait "$running" || fail "the program failed: $(cat "$folder/out")"
settings="$folder/quandrel/Quandrel 9.ini"
[ -f "$settings" ] || fail "no settings were saved"
grep -q "$(basename "$example")" "$settings" || fail "the file is not among the recent files"
