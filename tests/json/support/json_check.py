#!/usr/bin/env python3
"""Checks what the library writes with Python's standard JSON parser.

    json_check.py FILE...
        Every file must be UTF-8 that json.load accepts (strict: no raw control characters in
        strings, no comments, nothing after the value).
    json_check.py --strings FILE EXPECTED
        FILE holds {"r": {"s": [...]}}; EXPECTED has one line per string, its code points in
        hexadecimal separated by blanks. The strings must decode to exactly these.

Prints each failure and exits with status 1 if there is any.
"""
import json
import sys


def load(path):
    with open(path, encoding="utf-8", errors="strict") as f:
        return json.load(f)


def check_files(paths):
    failures = []
    for path in paths:
        try:
            load(path)
        except (ValueError, UnicodeDecodeError) as e:
            failures.append(f"{path}: {e}")
    return failures


def check_strings(path, expected_path):
    try:
        strings = load(path)["r"]["s"]
    except (ValueError, UnicodeDecodeError, KeyError, TypeError) as e:
        return [f"{path}: {e}"]
    with open(expected_path, encoding="ascii") as f:
        expected = ["".join(chr(int(c, 16)) for c in line.split()) for line in f.read().split("\n")[:-1]]
    if len(strings) != len(expected):
        return [f"{len(strings)} strings decoded, {len(expected)} expected"]
    return [f"string {i}: decoded {ascii(got)}, expected {ascii(want)}"
            for i, (got, want) in enumerate(zip(strings, expected)) if got != want]


def main(args):
    failures = check_strings(args[1], args[2]) if args[:1] == ["--strings"] else check_files(args)
    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
