#!/usr/bin/env bash
# Installs the package for Python by pip into a folder of its own, with a module that is built, and
# imports it from there.
# usage: python_install.sh PYTHON MODULE SOURCES
set -euo pipefail
python=$1
module=$2
sources=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# setuptools leaves folders beside the sources: they are those of a copy.
mkdir "$folder/sources"
cp -r "$sources"/{setup.py,pyproject.toml,CMakeLists.txt,LICENSE,docs,python} "$folder/sources/"
cd "$folder"
QUANDREL_PYTHON_MODULE=$module "$python" -m pip install --quiet --no-build-isolation --no-index --no-deps \
    --root-user-action=ignore --target "$folder/installed" "$folder/sources" >"$folder/log" 2>&1 \
    || { cat "$folder/log" >&2 && exit 1; }
export PYTHONPATH=$folder/installed PYTHONDONTWRITEBYTECODE=1
"$python" - "$folder/installed" <<'CODE'
import importlib.metadata
import pathlib
import sys

import quandrel
import quandrel.dask
import quandrel.figure

folder = pathlib.Path(sys.argv[1])
assert pathlib.Path(quandrel.__file__).is_relative_to(folder)
for name in ("_engine.pyi", "py.typed", "_matplotlib.py", "summary.py", "workspace.py"):
    assert (folder / "quandrel" / name).is_file(), name
assert importlib.metadata.version("quandrel").count(".") == 2
assert list(quandrel.poles_of_planes([[30, 120]])[0]) == [60, 300]
assert quandrel.Figure().poles([[30, 120]]).svg().startswith("<svg")
CODE
