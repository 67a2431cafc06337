#!/usr/bin/python3
"""Reads comma-separated text and tells its cells: each row on a line, each cell as the hexadecimal
digits of its UTF-8, with blanks between the cells and a dot for an empty one."""

import csv
import sys

with open(sys.argv[1], encoding="utf-8", newline="") as file:
    for row in csv.reader(file, strict=True):
        print(" ".join(cell.encode("utf-8").hex() or "." for cell in row))
