#!/usr/bin/env python3
"""Seeds of the fuzz corpus: every SQL statement and filter text the library
writes, taken from the string literals of src/ and completed where the code
appends a key, a number or a quoted value."""
import hashlib
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
GUID = "{8A0B1C2D-0000-4000-8000-00000000000A}"


def literals():
    for path in sorted((ROOT / "src").rglob("*.cpp")) + sorted((ROOT / "src").rglob("*.h")):
        for match in LITERAL.finditer(path.read_text(encoding="utf-8")):
            yield match.group(1).replace('\\"', '"').replace("\\\\", "\\")


def complete(text):
    """The text as the code sends it, with what it appends at the end."""
    if text.endswith("=LCASE('"):
        return text + "Standard')"
    if text.endswith("='"):
        return text + "a'"
    if text.endswith("]=") or text.endswith("]<=") or text.endswith("]>") or text.endswith("]<"):
        return text + ("202403" if "Zeitraum" in text or "Datum" in text or "Nr" in text else GUID)
    return text


def write(folder, texts):
    folder.mkdir(parents=True, exist_ok=True)
    for text in sorted(set(texts)):
        data = text.encode("utf-8")
        (folder / ("seed-" + hashlib.sha1(data).hexdigest()[:12])).write_bytes(data)


def main():
    sql, filters = [], []
    for text in literals():
        if re.search(r"\b(SELECT|DELETE|INSERT|UPDATE)\b", text) and "[" in text:
            sql.append(complete(text))
        elif re.search(r"\][=<>]", text):
            body = re.sub(r"^'?\s*(AND|OR)\s+", "", text)
            criteria = complete(body) if body.startswith("[") else "[Sections]='a" + complete(text)
            filters.append("\x00" + criteria)  # the first byte picks the row the filter is tested on
    out = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "fuzz" / "corpus"
    write(out / "sql_translation", sql)
    write(out / "filter", filters)
    print(f"{len(set(sql))} statements, {len(set(filters))} filters")


if __name__ == "__main__":
    main()
