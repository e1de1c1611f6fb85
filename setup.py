# SPDX-License-Identifier: MIT
"""Builds the package quandrel: its module by CMake, without Qt and without tests.

QUANDREL_PYTHON_MODULE names a module (_engine...so) that is built already and is taken instead."""

import os
import pathlib
import re
import shutil
import subprocess

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).parent.resolve()
OPTIONS = [
    "-DCMAKE_BUILD_TYPE=Release",
    "-DQUANDREL_QT=OFF",
    "-DQUANDREL_BENCH=OFF",
    "-DBUILD_TESTING=OFF",
]


def version():
    """That of the program."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(Quandrel VERSION ([0-9.]+)", text).group(1)


class BuildByCMake(build_ext):
    """Puts the module where setuptools looks for it."""

    def build_extension(self, ext):
        target = pathlib.Path(self.get_ext_fullpath(ext.name)).resolve()
        target.parent.mkdir(parents=True, exist_ok=True)
        given = os.environ.get("QUANDREL_PYTHON_MODULE")
        shutil.copy(pathlib.Path(given) if given else self.built(), target)

    def built(self):
        folder = pathlib.Path(self.build_temp).resolve() / "cmake"
        subprocess.run(["cmake", "-S", str(ROOT), "-B", str(folder), *OPTIONS], check=True)
        subprocess.run(
            ["cmake", "--build", str(folder), "--target", "quandrel_python", "--parallel"], check=True
        )
        return next((folder / "python" / "quandrel").glob("_engine*.so"))


setup(
    version=version(),
    packages=["quandrel"],
    package_dir={"quandrel": "python/quandrel"},
    package_data={"quandrel": ["*.pyi", "py.typed"]},
    ext_modules=[Extension("quandrel._engine", sources=[])],
    cmdclass={"build_ext": BuildByCMake},
)
