# SPDX-License-Identifier: MIT
"""The stubs name what the module has, and every function says what it does."""

import ast
import inspect
import pathlib

import quandrel
from quandrel import _engine


def stubs():
    path = pathlib.Path(quandrel.__file__).with_name("_engine.pyi")
    return ast.parse(path.read_text())


def names_of(body):
    named = {node.name for node in body if isinstance(node, (ast.FunctionDef, ast.ClassDef))}
    return named | {node.target.id for node in body if isinstance(node, ast.AnnAssign)}


def public(thing):
    return {name for name in vars(thing) if not name.startswith("_")}


def test_stubs_and_module_have_the_same_names():
    module = stubs()
    assert names_of(module.body) - {"Floats", "Pair", "__version__"} == public(_engine)
    for one in module.body:
        if isinstance(one, ast.ClassDef):
            held = {name for name in names_of(one.body) if not name.startswith("_")}
            assert held == public(getattr(_engine, one.name)), one.name


def test_everything_public_has_a_docstring():
    for name in quandrel.__all__:
        thing = getattr(quandrel, name)
        assert inspect.getdoc(thing), name
        if not inspect.isclass(thing):
            assert "Returns" in thing.__doc__ or "array" in thing.__doc__ or len(thing.__doc__) > 80, name
