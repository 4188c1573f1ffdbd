#!/usr/bin/env python3
"""Makes a question to the compiler of each row of docs/string-members.md.

usage: memberTable.py DOCUMENT SOURCE
"""

import pathlib
import re
import sys

document, source = map(pathlib.Path, sys.argv[1:])
rows = re.findall(r"^\| `(.+?)\((.*)\)` \|(.*)\|$", document.read_text(encoding="utf-8"), re.M)
if len(rows) < 100:
    sys.exit(f"only {len(rows)} rows were read from {document}")
questions, asked = [], []
for number, (name, types, cells) in enumerate(rows):
    has = [cell.strip() == "yes" for cell in cells.split("|")]
    ask = f"BUILDS({types})" if name == "S" else f"HAS({name}{', ' * bool(types)}{types})"
    questions.append(f"QUESTION(Row{number}, {ask})\n")
    said = ", ".join("true" if each else "false" for each in has)
    asked.append(f'    expectRow<Row{number}>("{name}({types})", {{{said}}});\n')
source.write_text("// Made by tests/strings/memberTable.py.\n\n"
                  '#include "tests/strings/memberTable.h"\n\n'
                  "namespace memberTable {\n\n" + "".join(questions) + "\n"
                  "TEST(MemberTable, saysWhatTheCompilerSays)\n{\n" + "".join(asked) + "}\n\n"
                  "} // namespace memberTable\n", encoding="utf-8")
