"""Says what of others is in the static programs of a package: an SPDX document, and their terms in
the package's copyright file.

    linked.py MAPS DOCS PROGRAM...

MAPS is a folder with the linker's map of each program, DOCS the folder of the package's documents.
The maps name each archive that gave something, whatever the build meant to link; an archive of
which nobody has said here what it is ends the run. SOURCE_DATE_EPOCH and QV_PACKED_VERSION are in
the environment.
"""

import datetime
import functools
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import uuid

ownLicence = "LicenseRef-All-Rights-Reserved"
gccLicence = "GPL-3.0-or-later WITH GCC-exception-3.1"
lesser = "LGPL-2.1-or-later"
# What a file of the tool chain belongs to, and its licence.
libraries = [
    (r".*musl.*", "musl", "MIT"),
    (r".*/libstdc\+\+\.a", "libstdc++", gccLicence),
    (r".*/(libgcc|libgcc_eh|crtbegin\w*|crtend\w*)\.[ao]", "libgcc", gccLicence),
    (r".*/(lib(c|c_nonshared|m|m-[\d.]+|mvec)|[rSM]?crt1|crt[in])\.[ao]", "glibc", lesser),
]
# Texts that a licence says have to come along; Debian has them on every machine.
texts = {lesser: ["LGPL-2.1"], gccLicence: ["GPL-3"], "MIT": []}


def filesIn(linkMap):
    """The files of the tool chain that the linker took something from."""
    text = linkMap.read_text(encoding="utf-8", errors="replace")
    members = re.findall(r"^(/\S+\.a)\(", text, flags=re.M)
    objects = re.findall(r"^LOAD (/\S+\.o)$", text, flags=re.M)
    build = str(linkMap.resolve().parents[1]) + "/"
    return {f for f in map(os.path.realpath, members + objects) if not f.startswith(build)}


def said(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


@functools.cache
def library(file):
    """(name, licence, Debian package) of a file of the tool chain."""
    for pattern, name, licence in libraries:
        if re.fullmatch(pattern, file):
            return name, licence, said("dpkg", "-S", file).rpartition(": ")[0]
    sys.exit(f"linked.py: nobody has said what {file} is")


def sbomOf(programs, linked, licenceText):
    version, epoch = os.environ["QV_PACKED_VERSION"], int(os.environ["SOURCE_DATE_EPOCH"])
    created = datetime.datetime.fromtimestamp(epoch, datetime.timezone.utc)

    def identifier(name):
        return "SPDXRef-" + name.replace("+", "x")

    def package(name, version, licence, supplier, **more):
        return {
            "SPDXID": identifier(name),
            "name": name,
            "versionInfo": version,
            "supplier": f"Organization: {supplier}",
            "downloadLocation": "NOASSERTION",
            "filesAnalyzed": False,
            "licenseConcluded": licence,
            "licenseDeclared": licence,
            "copyrightText": "NOASSERTION",
        } | more

    def fromDebian(name, licence, owner):
        form = "${Version} ${Architecture}"
        debianVersion, architecture = said("dpkg-query", "-W", "-f", form, owner).split()
        locator = f"pkg:deb/debian/{owner.split(':')[0]}@{debianVersion}?arch={architecture}"
        reference = {
            "referenceCategory": "PACKAGE-MANAGER",
            "referenceType": "purl",
            "referenceLocator": locator.replace("++", "%2B%2B").replace("+", "%2B"),
        }
        return package(name, debianVersion, licence, "Debian", externalRefs=[reference])

    def file(path):
        content = path.read_bytes()
        sums = {kind: hashlib.new(kind, content).hexdigest() for kind in ("sha1", "sha256")}
        return {
            "SPDXID": identifier(path.name),
            "fileName": f"./bin/{path.name}",
            "fileTypes": ["BINARY"],
            "checksums": [{"algorithm": k.upper(), "checksumValue": s} for k, s in sums.items()],
            "licenseConcluded": "NOASSERTION",
            "licenseInfoInFiles": ["NOASSERTION"],
            "copyrightText": "NOASSERTION",
        }

    files = [file(program) for program in programs]
    related = []
    for program in programs:
        related.append((identifier(program.name), "GENERATED_FROM", identifier("source")))
        names = sorted({name for name, _, _ in linked[program]})
        related += [(identifier(program.name), "STATIC_LINK", identifier(name)) for name in names]
    described = [("SPDXRef-DOCUMENT", "DESCRIBES", f["SPDXID"]) for f in files]
    name = f"qvnodedispatch-{version}"
    content = name + "".join(f["checksums"][1]["checksumValue"] for f in files)
    own = package("source", version, ownLicence, "qvNodeDispatch contributors")
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": name,
        "documentNamespace": f"urn:uuid:{uuid.uuid5(uuid.NAMESPACE_OID, content)}",
        "creationInfo": {
            "created": created.strftime("%Y-%m-%dT%H:%M:%SZ"),
            "creators": ["Organization: qvNodeDispatch contributors", "Tool: linked.py"],
        },
        "packages": [own | {"name": "qvNodeDispatch"}]
        + [fromDebian(*found) for found in firstOfEachName(linked)],
        "files": files,
        "relationships": [
            {"spdxElementId": a, "relationshipType": kind, "relatedSpdxElement": b}
            for a, kind, b in described + related
        ],
        "hasExtractedLicensingInfos": [{"licenseId": ownLicence, "extractedText": licenceText}],
    }


def firstOfEachName(linked):
    """One (name, licence, Debian package) of each library, by name."""
    return list({found[0]: found for found in sorted(set().union(*linked.values()))}.values())


def main(maps, docs, programs):
    linked = {p: {library(f) for f in filesIn(maps / f"{p.name}.map")} for p in programs}
    copyright = docs / "copyright"
    own = copyright.read_text(encoding="utf-8")
    sbom = json.dumps(sbomOf(programs, linked, own), indent=2)
    (docs / "qvnodedispatch.spdx.json").write_text(sbom + "\n", encoding="utf-8")

    terms, parts = {}, [own]
    for name, licence, owner in firstOfEachName(linked):
        theirs = pathlib.Path("/usr/share/doc", owner.split(":")[0], "copyright")
        terms.setdefault(theirs.read_text(encoding="utf-8"), []).append(name)
        for text in texts[licence]:
            (docs / "licenses").mkdir(exist_ok=True)
            shutil.copyfile(f"/usr/share/common-licenses/{text}", docs / "licenses" / text)
    for text, names in terms.items():
        heading = "Linked into the programs: " + ", ".join(names)
        parts.append(f"{heading}\n{'-' * len(heading)}\n\n{text}")
    copyright.write_text("\n".join(parts), encoding="utf-8")


main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), [pathlib.Path(p) for p in sys.argv[3:]])
