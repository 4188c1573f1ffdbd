"""Doxygen reads each file through this.

usage: forDoxygen.py [--as-written] FILE

- A header of strings shows each class whole, with the members of its bases, by task: docs/stringPages.py.
  With --as-written it stays as it is. No other line is added or taken away, so that what Doxygen
  reports then has the line of the file.
- Headings of a page get the anchors that its own links name, as the forges give them.
- A link that leads to another page keeps the page alone. One that leads out of the reference
  becomes plain text, and so does one to a folder's README: each would be taken for the main page.
- A comment that opens with the result has the first sentence of that as its summary, too, else the
  member would stand without words in the list of its class.
"""

import re
import sys

import stringPages


def withAnchors(page):
    def anchored(heading):
        anchor = re.sub(r"[^\w -]", "", heading[1].lower()).replace(" ", "-")
        return f"{heading[0]} {{#{anchor}}}" if f"(#{anchor})" in page else heading[0]

    return re.sub(r"^##+ (.+)$", anchored, page, flags=re.M)


def withLinksInside(page):
    def inside(link):
        text, target = link[1], link[2]
        if target.startswith(("#", "http")):
            return link[0]
        if target == "docs/man":
            return f'@ref manual "{text}"'
        target = target.partition("#")[0]
        isPage = target.endswith(".md") and not target.endswith("/README.md")
        return f"[{text}]({target})" if isPage else text

    return re.sub(r"(?<!!)\[([^\]]+)\]\(([^)\s]+)\)", inside, page)


def withSummaries(header):
    def summarised(comment):
        result = re.sub(r"\n */// ", " ", comment[2])
        summary = re.split(r"(?<=\.) ", result)[0]
        emptyLines = "\n///" * comment[2].count("\n")
        return f"{comment[1]}/// {summary} @return {result}{emptyLines}"

    opening = r"(^(?! *///).*\n *)/// @return (.*(?:\n */// (?!@).*)*)"
    return re.sub(opening, summarised, header, flags=re.M)


file = sys.argv[-1]
with open(file, encoding="utf-8") as opened:
    text = opened.read()
if file.endswith(".md"):
    text = withLinksInside(withAnchors(text))
else:
    whole = None if "--as-written" in sys.argv else stringPages.headerForDoxygen(file, text)
    text = withSummaries(whole or text)
sys.stdout.write(text)
