#!/usr/bin/env python3
"""Turns every C++ snippet of a Markdown guide into a test: each ```cpp block becomes the body of a
test of the GuideSnippet fixture, named after the line it starts on, with #line directives so that a
compiler error points into the guide. A block fenced as ```cpp compile-only is compiled but not run.

usage: snippets.py GUIDE.md OUTPUT.inc"""

import re
import sys


def main():
    guide, output = sys.argv[1], sys.argv[2]
    with open(guide, encoding="utf-8") as stream:
        lines = stream.read().split("\n")
    tests = []
    block = None
    for number, line in enumerate(lines, start=1):
        if block is None:
            match = re.fullmatch(r"```cpp( compile-only)?\s*", line)
            if match:
                block = {"line": number + 1, "run": not match.group(1), "code": []}
        elif line.startswith("```"):
            tests.append(block)
            block = None
        else:
            block["code"].append(line)
    if block is not None:
        sys.exit(f"{guide}: the snippet at line {block['line']} is not closed")
    with open(output, "w", encoding="utf-8") as stream:
        stream.write("// Made from the guide by snippets.py: do not edit.\n")
        stream.write(f"constexpr int kGuideSnippets = {len(tests)};\n")
        for test in tests:
            name = f"Line{test['line']}"
            if test["run"]:
                stream.write(f"TEST_F(GuideSnippet, {name}) {{\n")
            else:
                stream.write(f"[[maybe_unused]] static void {name}() {{\n")
            stream.write(f'#line {test["line"]} "{guide}"\n')
            stream.write("\n".join(test["code"]) + "\n}\n")


if __name__ == "__main__":
    main()
