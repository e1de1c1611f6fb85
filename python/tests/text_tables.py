# SPDX-License-Identifier: MIT
"""The tables of expected results that the program is tested with (tests/tables/README.md)."""

import math
import pathlib
import re

FOLDER = pathlib.Path(__file__).parents[2] / "tests" / "tables"


class Row:
    """A line of a table: its operation with options, its input and its result."""

    def __init__(self, place, operation, options, given, wanted):
        self.place = place
        self.operation = operation
        self.options = options
        self.input = given
        self.wanted = wanted

    def words(self):
        return self.input.split()

    def numbers(self):
        return [float(word) for word in self.words()]


def rows_of(name):
    operation, options = "", {}
    for number, line in enumerate((FOLDER / name).read_text(encoding="utf-8").splitlines(), 1):
        line = re.sub(r"(^|\s)#.*", "", line).strip()
        if line.startswith("["):
            operation, *given = line.strip("[]").split()
            options = dict(option.split("=", 1) for option in given)
        elif line:
            before, _, after = line.rpartition("|")
            yield Row(f"{name}:{number}", operation, options, before.strip(), after.strip())


def number_of(word):
    try:
        return float(word)
    except ValueError:
        return None


def are_equal(found, wanted, tolerance):
    """Words are compared as they are, numbers within a tolerance if there is one."""
    if tolerance is None:
        return found == wanted
    if len(found.split()) != len(wanted.split()):
        return False
    for one, other in zip(found.split(), wanted.split()):
        first, second = number_of(one), number_of(other)
        if first is None or second is None:
            if one != other:
                return False
        elif not math.isclose(first, second, abs_tol=tolerance, rel_tol=0):
            return False
    return True


def complaints(name, operations):
    """What does not hold, and the number of lines that were tried."""
    bad, tried = [], 0
    for row in rows_of(name):
        if row.operation not in operations:
            continue
        tried += 1
        tolerance = row.options.get("tolerance")
        found = operations[row.operation](row)
        if not are_equal(found, row.wanted, float(tolerance) if tolerance else None):
            bad.append(f"{row.place}: {row.operation} of '{row.input}': expected '{row.wanted}', got '{found}'")
    return bad, tried


def operations_of(name):
    return {row.operation for row in rows_of(name)}
