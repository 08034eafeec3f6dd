"""A workbook as another program reads it (Debian's python3-xlrd), held to what its report has.

usage: read_workbook.py results|data|quantities WORKBOOK STUDY LIBRARY TEMPLATES DESIGNER
"""

import sys
from pathlib import Path

import xlrd
from xlrd.compdoc import CompDoc

import reports
from study_files import Study

NUMBER, TEXT = xlrd.XL_CELL_NUMBER, xlrd.XL_CELL_TEXT
EMPTY = (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK)

BOUND_SHEET, END = 0x85, 0x0A
PROTECTION = {0x12: "cells", 0xDD: "scenarios", 0x63: "objects", 0x13: "password"}
# The paper, its margins and footer, widths of columns: as the template has them.
PAPER = (0xA1, 0x26, 0x27, 0x28, 0x29, 0x15, 0x81, 0x7D)


def records(stream, offset):
    while True:
        number = int.from_bytes(stream[offset:offset + 2], "little")
        length = int.from_bytes(stream[offset + 2:offset + 4], "little")
        yield number, stream[offset + 4:offset + 4 + length]
        if number == END:
            return
        offset += 4 + length


class WorkbookFile:
    """Cells by xlrd; what it passes over by the records of each sheet."""

    def __init__(self, path):
        self.book = xlrd.open_workbook(str(path), formatting_info=True)
        stream = bytes(CompDoc(Path(path).read_bytes()).get_named_stream("Workbook"))
        self.records = [
            list(records(stream, int.from_bytes(body[:4], "little")))
            for number, body in records(stream, 0) if number == BOUND_SHEET
        ]

    def format_of(self, sheet, row, column):
        look = self.book.xf_list[sheet.cell_xf_index(row - 1, column - 1)]
        return self.book.format_map[look.format_key].format_str

    def is_locked(self, sheet, row, column):
        look = self.book.xf_list[sheet.cell_xf_index(row - 1, column - 1)]
        return bool(look.protection.cell_locked)


class Reading:
    """One workbook against its report; what differs goes into `faults`."""

    def __init__(self, path, report, study, templates):
        self.report, self.study = report, study
        self.file, self.template = WorkbookFile(path), WorkbookFile(templates / report.template)
        self.faults = []

    def expect(self, what, is_, should):
        if is_ != should:
            self.faults.append(f"{what}: {is_!r}, not {should!r}")

    def check(self):
        book = self.file.book
        lines = self.report.lines_of(self.study)
        pages = max(1, -(-len(lines) // self.report.lines))
        self.expect("sheets", book.nsheets, self.report.sheets)
        self.expect("names", book.sheet_names(), self.template.book.sheet_names())
        # A page to copy from is nothing to print.
        hidden = [book.sheet_by_index(number).visibility for number in range(book.nsheets)]
        self.expect("hidden sheets", hidden, [0, 1][:self.report.sheets])
        self.check_sheet(0, lines, pages)
        if self.report.sheets == 2:
            self.check_sheet(1, [], 1)
        for number in range(book.nsheets):
            self.check_records(number)
        return self.faults

    def check_sheet(self, number, lines, pages):
        sheet = self.file.book.sheet_by_index(number)
        breaks = [page * self.report.page_rows for page in range(1, pages)]
        self.expect("breaks", [at for at, *_ in sheet.horizontal_page_breaks], breaks)
        self.expect("columns of breaks", sheet.vertical_page_breaks, [])
        for page in range(pages):
            self.check_head(sheet, page)
            self.check_table(sheet, page, lines[page * self.report.lines:])
            self.check_shape(sheet, number, page, pages)
        last = pages * self.report.page_rows
        below = [row for row in range(last, sheet.nrows) if any(sheet.row_values(row))]
        self.expect("rows behind the last page", below, [])

    def check_head(self, sheet, page):
        for row, column, value, pattern in self.report.head:
            self.check_cell(sheet, page, row, column, value(self.study), pattern)

    def check_table(self, sheet, page, lines):
        for line in range(self.report.lines):
            row = self.report.first_line + line
            for column, value, pattern in self.report.columns:
                filled = value(lines[line]) if line < len(lines) else None
                self.check_cell(sheet, page, row, column, filled, pattern)

    def check_cell(self, sheet, page, row, column, value, pattern):
        at = page * self.report.page_rows + row
        what = f"{sheet.name} {at}:{column}"
        cell = sheet.cell(at - 1, column - 1)
        if value is None:
            self.expect(what, cell.ctype in EMPTY, True)
        else:
            self.expect(f"kind of {what}", cell.ctype, TEXT if isinstance(value, str) else NUMBER)
            self.expect(what, cell.value, value)
        self.expect(f"format of {what}", self.file.format_of(sheet, at, column),
                    pattern or reports.PLAIN)
        self.expect(f"{what} locked", self.file.is_locked(sheet, at, column), True)

    def check_shape(self, sheet, number, page, pages):
        """Fixed texts, heights and merged cells of a page, which are the template's."""
        page_rows = self.report.page_rows
        model = self.template.book.sheet_by_index(number)
        filled = {(row, column) for row, column, *_ in self.report.head}
        filled |= {(self.report.first_line + line, column) for line in range(self.report.lines)
                   for column, *_ in self.report.columns}
        for row in range(model.nrows):
            at = page * page_rows + row
            for column in range(model.ncols):
                if (row + 1, column + 1) not in filled:
                    self.expect(f"{sheet.name} {at + 1}:{column + 1}",
                                sheet.cell_value(at, column), model.cell_value(row, column))
        for row in range(page_rows):
            height = model.rowinfo_map[row].height
            if row == page_rows - 1 and page < pages - 1 and self.report.gap_points:
                height = round(self.report.gap_points * 20)
            at = page * page_rows + row
            self.expect(f"height of {at + 1}", sheet.rowinfo_map[at].height, height)
        merged = sorted(cells for cells in sheet.merged_cells
                        if page * page_rows <= cells[0] < (page + 1) * page_rows)
        shifted = sorted((first + page * page_rows, last + page * page_rows, *rest)
                         for first, last, *rest in model.merged_cells)
        self.expect(f"merged cells of page {page + 1}", merged, shifted)

    def check_records(self, number):
        def bodies(file, kind):
            return [body for found, body in file.records[number] if found == kind]

        for kind, name in PROTECTION.items():
            given = bodies(self.file, kind)
            self.expect(f"{name} protected", [any(body) for body in given], [True])
            self.expect(f"protection of {name}", given, bodies(self.template, kind))
        for kind in PAPER:
            self.expect(f"records {kind:#x}", bodies(self.file, kind), bodies(self.template, kind))


def faults_of(kind, workbook, study, templates):
    """Every difference between the workbook and what a report of that kind has, as texts."""
    report = reports.report_of(kind, study)
    return Reading(workbook, report, study, Path(templates)).check()


def main():
    kind, workbook, study, library, templates, reports.DESIGNER = sys.argv[1:]
    faults = faults_of(kind, workbook, Study(study, library), templates)
    print("\n".join(faults[:20]))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
