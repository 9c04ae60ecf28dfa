"""Compares the objects of the module with what ormelix show --json prints of them.

The JSON views key every value by its property name as the library's classes
have it, nesting a member object under its name; the module has the same names.
So one walk serves every view: each key is looked up on the object (a method
without arguments is called; a monthly property is read at the month given) and
its value compared, recursing into objects and lists.
"""

import math

import ormelix


def _number(value):
    return isinstance(value, (int, float)) and not isinstance(value, bool)


def same(want, got):
    """Whether a JSON value stands for the Python value."""
    if want is None:
        return got is None or got == "" or got == 0
    if isinstance(want, bool):
        return isinstance(got, (bool, int)) and bool(got) == want
    if isinstance(want, str) and _number(got):  # a date, printed as YYYY-MM-DD ("" for none)
        date = ormelix.date_from_days(got)
        return want == ("" if date is None else date.isoformat())
    if _number(want) and _number(got):
        return math.isclose(want, got, rel_tol=1e-9, abs_tol=1e-6)
    return want == got


def value_of(obj, name, month=None):
    """The value of a property of obj: called if a method (with the month, or the
    period, where it needs one), read at the month if indexed."""
    value = getattr(obj, name)
    if isinstance(value, ormelix.IndexedArray):
        return value[month] if month is not None else value
    if callable(value) and not isinstance(value, type):
        try:
            return value()
        except TypeError:
            if month is None:
                raise
            return value(month)
    return value


def compare(obj, want, month=None, skip=(), path=""):
    """The differences between obj and its JSON view, as "path: want != got" lines."""
    differences = []
    for key, expected in want.items():
        if key in skip:
            continue
        where = path + key
        if key in ("Item", "Col") and isinstance(expected, list):  # the items of a collection
            differences += compare_items(obj, expected, month, skip, where)
            continue
        try:
            got = value_of(obj, key, month)
        except AttributeError:
            differences.append(f"{where}: no such property")
            continue
        if isinstance(expected, dict):
            differences += compare(got, expected, month, skip, where + ".")
        elif isinstance(expected, list):
            differences += compare_items(got, expected, month, skip, where)
        elif not same(expected, got):
            differences.append(f"{where}: {expected!r} != {got!r}")
    return differences


def compare_items(collection, expected, month=None, skip=(), where=""):
    items = list(collection)
    if len(items) != len(expected):
        return [f"{where}: {len(expected)} items != {len(items)}"]
    differences = []
    for index, (item, entry) in enumerate(zip(items, expected)):
        differences += compare(item, entry, month, skip, f"{where}[{index}].")
    return differences
