"""Every link of every page leads to a file of the project and to a heading of it:  links_test.py SOURCE"""

import re
import sys
import unittest
from pathlib import Path
from urllib.parse import unquote

sys.path.append(str(Path(__file__).parents[1] / "support"))
import pages  # noqa: E402

SOURCE = Path(sys.argv[1]).resolve()
# [text](target), also with a picture as its text, and targets such as <a b.md>.
LINK = re.compile(r"\]\(\s*<?([^)>\s]+)>?(?:\s+\"[^\"]*\")?\s*\)")


def anchors(page):
    """What a heading is called in a link: its text in lower case, without punctuation."""
    found = set()
    for _, line in pages.prose(SOURCE, page):
        heading = re.match(r"#{1,6} (.*?)#*$", line)
        if not heading:
            continue
        text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading[1]).strip().lower()
        anchor = re.sub(r"[^\w\- ]", "", text).replace(" ", "-")
        name, number = anchor, 0
        while name in found:
            number += 1
            name = f"{anchor}-{number}"
        found.add(name)
    return found


def links(page):
    """The targets of a page with their lines, without those into the web."""
    for number, line in pages.prose(SOURCE, page):
        line = re.sub(r"`[^`]*`", "", line)
        for target in LINK.findall(line):
            if not re.match(r"[a-z]+:", target):
                yield number, unquote(target)


class Links(unittest.TestCase):
    def test_they_lead_somewhere(self):
        count = 0
        for page in pages.pages(SOURCE):
            for number, target in links(page):
                count += 1
                with self.subTest(f"{page}:{number}", target=target):
                    name, _, anchor = target.partition("#")
                    path = (SOURCE / page).parent / name if name else SOURCE / page
                    self.assertTrue(path.exists(), "there is no such file")
                    path = path.resolve().relative_to(SOURCE)
                    if anchor:
                        self.assertEqual(path.suffix, ".md")
                        self.assertIn(anchor, anchors(path))
        self.assertGreater(count, 150)

    def test_the_index_has_every_page(self):
        listed = {target for _, target in links("docs/README.md")}
        for path in sorted((SOURCE / "docs").glob("*.md")):
            if path.name != "README.md":
                self.assertIn(path.name, listed)

    def test_the_pages_that_other_files_name_exist(self):
        """In comments, messages and scripts; a page is called by its path from the project's folder."""
        named = re.compile(r"(?<![\w/.])((?:docs|examples)/[\w/-]+\.md)\b")
        count = 0
        folders = [path for path in SOURCE.iterdir() if path.name not in {"build", ".git"}]
        files = [file for folder in folders for file in folder.rglob("*")]
        for path in sorted(files):
            if (path.suffix not in {".cpp", ".h", ".py", ".sh", ".cmake", ".txt", ""}
                    or not path.is_file()):
                continue
            for page in named.findall(path.read_text(errors="replace")):
                count += 1
                self.assertTrue((SOURCE / page).exists(), f"{path} names {page}")
        self.assertGreater(count, 10)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
