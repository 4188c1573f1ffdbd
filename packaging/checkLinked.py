"""Holds the SPDX document of an unpacked package against SPDX 2.3 and the files beside it.

    checkLinked.py PREFIX

Prints what is wrong, then a line for each program and what is linked into it.
"""

import hashlib
import json
import pathlib
import re
import sys

licences = {
    "LicenseRef-All-Rights-Reserved",
    "LGPL-2.1-or-later",
    "MIT",
    "GPL-3.0-or-later WITH GCC-exception-3.1",
    "NOASSERTION",
}
# Words of each library's terms that the copyright file has to hold, and the texts that lie beside
# it.
terms = {
    "glibc": ("GNU Lesser General Public", ["LGPL-2.1"]),
    "musl": ("Permission is hereby granted, free of charge", []),
    "libgcc": ("GCC RUNTIME LIBRARY EXCEPTION", ["GPL-3"]),
    "libstdc++": ("GCC RUNTIME LIBRARY EXCEPTION", ["GPL-3"]),
}
# A field's form, by SPDX 2.3; each of these has to be there.
anything = r"(?s).+"
date = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ"
forms = {
    "document": {
        "spdxVersion": r"SPDX-2\.3",
        "dataLicense": r"CC0-1\.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": anything,
        "documentNamespace": r"[a-z]+:[^#\s]+",
    },
    "package": {
        "SPDXID": r"SPDXRef-[A-Za-z0-9.-]+",
        "name": anything,
        "versionInfo": r"\d.*",
        "supplier": r"(Organization|Person): .+",
        "downloadLocation": anything,
        "licenseConcluded": anything,
        "licenseDeclared": anything,
        "copyrightText": anything,
    },
    "file": {
        "SPDXID": r"SPDXRef-[A-Za-z0-9.-]+",
        "fileName": r"\./.+",
        "licenseConcluded": anything,
        "copyrightText": anything,
    },
    "reference": {
        "referenceCategory": "PACKAGE-MANAGER",
        "referenceType": "purl",
        "referenceLocator": r"pkg:deb/debian/[a-z0-9.%B-]+@[^@?+]+\?arch=\w+",
    },
}


def wrong(kind, thing):
    for field, form in forms[kind].items():
        if not re.fullmatch(form, str(thing.get(field, ""))):
            yield f"{kind} {thing.get('SPDXID')}: {field} is {thing.get(field)!r}"
    for field in ("licenseConcluded", "licenseDeclared"):
        if thing.get(field, "NOASSERTION") not in licences:
            yield f"{kind} {thing.get('SPDXID')}: no such licence, {thing[field]}"


def wrongInFile(prefix, file):
    path = prefix / file["fileName"]
    sums = {c["algorithm"]: c["checksumValue"] for c in file["checksums"]}
    if set(sums) != {"SHA1", "SHA256"}:
        yield f"{path.name}: checksums are {sorted(sums)}"
    for kind, value in sums.items():
        if hashlib.new(kind.lower(), path.read_bytes()).hexdigest() != value:
            yield f"{path.name}: another {kind}"


def problems(prefix, document):
    docs = prefix / "share/doc/qvnodedispatch"
    packages, files = document["packages"], document["files"]
    yield from wrong("document", document)
    if not re.fullmatch(date, document["creationInfo"]["created"]):
        yield "no date"
    creators = document["creationInfo"]["creators"]
    if not creators or not all(re.match("(Person|Organization|Tool): ", c) for c in creators):
        yield f"creators are {creators}"
    for package in packages:
        yield from wrong("package", package)
        if package["filesAnalyzed"] is not False:
            yield f"{package['name']}: its files are not analysed"
        for reference in package.get("externalRefs", []):
            yield from wrong("reference", reference)
        if package["name"] in terms:
            words, texts = terms[package["name"]]
            if words not in (docs / "copyright").read_text(encoding="utf-8"):
                yield f"{package['name']}: the copyright file has not its terms"
            yield from (f"no text of {t}" for t in texts if not (docs / "licenses" / t).is_file())
    for file in files:
        yield from wrong("file", file)
        yield from wrongInFile(prefix, file)
    if {f["fileName"] for f in files} != {f"./bin/{p.name}" for p in (prefix / "bin").iterdir()}:
        yield "other programs than the package has"

    identifiers = [thing["SPDXID"] for thing in [document, *packages, *files]]
    if len(set(identifiers)) != len(identifiers):
        yield "an identifier stands twice"
    ends = ("spdxElementId", "relatedSpdxElement")
    related = {r[end] for r in document["relationships"] for end in ends}
    if related != set(identifiers):
        yield f"related and there differ: {sorted(related ^ set(identifiers))}"
    kinds = {r["relationshipType"] for r in document["relationships"]}
    if kinds != {"DESCRIBES", "GENERATED_FROM", "STATIC_LINK"}:
        yield f"relationships are {sorted(kinds)}"
    own = {p["licenseDeclared"] for p in packages if "LicenseRef" in p["licenseDeclared"]}
    infos = document["hasExtractedLicensingInfos"]
    if own != {info["licenseId"] for info in infos if info["extractedText"]}:
        yield "a licence of our own has no text"


def main(prefix):
    path = prefix / "share/doc/qvnodedispatch/qvnodedispatch.spdx.json"
    document = json.loads(path.read_text(encoding="utf-8"))
    for problem in problems(prefix, document):
        print(problem)
    names = {p["SPDXID"]: p["name"] for p in document["packages"]}
    linked = {pathlib.Path(f["fileName"]).name: [] for f in document["files"]}
    programs = {f["SPDXID"]: pathlib.Path(f["fileName"]).name for f in document["files"]}
    for relation in document["relationships"]:
        if relation["relationshipType"] == "STATIC_LINK":
            program = programs[relation["spdxElementId"]]
            linked[program].append(names[relation["relatedSpdxElement"]])
    for program in sorted(linked):
        print(f"{program}:", *sorted(linked[program]))


main(pathlib.Path(sys.argv[1]))
