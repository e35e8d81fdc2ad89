#!/usr/bin/env python3
"""Names what has no comment and is not among Doxygen's own warnings: check_comments.py XML_FOLDER

Those are the values of enumerations, and the members of structures without a name.
"""

import sys
import xml.etree.ElementTree as ElementTree
from pathlib import Path


def has_comment(element):
    return any("".join(element.find(part).itertext()).strip()
               for part in ("briefdescription", "detaileddescription"))


def gaps(folder):
    for path in sorted(Path(folder).glob("*.xml")):
        for member in ElementTree.parse(path).getroot().iter("memberdef"):
            place = member.find("location")
            found = list(member.findall("enumvalue"))
            if member.get("kind") == "variable" and member.get("prot") != "private":
                found.append(member)
            for element in found:
                if not has_comment(element):
                    yield f"{place.get('file')}:{place.get('line')}: {element.findtext('name')}"


def main():
    found = sorted(set(gaps(sys.argv[1])))
    for gap in found:
        print(f"{gap} has no comment", file=sys.stderr)
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
