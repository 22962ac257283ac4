"""The table of line coverage by room, from what gcovr counted.

usage: coverage_table.py SUMMARY.json LINES.txt PERCENT [--write]
"""
import collections
import json
import re
import sys

import reliability_page


def by_room(files):
    rooms = collections.defaultdict(lambda: [0, 0])
    for each in files:
        room = each["filename"].split("/")[1]
        rooms[room][0] += each["line_total"]
        rooms[room][1] += each["line_covered"]
    return rooms


def left(text):
    """File and line numbers of what no test reaches."""
    for line in text.splitlines():
        found = re.match(r"(src/\S+)\s+\d+\s+\d+\s+\d+%\s+(\S+)$", line)
        if found:
            yield f"- `{found.group(1)}`: {found.group(2)}"


def main(summary, lines, wanted, *flags):
    with open(summary, encoding="utf-8") as file:
        rooms = by_room(json.load(file)["files"])
    total, covered = (sum(column) for column in zip(*rooms.values()))
    table = ["| room | lines | reached | percent |", "|---|---:|---:|---:|"]
    for room, (all_lines, reached) in list(rooms.items()) + [("all", (total, covered))]:
        table.append(f"| {room} | {all_lines} | {reached} | {100 * reached / all_lines:.1f} |")
    with open(lines, encoding="utf-8") as file:
        unreached = list(left(file.read()))
    page = table + ["", "Lines that no logic test reaches:" if unreached else "No line is left.", ""] + unreached
    print("\n".join(page))
    if "--write" in flags:
        reliability_page.replace("coverage", page)
    return 0 if 100 * covered >= float(wanted) * total else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
