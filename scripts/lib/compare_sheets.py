"""Compares a text report with what a spreadsheet program made of the text and of the HTML report.

compare_sheets.py REPORT.TXT TEXT_SHEET.FODS HTML_SHEET.FODS

The text report has summary lines "label: value" and then tables of tab-separated cells, each behind an empty line. The
header of a table may take several lines: those behind the first begin with an empty cell.
"""

import math
import re
import sys
import xml.etree.ElementTree as ElementTree

OFFICE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}"
TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
TEXT = "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}"
NUMBER = re.compile(r"[-+]?\d+(\.\d*)?([eE][-+]?\d+)?")


class Cell:
    def __init__(self, element):
        self.text = normalize(" ".join("".join(p.itertext()) for p in element.iter(TEXT + "p")))
        self.value = element.get(OFFICE + "value")
        self.formula = element.get(TABLE + "formula")

    def shows(self, expected):
        """Whether the cell holds the text of the report: a number as a number of the same value."""
        expected = normalize(expected)
        if self.formula:
            return False
        if NUMBER.fullmatch(expected):
            return self.value is not None and math.isclose(float(self.value), float(expected), rel_tol=1e-12)
        return self.text == expected

    def __repr__(self):
        return repr(self.formula or self.value or self.text)


def normalize(text):
    return " ".join(text.split())


def read_sheet(path):
    """The rows of the first sheet, without the cells that merged cells cover and the empty ones at the end."""
    rows = []
    for row in next(ElementTree.parse(path).iter(TABLE + "table")).iter(TABLE + "table-row"):
        cells = []
        for element in row.findall(TABLE + "table-cell"):
            cells += [Cell(element)] * min(int(element.get(TABLE + "number-columns-repeated", 1)), 1000)
        while cells and not cells[-1].text:
            cells.pop()
        rows += [cells] * min(int(row.get(TABLE + "number-rows-repeated", 1)), 1000)
    return rows


def read_text(path):
    """The summary lines and the rows of each table, as they stand."""
    with open(path, encoding="utf-8-sig", newline="") as file:
        blocks = file.read().strip("\r\n").split("\r\n\r\n")
    if len(blocks) < 2:
        sys.exit(f"{path}: no results")
    return blocks[0].split("\r\n"), [[line.split("\t") for line in block.split("\r\n")] for block in blocks[1:]]


def unwrapped(table):
    """The rows of a table with the lines of its header joined, as they are in one cell of the HTML report."""
    rows = [table[0]]
    for row in table[1:]:
        if len(rows) == 1 and row[0] == "":
            rows[0] = [f"{above} {below}".strip() for above, below in zip(rows[0], row)]
        else:
            rows.append(row)
    return rows


def matches(cells, expected):
    missing = len(expected) - len(cells)
    return missing >= 0 and all(c.shows(e) for c, e in zip(cells, expected)) and not any(expected[len(cells) :])


def is_note(cells):
    """Whether a row is what stands below a table: "1 Sal, Str: the surface is flat"."""
    return len(cells) == 1 and re.match(r"\d+ [^:]+: ", cells[0].text)


def compare(name, sheet, expected):
    """The faults of the sheet's rows, which have to be the expected ones from the first to the last."""
    found = sheet + [[]] * (len(expected) - len(sheet))
    faults = [
        f"{name}, row {i + 1}: expected {row}, found {cells}"
        for i, (row, cells) in enumerate(zip(expected, found))
        if not matches(cells, row)
    ]
    return faults + [f"{name}, row {i + 1}: unexpected" for i in range(len(expected), len(found)) if found[i]]


def main(text_path, text_sheet_path, html_sheet_path):
    summary, tables = read_text(text_path)
    expected = [[line] for line in summary]
    for table in tables:
        expected += [[]] + table
    faults = compare("text", read_sheet(text_sheet_path), expected)

    expected = [line.replace(": ", ":\n", 1).split("\n") for line in summary]
    for table in tables:
        expected += unwrapped(table)
    rows = [row for row in read_sheet(html_sheet_path) if row and not is_note(row)]
    # The texts of the page's pictures come as one cell, which no row of the tables is.
    if len(rows) > len(summary) and len(rows[len(summary)]) == 1:
        del rows[len(summary)]
    faults += compare("HTML", rows, expected)
    if faults:
        sys.exit("\n".join(faults[:20]))
    cells = sum(len(row) for table in tables for row in table)
    print(f"{len(summary)} summary lines and {cells} cells of {len(tables)} tables are in place in both spreadsheets")


main(*sys.argv[1:])
