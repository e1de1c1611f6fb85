#!/usr/bin/env bash
# Makes the Debian packages, unpacks them below folders of their own, and runs their programs.
# usage: package_installs.sh CPACK BUILD SOURCES
set -euo pipefail
cpack=$1
build=$2
sources=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
fail() {
    echo "$1" >&2
    exit 1
}

"$cpack" --config "$build/CPackConfig.cmake" -G DEB -B "$folder/made" >"$folder/log" 2>&1 \
    || fail "no package: $(cat "$folder/log")"
package=$(find "$folder/made" -maxdepth 1 -name 'quandrel_*.deb')
[ -n "$package" ] || fail "no package file: $(cat "$folder/log")"
root=$folder/root
dpkg-deb -x "$package" "$root"
devPackage=$(find "$folder/made" -maxdepth 1 -name 'libquandrel-dev_*.deb')
[ -n "$devPackage" ] || fail "no package of the library: $(cat "$folder/log")"
dpkg-deb -x "$devPackage" "$folder/library"

packages=("$package" "$devPackage")
pythonPackage=$(find "$folder/made" -maxdepth 1 -name 'python3-quandrel_*.deb')
if [ -n "$pythonPackage" ]; then # where pybind11 is installed
    packages+=("$pythonPackage")
    dpkg-deb -x "$pythonPackage" "$folder/python"
fi

# What a desktop and a reader look for.
for path in bin/quandrel bin/quandrel-batch share/applications/quandrel.desktop \
    share/metainfo/org.quandrel.quandrel.metainfo.xml share/mime/packages/quandrel.xml \
    share/icons/hicolor/scalable/apps/quandrel.svg share/icons/hicolor/48x48/apps/quandrel.png \
    share/man/man1/quandrel.1.gz share/man/man1/quandrel-batch.1.gz \
    share/quandrel/Quandrel_Help/contents.html share/quandrel/Quandrel_Help/help.css \
    share/quandrel/examples/folded_bedding.txt share/doc/quandrel/copyright; do
    [ -s "$root/usr/$path" ] || fail "the package lacks $path"
done
for path in include/quandrel/quandrel.h lib/libquandrel.a lib/cmake/quandrel/quandrelConfig.cmake \
    lib/cmake/quandrel/quandrelConfigVersion.cmake share/doc/libquandrel-dev/interface.md; do
    [ -s "$folder/library/usr/$path" ] || fail "the package of the library lacks $path"
    [ ! -e "$root/usr/$path" ] || fail "the package of the programs holds $path"
done
depends=$(dpkg-deb -f "$package" Depends)
for library in libqt6widgets6 libqt6svg6 libqpdf29 qt6-image-formats-plugins; do
    [ "$(grep -o "$library" <<<"$depends" | wc -l)" -eq 1 ] \
        || fail "the package does not depend on $library once: $depends"
done

# The first cell of a notebook.
if [ -n "$pythonPackage" ]; then
    pythonDepends=$(dpkg-deb -f "$pythonPackage" Depends)
    for needed in 'python3 (>= 3.11)' python3-numpy libc6; do
        grep -qF "$needed" <<<"$pythonDepends" \
            || fail "the package for Python does not depend on $needed: $pythonDepends"
    done
    [ -s "$folder/python/usr/share/doc/python3-quandrel/notebooks/fold.ipynb" ] \
        || fail "the package for Python lacks its notebooks"
    (cd "$root/usr/share/quandrel/examples" \
        && PYTHONPATH=$folder/python/usr/lib/python3/dist-packages PYTHONDONTWRITEBYTECODE=1 \
            /usr/bin/python3 -c 'import importlib.metadata, quandrel
beds = quandrel.read("folded_bedding.txt", "auto")
assert len(beds) == 120 and importlib.metadata.version("quandrel")
assert quandrel.__file__.endswith("dist-packages/quandrel/__init__.py"), quandrel.__file__') \
        || fail "the package for Python does not work"
fi

# The tarball holds the sources below a folder with its version.
"$cpack" --config "$build/CPackSourceConfig.cmake" -B "$folder/sources" >"$folder/log" 2>&1 \
    || fail "no tarball: $(cat "$folder/log")"
tar -tzf "$folder"/sources/quandrel-*.tar.gz >"$folder/list"
grep -q '^quandrel-[0-9.]*/CMakeLists.txt$' "$folder/list" || fail "the tarball is not a source tree"
! grep -q '/build/\|/\.git/' "$folder/list" || fail "the tarball holds what was built"

# The axis of the model that the example was made from plunges 14 towards 052.
examples=$root/usr/share/quandrel/examples
QT_QPA_PLATFORM=offscreen "$root/usr/bin/quandrel-batch" "$examples/folded_bedding.txt" \
    -o "$folder/beds.png" --stats \
    --format 'primary=plane delimiter=tab columns=0,1,2,3,4,5,6,7,2,3 header=yes' >"$folder/stats"
grep -q "Calculated beta axis: 14-052" "$folder/stats" || fail "$(cat "$folder/stats")"
[ "$(head -c 4 "$folder/beds.png" | tail -c 3)" = PNG ] || fail "no picture"

# The window, from the file to the end, if there is a screen to run it on.
if command -v Xvfb >/dev/null && command -v xdotool >/dev/null \
    && command -v matchbox-window-manager >/dev/null; then
    "$sources/tests/smoke/window_smoke.sh" "$root/usr/bin/quandrel"
fi

if command -v lintian >/dev/null; then
    lintian --allow-root --fail-on error,warning --tag-display-limit 0 "${packages[@]}" \
        >"$folder/lintian" 2>&1 || fail "$(cat "$folder/lintian")"
    cat "$folder/lintian"
fi
