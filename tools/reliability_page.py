"""docs/reliability.md: what is measured stands between two marks, and is put there by the script that measures it."""
import pathlib

PAGE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "reliability.md"


def marks(part):
    return f"<!-- {part}: measured -->", f"<!-- {part}: end -->"


def current(part):
    begin, end = marks(part)
    text = PAGE.read_text()
    return text[text.index(begin) + len(begin):text.index(end)].strip("\n").split("\n")


def replace(part, lines):
    begin, end = marks(part)
    text = PAGE.read_text()
    head, tail = text[:text.index(begin) + len(begin)], text[text.index(end):]
    PAGE.write_text(head + "\n\n" + "\n".join(lines) + "\n\n" + tail)
