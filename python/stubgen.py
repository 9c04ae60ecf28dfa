"""Writes the type stubs of the module ormelix (ormelix.pyi) from the built module.

    PYTHONPATH=DIR_OF_MODULE python3 stubgen.py OUTPUT.pyi

Every class, method, property, enumeration and function of the module is written
with the types its signatures name (pybind11 puts them in the docstrings), so that
an editor completes and checks the names. The build runs this after each link of
the module; tests/python checks the stubs against the module both ways.
"""

import enum
import re
import sys
import types

import ormelix

HEADER = '''"""Type stubs of ormelix, written from the module by python/stubgen.py."""
# fmt: off
from enum import IntEnum, IntFlag
from typing import Any, Callable, Generic, Iterator, List, Optional, Tuple, TypeVar, overload

_T = TypeVar("_T")

class IndexedArray(Generic[_T]):
    """An indexed property of one object (a month array, a grid of lines, a band):
    x[i] or x(i) reads, x[i] = v writes; grids take x[a, b, month]. Months run from 1 to 12."""
    Name: str
    def __getitem__(self, index: int | Tuple[int, ...]) -> _T: ...
    def __setitem__(self, index: int | Tuple[int, ...], value: _T) -> None: ...
    def __call__(self, *indices: int) -> _T: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[_T]: ...
    def keys(self) -> List[int]: ...
    def values(self) -> List[_T]: ...
    def items(self) -> List[Tuple[int, _T]]: ...
'''

ERRORS = {
    "Error": ("Exception", []),
    "StoreError": ("Error", ["Subject: str", "BackendMessage: str", "Code: int"]),
    "KeyNotFound": ("Error, LookupError", ["Key: str"]),
    "ConversionError": ("Error, ValueError", []),
}

MODULE_TYPES = {"handle": "Any", "object": "Any", "args": "Any", "kwargs": "Any", "Iterator": "Iterator[Any]"}


def clean_type(text):
    """A type as the stubs write it: without the module's prefix, Any for raw objects."""
    text = re.sub(r"\bormelix\.", "", text.strip())
    return MODULE_TYPES.get(text, text)


def split_top(text, sep=","):
    """Splits at separators outside brackets and <...> (the repr of a default)."""
    parts, depth, current = [], 0, ""
    for ch in text:
        if ch in "([<{":
            depth += 1
        elif ch in ")]>}":
            depth -= 1
        if ch == sep and depth == 0:
            parts.append(current)
            current = ""
        else:
            current += ch
    if current.strip():
        parts.append(current)
    return parts


SIGNATURE = re.compile(r"^(\w*)\((.*)\) -> (.+)$")


def signatures(func):
    """The (parameters, return type) of each overload, from pybind11's docstring."""
    doc = func.__doc__ or ""
    lines = [line.strip() for line in doc.splitlines()]
    overloads = [re.sub(r"^\d+\. ", "", line) for line in lines if re.match(r"^\d+\. \w*\(", line)]
    found = []
    for line in overloads or lines[:1]:
        match = SIGNATURE.match(line)
        if match:
            found.append((match.group(2), clean_type(match.group(3))))
    return found


def description(func):
    """The docstring's text beyond its signature lines."""
    doc = func.__doc__ or ""
    lines = [line for line in doc.splitlines()
             if not SIGNATURE.match(re.sub(r"^\d+\. ", "", line.strip()))
             and line.strip() not in ("Overloaded function.",)]
    return " ".join(line.strip() for line in lines if line.strip())


def parameters(text, method):
    params = []
    for index, part in enumerate(split_top(text)):
        part = part.strip()
        if part.startswith("*"):
            params.append(part.split(":")[0] + ": Any")
            continue
        name, _, rest = part.partition(":")
        annotation, has_default, _ = rest.partition("=")
        if method and index == 0 and name == "self":
            params.append("self")
            continue
        params.append(f"{name}: {clean_type(annotation)}" + (" = ..." if has_default else ""))
    return ", ".join(params)


def write_function(out, name, func, indent, method, static=False, iter_type=None):
    found = signatures(func)
    if not found:
        out.append(f"{indent}def {name}(*args: Any, **kwargs: Any) -> Any: ...")
        return
    text = description(func)
    for params, result in found:
        if len(found) > 1:
            out.append(f"{indent}@overload")
        if static:
            out.append(f"{indent}@staticmethod")
        if name == "__iter__" and iter_type:
            result = f"Iterator[{iter_type}]"
        line = f"{indent}def {name}({parameters(params, method and not static)}) -> {result}:"
        if text and len(found) == 1:
            out.append(line)
            out.append(f'{indent}    """{text}"""')
            out.append(f"{indent}    ...")
        else:
            out.append(line + " ...")


def property_type(prop):
    doc = prop.__doc__ or ""
    if doc.startswith("IndexedArray["):
        return doc.split()[0]
    found = signatures(prop.fget) if prop.fget else []
    return found[0][1] if found else "Any"


def write_class(out, name, cls, indent=""):
    bases = ""
    out.append(f"{indent}class {name}{bases}:")
    inner = indent + "    "
    doc = (cls.__doc__ or "").strip()
    if doc:
        out.append(f'{inner}"""{doc}"""')
    members = cls.__dict__
    item = members.get("Item")
    iter_type = signatures(item)[0][1] if item is not None and signatures(item) else None
    written = False
    for member_name, member in sorted(members.items()):
        if member_name.startswith("_") and member_name not in ("__init__", "__len__", "__iter__", "__contains__",
                                                               "__getitem__"):
            continue
        if isinstance(member, property):
            out.append(f"{inner}{member_name}: {property_type(member)}")
        elif isinstance(member, staticmethod):
            write_function(out, member_name, member.__func__, inner, True, static=True)
        elif isinstance(member, type):
            write_class(out, member_name, member, inner)
        elif member_name == "__init__" and not signatures(member):
            continue  # no constructor: the library hands these out
        elif callable(member):
            write_function(out, member_name, member, inner, True, iter_type=iter_type)
        else:
            continue
        written = True
    if not written and not doc:
        out.append(f"{inner}...")


def write_enum(out, name, cls):
    base = "IntFlag" if issubclass(cls, enum.IntFlag) else "IntEnum"
    out.append(f"class {name}({base}):")
    for member_name, member in cls.__members__.items():  # aliases too
        out.append(f"    {member_name} = {member.value}")


def write_submodule(out, name, module):
    out.append(f"class _{name}:")
    doc = (module.__doc__ or "").strip()
    if doc:
        out.append(f'    """{doc}"""')
    for function_name, function in sorted(vars(module).items()):
        if not function_name.startswith("_") and callable(function):
            write_function(out, function_name, function, "    ", True, static=True)
    out.append(f"{name}: _{name}")


def main(output):
    out = [HEADER, "__version__: str"]
    enums, aliases = [], []
    for name, value in sorted(vars(ormelix).items()):
        if name.startswith("_") or name == "IndexedArray":
            continue
        if isinstance(value, type) and issubclass(value, enum.Enum):
            enums.append((name, value))
        elif isinstance(value, enum.Enum):
            aliases.append(f"{name}: {type(value).__name__}")
    for name, value in enums:
        write_enum(out, name, value)
    out.extend(aliases)
    for name, (bases, fields) in ERRORS.items():
        out.append(f"class {name}({bases}):")
        out.extend(f"    {field}" for field in fields or ["..."])
    for name, value in sorted(vars(ormelix).items()):
        if name.startswith("_") or name in ERRORS or name == "IndexedArray":
            continue
        if isinstance(value, types.ModuleType):
            write_submodule(out, name, value)
        elif isinstance(value, type) and not issubclass(value, enum.Enum):
            write_class(out, name, value)
        elif callable(value) and not isinstance(value, type):
            write_function(out, name, value, "", False)
    text = "\n".join(out) + "\n"
    compile(text, output, "exec")  # the stubs must at least parse
    with open(output, "w", encoding="utf-8") as stream:
        stream.write(text)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit("usage: stubgen.py OUTPUT.pyi")
    main(sys.argv[1])
