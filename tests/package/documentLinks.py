"""Follows every link of the documents that are installed: Markdown, HTML and manual pages.

    documentLinks.py PREFIX

Prints the links that lead nowhere. A link with an anchor has to find that too. A document that has
lost all links would not be noticed, so there have to be some.
"""

import functools
import gzip
import html.parser
import pathlib
import re
import sys
import urllib.parse

# What the manual pages name of the system's.
systemPages = {
    "_exit(2)",
    "execve(2)",
    "fork(2)",
    "ipcrm(1)",
    "ipcs(1)",
    "pkg-config(1)",
    "shmat(2)",
    "shmctl(2)",
    "shmget(2)",
    "sysvipc(7)",
}


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.anchors = [], set()
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        for name, value in attributes:
            if name in ("href", "src") and value:
                self.links.append(value)
            elif name == "id" or (name == "name" and tag == "a"):
                self.anchors.add(value)


class Markdown:
    """What is between fences or backticks is no link. An anchor is as the forges give it: a heading
    in lower case, without punctuation, with blanks as dashes."""

    def __init__(self, text):
        prose = re.sub(r"^```.*?^```$", "", text, flags=re.M | re.S)
        headings = re.findall(r"^#+ (.+)$", prose, flags=re.M)
        self.anchors = {re.sub(r"[^\w-]", "", h.lower().replace(" ", "-")) for h in headings}
        prose = re.sub(r"(?<!\[)`[^`\n]+`(?!\])", "", prose)
        self.links = re.findall(r"\]\(([^)\s]+)\)", prose)
        self.links += re.findall(r"^\[[^]]+\]: (\S+)", prose, flags=re.M)


kinds = {".md": Markdown, ".html": Page}


@functools.cache
def opened(path):
    return kinds[path.suffix](path.read_text(encoding="utf-8"))


def deadLinks(path):
    for link in opened(path).links:
        where = urllib.parse.urlsplit(link)
        if where.scheme in ("http", "https", "mailto", "javascript"):
            continue
        target = path.parent / urllib.parse.unquote(where.path) if where.path else path
        if where.scheme or not target.resolve().exists() or where.path.startswith("/"):
            yield link
        elif where.fragment and target.suffix in kinds:
            if urllib.parse.unquote(where.fragment) not in opened(target).anchors:
                yield link


def manualPages(prefix):
    """(page's name, text) of each."""
    for path in sorted((prefix / "share/man").rglob("*.[1-9]*")):
        unpacked = gzip.open if path.suffix == ".gz" else open
        with unpacked(path, "rt", encoding="utf-8") as page:
            name, section = path.name.removesuffix(".gz").rsplit(".", 1)
            yield f"{name}({section})", page.read()


def main(prefix):
    dead = []
    documents = [path for path in sorted((prefix / "share").rglob("*")) if path.suffix in kinds]
    for path in documents:
        dead += [f"{path.relative_to(prefix)}: {link}" for link in deadLinks(path)]
    pages = dict(manualPages(prefix))
    references = r"^\.(?:Xr|BR) (\S+) \(?([1-9])"
    for page, text in pages.items():
        named = {f"{name}({section})" for name, section in re.findall(references, text, flags=re.M)}
        dead += [f"{page}: {name}" for name in sorted(named - systemPages - set(pages))]
        if not named:
            dead.append(f"{page}: names no other page")
    if not any(opened(path).links for path in documents):
        dead.append("no document has a link")
    print("\n".join(dead))


main(pathlib.Path(sys.argv[1]).resolve())
