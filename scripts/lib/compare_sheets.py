"""Compares a text report with what a spreadsheet program made of the text and of the HTML report.

compare_sheets.py REPORT.TXT TEXT_SHEET.FODS HTML_SHEET.FODS

The text report has summary lines "label: value", an empty line, and result lines of tab-separated cells, of which the
first is the header.
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
    with open(path, encoding="utf-8-sig", newline="") as file:
        lines = file.read().split("\r\n")
    gap = lines.index("")
    results = [line.split("\t") for line in lines[gap + 1 :] if line]
    if len(results) < 2:
        sys.exit(f"{path}: no results")
    return lines[:gap], results


def matches(cells, expected):
    missing = len(expected) - len(cells)
    return missing >= 0 and all(c.shows(e) for c, e in zip(cells, expected)) and not any(expected[len(cells) :])


def compare(name, sheet, start, expected):
    """The faults of the expected rows, which have to stand one below the other from row `start` on."""
    found = sheet[start:] + [[]] * len(expected)
    return [
        f"{name}, row {start + i + 1}: expected {row}, found {cells}"
        for i, (row, cells) in enumerate(zip(expected, found))
        if not matches(cells, row)
    ]


def main(text_path, text_sheet_path, html_sheet_path):
    summary, results = read_text(text_path)
    faults = compare("text", read_sheet(text_sheet_path), 0, [[line] for line in summary] + [[]] + results)

    sheet = read_sheet(html_sheet_path)
    headers = [i for i, cells in enumerate(sheet) if matches(cells, results[0])]
    if headers:
        faults += compare("HTML", sheet, 0, [line.split(": ", 1) for line in summary])
        faults += compare("HTML", sheet, headers[0], results)
    else:
        faults.append(f"HTML: the header {results[0]} is in no row")
    if faults:
        sys.exit("\n".join(faults))
    cells = sum(len(row) for row in results)
    print(f"{len(summary)} summary lines and {cells} cells of results are in place in both spreadsheets")


main(*sys.argv[1:])
