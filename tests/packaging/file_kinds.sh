#!/usr/bin/env bash
# A desktop that knows the program's kinds of file knows its files, by name and by content.
# usage: file_kinds.sh SOURCES
set -euo pipefail
sources=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir -p "$folder/mime/packages"
cp "$sources/packaging/quandrel.mime.xml" "$folder/mime/packages/quandrel.xml"
complaints=$(XDG_DATA_DIRS=$folder update-mime-database "$folder/mime" 2>&1)
if [ -n "$complaints" ]; then
    echo "$complaints" >&2
    exit 1
fi
for kind in quandrel-plot:qpx quandrel-workspace:qwo; do
    grep -q "application/x-${kind%:*}:\*.${kind#*:}" "$folder/mime/globs"
    grep -q "application/x-${kind%:*}" "$sources/packaging/quandrel.desktop"
done
# The first bytes of a kept file are those of the description.
first=$(find "$sources/tests/data/persistence" -name '*.qpx' | head -n 1)
[ "$(head -c 3 "$first")" = bin ]
for size in 16 22 24 32 48 64 128 256; do
    picture=$sources/packaging/icons/quandrel-$size.png
    # Width and height are big-endian at 16 in a PNG.
    read -r a b c d e f g h < <(od -An -tu1 -j16 -N8 "$picture" | tr -s ' ')
    [ $(((a << 24) + (b << 16) + (c << 8) + d)) = "$size" ]
    [ $(((e << 24) + (f << 16) + (g << 8) + h)) = "$size" ]
done
