"""Reads docs/guide.md: its headings and tables, for tools/guide-messages and tools/guide-page."""

import html
import re
from pathlib import Path

GUIDE = Path(__file__).resolve().parent.parent / "docs/guide.md"


def plain(markdown):
    """The text of a piece without its marks."""
    text = re.sub(r"`([^`]*)`", r"\1", markdown)
    text = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", text)
    text = re.sub(r"\*\*|\\(?=[|*_<>])", "", text)
    return " ".join(html.unescape(text).split())


def without_code(markdown):
    """The same text with the blocks of code left out, where nothing is a mark."""
    return re.sub(r"(?m)^    .*$", "", markdown)


def anchor(heading, taken):
    """What a link to a heading is, made as the places are that show Markdown by themselves."""
    name = re.sub(r"[^\w\- ]", "", plain(heading).lower()).replace(" ", "-")
    unique, n = name, 0
    while unique in taken:
        n += 1
        unique = f"{name}-{n}"
    taken.add(unique)
    return unique


def headings(markdown):
    """The headings in their order, by (line, level, text), each with the name that links have."""
    taken, found = set(), {}
    for number, line in enumerate(markdown.splitlines(), 1):
        if mark := re.match(r"(#+) (.*)", line):
            found[number, len(mark[1]), plain(mark[2])] = anchor(mark[2], taken)
    return found


def rows(markdown):
    """The rows of all tables: number of the line, and the cells by the headings of the columns."""
    names = None
    for number, line in enumerate(markdown.splitlines(), 1):
        if not line.startswith("|"):
            names = None
            continue
        cells = [cell.strip() for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if names is None:
            names = cells
        elif not re.fullmatch(r"[|\s:-]+", line):
            yield number, dict(zip(names, cells))
