#!/usr/bin/env python3
"""Writes the pages of the reference that come from neither headers nor documents: the manual pages
and the examples.

usage: referencePages.py FOLDER
"""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[1]


def manualPage(file, pages):
    """One manual page as mandoc sets it, under headings that fit a page of the reference."""
    html = subprocess.run(["mandoc", "-T", "html", "-O", "fragment", file], check=True,
                          capture_output=True, encoding="utf-8").stdout

    def linked(reference):
        page = reference[1].replace("(", "_").rstrip(")")
        return f'<a href="{page}.html">{reference[1]}</a>' if page in pages else reference[1]

    html = re.sub(r'<a class="Xr">(.*?)</a>', linked, html)
    html = re.sub(r"(</?)h([12])\b", lambda tag: f"{tag[1]}h{int(tag[2]) + 1}", html)
    name, section = file.stem, file.suffix[1:]
    return (f"# {name}({section}) {{#{name}_{section}}}\n\n"
            f"@htmlonly\n{html}@endhtmlonly\n")


def example(file):
    """The page of an example: its own first words, and the whole of it."""
    words = re.match(r"(?:///.*\n)+", file.read_text(encoding="utf-8"))[0]
    words = re.sub(r"^/// ?", "", words, flags=re.M)
    return f"/** @example {file.name}\n{words}*/\n"


folder = pathlib.Path(sys.argv[1])
folder.mkdir(parents=True, exist_ok=True)
for old in folder.iterdir():
    old.unlink()
manual = sorted((ROOT / "docs/man").iterdir())
names = [f"{each.stem}_{each.suffix[1:]}" for each in manual]
for each, name in zip(manual, names):
    (folder / f"{name}.md").write_text(manualPage(each, names), encoding="utf-8")
listed = "".join(f"- @subpage {name}\n" for name in names)
(folder / "manual.md").write_text(f"# Manual pages {{#manual}}\n\n{listed}", encoding="utf-8")
examples = sorted((ROOT / "examples").glob("*.cpp"))
(folder / "examples.dox").write_text("\n".join(map(example, examples)), encoding="utf-8")
