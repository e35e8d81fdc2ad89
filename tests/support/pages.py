"""The pages of the documentation, taken apart for the tests that run what they show."""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Block:
    """A code block: fenced, with a language and perhaps a file name, or indented by four blanks."""

    page: str  # the path from the project's folder
    line: int  # that of its first line of code
    language: str  # empty for an indented block and for a fence that names none
    name: str
    text: str
    is_fenced: bool

    @property
    def place(self):
        return f"{self.page}:{self.line}"


def pages(source):
    """The paths of all pages, from the project's folder on; the list of changes is about other times."""
    found = [source / "README.md", source / "CONTRIBUTING.md", *source.glob("docs/**/*.md"), *source.glob("examples/**/*.md"),
             *source.glob("bindings/**/*.md")]
    return sorted(str(path.relative_to(source)) for path in found)


def blocks(source, page):
    """The code blocks of a page, in their order."""
    lines = (source / page).read_text().splitlines()
    found = []
    at = 0
    while at < len(lines):
        fence = re.match(r"```(\w*)(?: (\S+))?$", lines[at])
        if fence:
            end = lines.index("```", at + 1)
            found.append(Block(page, at + 2, fence[1], fence[2] or "",
                               "".join(f"{line}\n" for line in lines[at + 1:end]), True))
            at = end + 1
        elif lines[at].startswith("    ") and (at == 0 or not lines[at - 1].strip()):
            end = at
            while end < len(lines) and (lines[end].startswith("    ") or not lines[end].strip()):
                end += 1
            text = "".join(f"{line[4:]}\n" for line in lines[at:end]).rstrip("\n") + "\n"
            found.append(Block(page, at + 1, "", "", text, False))
            at = end
        else:
            assert "```" not in lines[at], f"{page}:{at + 1} is a fence that is not understood"
            at += 1
    return found


def named_files(source, page):
    """The files of a page, which are the fenced blocks with a name: their texts by their names."""
    files = {}
    for block in blocks(source, page):
        if block.name:
            assert block.name not in files, f"{block.place} repeats the file {block.name}"
            files[block.name] = block.text
    return files


def prose(source, page):
    """The lines of a page with their numbers, without those of its code blocks."""
    code = {line for block in blocks(source, page)
            for line in range(block.line - block.is_fenced,
                              block.line + block.text.count("\n") + block.is_fenced)}
    lines = (source / page).read_text().splitlines()
    return [(number, line) for number, line in enumerate(lines, 1) if number not in code]


def section(source, page, heading):
    """The lines below a heading, up to the next one of its level or above."""
    lines = [line for _, line in prose(source, page)]
    start = next(at for at, line in enumerate(lines)
                 if re.fullmatch(rf"#+ {re.escape(heading)}", line))
    level = lines[start].index(" ")
    end = next((at for at in range(start + 1, len(lines))
                if re.match(rf"#{{1,{level}}} ", lines[at])), len(lines))
    return lines[start + 1:end]


def table(lines, first_column):
    """The rows of the table whose first heading is this, as lists of cells."""
    rows = []
    for line in lines:
        cells = [cell.strip().replace("\\|", "|")
                 for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if rows or (cells and cells[0] == first_column):
            if not cells:
                break
            rows.append(cells)
    assert len(rows) > 2, f"there is no table {first_column}"
    return rows[2:]


def code_spans(cell):
    """What is between back-quotes."""
    return re.findall(r"`([^`]+)`", cell)
