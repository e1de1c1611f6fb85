#!/usr/bin/env bash
# The manual pages are set without a warning, and state their names as the system's index requires.
# usage: manuals.sh FOLDER
set -euo pipefail
for page in "$1"/*.1; do
    warnings=$(MANWIDTH=80 man --warnings -E UTF-8 -l "$page" 2>&1 >/dev/null)
    if [ -n "$warnings" ]; then
        echo "$page: $warnings" >&2
        exit 1
    fi
    lexgrog "$page" | grep -q "$(basename "$page" .1) - " || {
        echo "$page has no name" >&2
        exit 1
    }
done
