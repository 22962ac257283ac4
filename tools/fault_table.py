"""Puts the verdicts of the fault matrix into docs/reliability.md, or, with --check, compares them with those there.

usage: fault_table.py FOLDER [--check]    the folder that FAULT_TABLES named
"""
import pathlib
import sys

import reliability_page

PARTS = ["WriteOverTheSerialLine", "ReadOverTheSerialLine", "WriteOverTheNetwork", "ReadOverTheNetwork"]


def main(folder, *flags):
    lines = "\n".join(pathlib.Path(folder, part).read_text() for part in PARTS).strip("\n").split("\n")
    if "--check" not in flags:
        reliability_page.replace("faults", lines)
        return 0
    if lines == reliability_page.current("faults"):
        return 0
    print("docs/reliability.md says something else than the matrix: run tools/reliability")
    return 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
