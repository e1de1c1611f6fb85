# SPDX-License-Identifier: MIT
"""The program's tables of expected results, through the package."""

import numpy as np
import text_tables

import quandrel

TURN = 360


def words(values):
    return " ".join(repr(float(value) + 0.0) for value in values)


def one(array):
    return "none" if np.isnan(array).any() else words(array[0])


def turned(value, like):
    """Azimuths of the package are below 360; the tables keep 360 beside 0."""
    wanted = text_tables.number_of(like)
    return value + TURN if wanted == TURN and value == 0 else value


def with_azimuth(line, row):
    return words([line[0], turned(line[1], row.wanted.split()[-1])])


def azimuth(row):
    if text_tables.number_of(row.input) is not None:
        return "none"  # the table is of texts alone
    try:
        return words([turned(quandrel.azimuth_of_text(row.input), row.wanted)])
    except ValueError:
        return "none"


def compass(row):
    found = azimuth(row)
    return found if found == "none" else str(int(float(found)))


def by_right_hand(row):
    if row.input.isalpha():
        return "none"  # the package takes compass names too
    try:
        strike = quandrel.azimuth_of_text(row.input)
    except ValueError:
        return "none"
    return words([turned(quandrel.dip_direction_of_strike(strike), row.wanted)])


def by_sense(row):
    strike, sense = row.words()
    try:
        direction = quandrel.dip_direction_of_strike(quandrel.azimuth_of_text(strike), sense)
    except ValueError:
        return row.wanted if row.wanted in ("none", "repeat") else "refused"
    return f"{turned(direction, row.wanted):g}"


def written(row):
    dip, direction = row.numbers()
    quadrant = row.options.get("notation") == "quadrant"
    if row.options.get("kind") == "plane":
        return quandrel.plane_text(dip, direction, int(row.options.get("convention", 1)), quadrant)
    return quandrel.line_text(dip, direction, row.options.get("line") == "tp", quadrant)


def line_of_trend(row):
    dip, direction, trend = row.numbers()
    return one(quandrel.lines_at_trend([[dip, direction]], [trend]))


def line_of_hade(row):
    dip, direction, pitch = row.numbers()
    return one(quandrel.lines_at_pitch([[dip, direction]], [pitch]))


def pole(row):
    return with_azimuth(quandrel.poles_of_planes([row.numbers()])[0], row)


def intersection(row):
    numbers = row.numbers()
    return one(quandrel.intersections([numbers[:2]], [numbers[2:]]))


def plane_through(row):
    numbers = row.numbers()
    return one(quandrel.planes_through([numbers[:2]], [numbers[2:]]))


NOTATION = {
    "azimuth-of-quadrant": azimuth,
    "degrees-of-compass-name": compass,
    "dip-direction-by-right-hand": by_right_hand,
    "dip-direction-by-sense": by_sense,
    "written": written,
    "line-of-trend": line_of_trend,
    "line-of-hade": line_of_hade,
    "pole": pole,
    "intersection": intersection,
    "plane-through": plane_through,
}
# What only writes or wraps a text of the window, or has its argument by the name of a compass point.
NOT_IN_THE_PACKAGE = {"wrap", "quadrant-of-azimuth", "pad", "strike-and-sense", "line-of-pitch"}


def test_notation():
    assert text_tables.operations_of("notation.txt") == set(NOTATION) | NOT_IN_THE_PACKAGE
    bad, tried = text_tables.complaints("notation.txt", NOTATION)
    assert not bad, "\n".join(bad)
    assert tried >= 80


def net_of(row):
    return f"equal {row.options['net']}"


def projected(row):
    return words(1000 * quandrel.project([row.numbers()], net_of(row))[0])


def unprojected(row):
    return one(quandrel.lines_at_points(np.divide([row.numbers()], 1000), net_of(row)))


def there_and_back(row):
    return one(quandrel.lines_at_points(quandrel.project([row.numbers()], net_of(row)), net_of(row)))


PROJECTION = {"project": projected, "unproject": unprojected, "there-and-back": there_and_back}


def test_projection():
    assert text_tables.operations_of("projection.txt") == set(PROJECTION) | {"arc-of-plane"}
    bad, tried = text_tables.complaints("projection.txt", PROJECTION)
    assert not bad, "\n".join(bad)
    assert tried >= 40


def fabric(row, axes):
    lines, counts = [], []
    for word in row.words():
        line, _, times = word.partition("x")
        lines.append([float(part) for part in line.split("/")])
        counts.append(float(times or 1))
    return quandrel.fabric(lines, counts, axes)


def optional(value):
    return "none" if value is None else words(np.atleast_1d(value))


def axis(row):
    number = int(row.options["number"]) - 1
    found = fabric(row, True)
    values = found.eigenvalues
    alike = any(abs(values[number] - values[other]) < 1e-6 for other in range(3) if other != number)
    return "none" if alike else words(found.axes[number])


FABRIC = {
    "eigenvalues": lambda row: words(fabric(row, True).eigenvalues),
    "axis": axis,
    "shape": lambda row: optional(fabric(row, True).gamma),
    "strength": lambda row: optional(fabric(row, True).zeta),
    "mean-of-axes": lambda row: optional(fabric(row, True).mean_of_axes),
    "mean-length-of-axes": lambda row: words([fabric(row, True).resultant_length_of_axes]),
    "mean-of-polar-lines": lambda row: optional(fabric(row, False).mean),
    "fisher-kappa": lambda row: optional(fabric(row, False).kappa),
}


def test_fabric_statistics():
    assert text_tables.operations_of("fabric_statistics.txt") == set(FABRIC) | {"resultant-of-polar-lines"}
    bad, tried = text_tables.complaints("fabric_statistics.txt", FABRIC)
    assert not bad, "\n".join(bad)
    assert tried >= 40


DELIMITERS = {"tab": "\t", "space": " ", "comma": ",", "semicolon": ";", "any": ""}
REFUSED = {
    "blank",
    "comment",
    "parameter-line",
    "not-data",
    "too-few-items",
    "not-quadrant",
    "not-orientation",
    "missing",
}


def format_of(options):
    convention = int(options.get("conventions", 1))
    attached = options.get("appended", "").split(",")
    return quandrel.Format(
        primary={"plane": "planes", "line": "lines"}.get(options.get("primary", "plane"), "directions"),
        secondary={"hade": "angle"}.get(options.get("secondary", "none"), options.get("secondary", "none")),
        convention=abs(convention) % 10,
        quadrant=convention < 0,
        delimiter=DELIMITERS[options.get("delimiter", "space")],
        columns=[int(column) for column in options.get("columns", "0,1").split(",")],
        line="line" in attached,
        number="numeric" in attached,
        text="text" in attached,
        comma=options.get("decimalcomma") == "yes",
        upper_ends=options.get("upward") == "vector",
    )


def orientation(kind, pair, like):
    if np.isnan(pair).any():
        return "none"
    return f"{kind} " + words([pair[0], turned(pair[1], like.split()[-1])])


def parsed(row):
    table = quandrel.read(row.input.replace("<tab>", "\t") + "\n", format_of(row.options))
    if len(table) == 0:
        return row.wanted if row.wanted in REFUSED else "refused"
    kind, pairs = ("plane", table.planes) if table.planes is not None else ("line", table.lines)
    first, _, second = row.wanted.partition(" and ")
    if row.options.get("primary") == "directions":
        text = "direction " + words([turned(pairs[0][1], first.split()[-1])])
    else:
        text = orientation(kind, pairs[0], " ".join(first.split()[:3]))
    if second:
        other = ("plane", table.second_planes) if table.second_planes is not None else ("line", table.second_lines)
        text += " and " + orientation(other[0], other[1][0], second)
    return text + appended(row, table)


def number_words(row, number):
    said = row.wanted.split("number ")[1].split()[0]
    if said == "delimiter":  # the package reads it all the same
        return "delimiter" if number == 0.83 else "wrong"
    return said if np.isnan(number) and text_tables.number_of(said) is None else words([number])


def appended(row, table):
    text = ""
    if table.appended_lines is not None:
        line = table.appended_lines[0]
        text += " axis invalid" if np.isnan(line).any() else " axis " + words(line)
    if table.number is not None:
        text += " number " + number_words(row, table.number[0])
    return text + (f" text {table.text[0]}".rstrip() if table.text else "")


def test_line_parser():
    bad, tried = text_tables.complaints("line_parser.txt", {"line": parsed})
    assert not bad, "\n".join(bad)
    assert tried >= 70
