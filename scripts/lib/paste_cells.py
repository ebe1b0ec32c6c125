"""Has LibreOffice paste what a program has copied, and compares the cells.

paste_cells.py COPY_RESULTS FOLDER

Runs COPY_RESULTS, which keeps tables on the clipboard and says what has to be in the cells, for every way of copying. FOLDER
takes the profile of the office suite.
"""

import json
import math
import re
import subprocess
import sys
import threading
import time
from contextlib import contextmanager

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException

NUMBER = re.compile(r"[-+]?\d+(\.\d*)?([eE][-+]?\d+)?")
DIALOGS = "^(Import Options|Text Import.*)$"
PASTE_BEST = (".uno:Paste", ())
PASTE_TEXT = (".uno:ClipboardFormatItems", (PropertyValue(Name="SelectedFormat", Value=1),))
PATIENCE = 60  # seconds


@contextmanager
def running(*command, **options):
    process = subprocess.Popen(command, **options)
    try:
        yield process
    finally:
        process.kill()
        process.wait()


def wait_for(what, attempt):
    """The first result of the attempt that is not None."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        result = attempt()
        if result is not None:
            return result
        time.sleep(0.1)
    sys.exit(f"{what} does not come")


def confirm_dialogs():
    """Presses Enter in the dialogs that ask how to import what is pasted: their defaults are what a user gets."""
    search = ["xdotool", "search", "--onlyvisible", "--name", DIALOGS]
    while True:
        for window in subprocess.run(search, capture_output=True, text=True).stdout.split():
            time.sleep(0.3)
            subprocess.run(["xdotool", "windowfocus", window, "key", "Return"], stderr=subprocess.DEVNULL)
        time.sleep(0.3)


class Office:
    def __init__(self, pipe):
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)

        def connect():
            try:
                return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
            except NoConnectException:
                return None

        self.context = wait_for("the office suite", connect)
        self.desktop = self.make("com.sun.star.frame.Desktop")

    def make(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    def paste(self, command):
        """Pastes into a new sheet. Returns its rows, each a list of (column, value) without covered cells."""
        document = self.desktop.loadComponentFromURL("private:factory/scalc", "_blank", 0, ())
        sheet = document.Sheets.getByIndex(0)
        name, arguments = command
        self.make("com.sun.star.frame.DispatchHelper").executeDispatch(
            document.CurrentController.Frame, name, "", 0, arguments
        )
        wait_for("the pasted cells", lambda: used(sheet) if used(sheet) != (0, 0) else None)
        rows = read(sheet)
        document.close(True)
        return rows


def used(sheet):
    cursor = sheet.createCursor()
    cursor.gotoEndOfUsedArea(False)
    return cursor.RangeAddress.EndRow, cursor.RangeAddress.EndColumn


def read(sheet):
    last_row, last_column = used(sheet)
    rows = sheet.getCellRangeByPosition(0, 0, last_column, last_row).getDataArray()
    return [
        [(column, value) for column, value in enumerate(row) if not is_covered(sheet, column, number)]
        for number, row in enumerate(rows)
    ]


def is_covered(sheet, column, row):
    cursor = sheet.createCursorByRange(sheet.getCellByPosition(column, row))
    cursor.collapseToMergedArea()
    return cursor.RangeAddress.StartColumn != column or cursor.RangeAddress.StartRow != row


def shows(value, text):
    """Whether a cell holds the text that was copied: a number as a number of the same value."""
    text = " ".join(text.split())
    if NUMBER.fullmatch(text):
        return isinstance(value, float) and math.isclose(value, float(text), rel_tol=1e-12)
    return isinstance(value, str) and " ".join(value.split()) == text


def compare_text(rows, text):
    expected = [line.split("\t") for line in text.removesuffix("\r\n").replace("\r\n", "\n").split("\n")]
    width = max(map(len, expected))
    faults = [] if len(rows) == len(expected) else [f"{len(rows)} rows instead of {len(expected)}"]
    for number, (row, texts) in enumerate(zip(rows, expected)):
        texts += [""] * (width - len(texts))
        values = [value for _, value in row] + [""] * (width - len(row))
        if not all(map(shows, values, texts)) or len(values) > width:
            faults.append(f"row {number}: {values} instead of {texts}")
    return faults, sum(map(len, expected))


def compare_html(rows, tables):
    """The tables one below the other, where empty rows do not count. In each, a column lies in one place."""
    filled = [row for row in rows if any(value != "" for _, value in row)]
    faults = []
    cells = 0
    for table in tables:
        places = {}
        for texts in table:
            row = filled.pop(0) if filled else []
            for (column, text), (place, value) in zip(texts, row):
                if not shows(value, text) or places.setdefault(column, place) != place:
                    faults.append(f"{value!r} in column {place} instead of {text!r}")
            if len(row) < len(texts) or any(value != "" for _, value in row[len(texts) :]):
                faults.append(f"{row} instead of {texts}")
            cells += len(texts)
    return faults + [f"{row} is too much" for row in filled], cells


def main(program, folder):
    pipe = "check_clipboard"
    suite = ["soffice", f"-env:UserInstallation=file://{folder}/profile", f"--accept=pipe,name={pipe};urp;"]
    suite += ["--norestore", "--nologo", "--nodefault", "--nofirststartwizard"]
    with running(*suite, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):
        office = Office(pipe)
        threading.Thread(target=confirm_dialogs, daemon=True).start()
        faults = []
        for way in (["selection"], ["selection", "transposed"], ["grids"], ["grids", "transposed"]):
            with running(program, *way, stdout=subprocess.PIPE, text=True) as copying:
                expected = json.loads(copying.stdout.readline())
                text_faults, text_cells = compare_text(office.paste(PASTE_TEXT), expected["text"])
                html_faults, html_cells = compare_html(office.paste(PASTE_BEST), expected["html"])
            name = " ".join(way)
            faults += [f"{name}, text: {fault}" for fault in text_faults]
            faults += [f"{name}, HTML: {fault}" for fault in html_faults]
            print(f"{name}: {text_cells} cells of the text, {html_cells} of the HTML")
        try:
            office.desktop.terminate()
        except Exception:  # it ends the connection as well
            pass
    if faults:
        sys.exit("\n".join(faults))
    print("all pasted cells are in place")


main(*sys.argv[1:])
