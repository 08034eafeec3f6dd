#!/usr/bin/python3
"""Makes the template workbooks of data/templates; needs Debian's python3-xlwt.

usage: tools/templates.py [FOLDER | --check]
       --check  makes them aside, and fails when one is not the same bytes as the one that is there

What goes into which cell is said in results/reports/; the cells named there are left empty here.
Made again, the workbooks are the same bytes.
"""

import sys
import tempfile
from dataclasses import dataclass
from pathlib import Path

import xlwt

PASSWORD = "(*40731862*)"  # results/reports/report_writer.cpp has the same
FONT = "Noto Sans"

# Sizes in points.
BODY, HEADS, TITLE, FIGURES = 8.5, 7.5, 15, 9.5
ROW_HEIGHT = 12.9  # 4.55 mm

# Widths are counted in digits of the workbook's first font. At this size a digit is 8 dots of 1/96
# inch, so programs that round it to whole dots agree with those that do not.
FIRST_FONT = 10.5
DIGIT_MM = 0.572 * FIRST_FONT * 25.4 / 72

INK, GREY, RULE, ZEBRA = 0x20, 0x21, 0x22, 0x23  # places in the palette
PALETTE = {INK: 0x15202B, GREY: 0x445361, RULE: 0x9AA7B1, ZEBRA: 0xF4F6F8}

WHOLE = "0"
PLAIN = "General"
ONE = "#,##0.0"
TWO = "#,##0.00"


def dash_for_zero(pattern):
    return f'{pattern};-{pattern};"–"'


@dataclass(frozen=True)
class Look:
    """How a cell looks; borders are (line, colour)."""

    size: float = BODY
    bold: bool = False
    colour: int = INK
    align: str = "left"
    indent: int = 0
    number: str = PLAIN
    fill: bool = False
    above: tuple = None
    below: tuple = None

    def but(self, **changes):
        return Look(**{**self.__dict__, **changes})


THIN_RULE = (xlwt.Borders.THIN, RULE)
HAIR_RULE = (xlwt.Borders.HAIR, RULE)
THIN_INK = (xlwt.Borders.THIN, INK)
MEDIUM_INK = (xlwt.Borders.MEDIUM, INK)

TEXT = Look()
SMALL = Look(size=HEADS, colour=GREY)
LABEL = Look(size=FIGURES, bold=True)
UNIT = Look(colour=GREY, align="right", indent=1)
FIGURE = Look(size=FIGURES, bold=True, align="right", indent=1)


@dataclass(frozen=True)
class Column:
    """A column of a sheet: its width, the lines of its head, and how its cells look."""

    mm: float
    head: tuple = ()
    unit: str = ""
    number: str = PLAIN
    align: str = "right"
    indent: int = 1
    colour: int = INK

    def cell(self):
        indent = self.indent if self.align == "right" else 0
        return Look(align=self.align, indent=indent, number=self.number, colour=self.colour)


def number_column(mm):
    return Column(mm, ("α/α",), number=WHOLE, colour=GREY)


def count(mm, *head):
    return Column(mm, head, "[τεμ.]", dash_for_zero(PLAIN), indent=2 if mm > 16 else 1)


def name(mm):
    return Column(mm, ("ΟΝΟΜΑΣΙΑ", "ΤΜΗΜΑΤΟΣ"), align="center")


def length(mm, number):
    return Column(mm, ("ΜΗΚΟΣ", "ΤΜΗΜΑΤΟΣ"), "[m]", number)


RESULTS = [
    Column(5),
    number_column(12),
    name(26),
    length(22, ONE),
    Column(31, ("ΠΑΡΟΧΗ",), "[Lit/h]", ONE),
    Column(24, ("ΤΑΧΥΤΗΤΑ",), "[m/sec]", "0.00"),
    Column(30, ("ΟΝΟΜΑΣΤΙΚΗ", "ΔΙΑΜΕΤΡΟΣ"), align="center"),
    Column(29, ("ΔΙΑΘΕΣΙΜΗ", "ΠΙΕΣΗ"), "[mm w.g.]", ONE),
]


def fittings(corner, bend, valve, straight, angle, tee, check, drop):
    return [
        count(corner, "ΓΩΝΙΕΣ"),
        count(bend, "ΚΑΜΠΥ-", "ΛΕΣ 90°"),
        count(valve, "ΒΑΝΝΕΣ"),
        count(straight, "ΕΥΘΕΙΣ", "ΡΥΘΜ.", "ΔΙΑΚ."),
        count(angle, "ΓΩΝ.", "ΡΥΘΜ.", "ΔΙΑΚ."),
        count(tee, "", "ΔΙΑΚΛΑ-", "ΔΩΣΗ"),
        count(tee, "", "ΔΙΕΛΕΥ-", "ΣΗ"),
        count(tee, "", "ΑΝΤΙΡ-", "ΡΟΗ"),
        count(tee, "", "ΣΥΜΒΟ-", "ΛΗ"),
        count(check, "ΒΑΛΒ.", "ΑΝΤΕΠΙ-", "ΣΤΡΟΦ."),
        Column(drop, ("ΑΛΛΗ", "ΠΤΩΣΗ"), "[mm w.g.]", dash_for_zero(ONE)),
        Column(drop, ("ΑΛΛΗ", "ΠΤΩΣΗ"), "[ισοδ. m]", dash_for_zero(ONE)),
    ]


CLOSED_DATA = [
    number_column(10),
    name(19),
    length(19, TWO),
    Column(22, ("ΠΑΡΟΧΗ",), "[Lit/h]", ONE),
    Column(19, ("ΠΤΩΣΗ", "ΣΩΜΑΤΟΣ"), "[mm w.g.]", dash_for_zero(ONE)),
    *fittings(corner=14, bend=14, valve=14, straight=13, angle=13, tee=14, check=15, drop=19),
]

OPEN_DATA = [
    number_column(10),
    name(18),
    length(18, TWO),
    Column(20, ("ΠΑΡΟΧΗ",), "[Lit/h]", ONE),
    Column(18, ("ΠΙΕΣΗ", "ΡΟΗΣ"), "[m w.g.]", dash_for_zero(TWO)),
    Column(17, ("ΥΨΟΜΕΤΡ.", "ΔΙΑΦΟΡΑ"), "[m]", dash_for_zero(TWO)),
    *fittings(corner=12.5, bend=12.5, valve=13, straight=12, angle=12, tee=13, check=14, drop=18.5),
]

QUANTITIES = [
    number_column(10),
    Column(29, ("ΟΝΟΜΑΣΤΙΚΗ", "ΔΙΑΜΕΤΡΟΣ"), align="center"),
    Column(23, ("ΣΥΝΟΛΙΚΟ", "ΜΗΚΟΣ"), "[m]", dash_for_zero(TWO)),
    count(18, "ΓΩΝΙΕΣ", "90°"),
    count(18, "ΚΑΜΠΥΛΕΣ", "90°"),
    count(18, "ΠΛΗΘΟΣ", "ΒΑΝΝΩΝ"),
    count(21, "ΕΥΘΕΙΣ", "ΔΙΑΚΟΠΤΕΣ"),
    count(21, "ΓΩΝΙΑΚΟΙ", "ΔΙΑΚΟΠΤΕΣ"),
    count(21, "ΒΑΛΒΙΔΕΣ", "ΑΝΤΕΠ/ΦΗΣ"),
]


@dataclass(frozen=True)
class Page:
    """The page of a report, in rows that count from 1."""

    height: int
    lines: int
    first_line: int
    head_lines: int  # above the line of the units
    landscape: bool = False
    bottom_mm: float = 15


PORTRAIT = Page(59, 40, 18, 2)
LANDSCAPE = Page(39, 20, 18, 3, landscape=True, bottom_mm=19)
PORTRAIT_QUANTITIES = Page(59, 39, 19, 2)


class Template:
    """A sheet on which cells are written; rows and columns count from 1."""

    def __init__(self, book, sheet_name, columns, page):
        self.book, self.columns, self.page = book, columns, page
        self.last = len(columns)
        self.sheet = book.workbook.add_sheet(sheet_name)
        self._set_up_paper()
        for number, column in enumerate(columns):
            self.sheet.col(number).width = round(column.mm / DIGIT_MM * 256)
        for number in range(page.height):
            row = self.sheet.row(number)
            row.height = round(ROW_HEIGHT * 20)
            row.height_mismatch = True

    def _set_up_paper(self):
        sheet = self.sheet
        sheet.portrait = not self.page.landscape
        sheet.paper_size_code = 9  # A4
        sheet.print_scaling = 100
        sheet.print_centered_horz = False
        sheet.left_margin = sheet.right_margin = 15 / 25.4
        sheet.top_margin = 13 / 25.4
        sheet.bottom_margin = self.page.bottom_mm / 25.4
        sheet.header_margin = sheet.footer_margin = 9 / 25.4
        sheet.header_str = b""
        # Its setter takes ASCII only.
        sheet._Worksheet__footer_str = f'&R&"{FONT},Regular"&8Σελίδα &P από &N'
        sheet.show_grid = False
        sheet.protect = sheet.obj_protect = sheet.scen_protect = True
        sheet.password = PASSWORD

    def put(self, row, column, text, look, last=None):
        """A cell, merged with those up to column `last` of its row."""
        self.put_high(row, row, column, text, look, last or column)

    def put_high(self, row, last_row, column, text, look, last):
        style = self.book.style(look)
        if (row, column) == (last_row, last):
            self.sheet.write(row - 1, column - 1, text, style)
        else:
            self.sheet.write_merge(row - 1, last_row - 1, column - 1, last - 1, text, style)

    def put_across(self, row, text, look):
        self.put(row, 1, text, look, self.last)

    def put_top(self, caption):
        """What every report has at the top: designer, caption, title of the study."""
        self.put_across(1, "", TEXT.but(colour=GREY, below=THIN_RULE))
        self.put_across(3, caption, SMALL)
        self.put_high(4, 5, 1, "", Look(size=TITLE, bold=True), self.last)

    def put_figure(self, row, column, label, unit, number):
        """A value in the column, its unit and label in front of it, the label from `label[0]`."""
        first, text = label
        self.put(row, first, text, LABEL, column - 2)
        self.put(row, column - 1, unit, UNIT)
        self.put(row, column, "", FIGURE.but(number=number))

    def put_table(self, first_column=1):
        for number in range(first_column, self.last + 1):
            self._put_head(number, self.columns[number - 1])
            self._put_cells(number, self.columns[number - 1])

    def _put_head(self, number, column):
        head = Look(size=HEADS, bold=True, align="center")
        top = self.page.first_line - 1 - self.page.head_lines
        for line in range(self.page.head_lines):
            text = column.head[line] if line < len(column.head) else ""
            look = head.but(above=MEDIUM_INK) if line == 0 else head
            if line > 0 or text:  # else one head is above several columns
                self.put(top + line, number, text, look)
        unit = Look(size=HEADS, colour=GREY, align="center", below=THIN_INK)
        self.put(self.page.first_line - 1, number, column.unit, unit)

    def put_head_of_tees(self, first_column):
        top = self.page.first_line - 1 - self.page.head_lines
        look = Look(size=HEADS, bold=True, align="center", above=MEDIUM_INK, below=HAIR_RULE)
        self.put(top, first_column, "< ΤΑΥ > ΣΕ", look, first_column + 3)

    def _put_cells(self, number, column):
        for line in range(1, self.page.lines + 1):
            look = column.cell().but(fill=line % 2 == 0)
            if line == self.page.lines:
                look = look.but(below=MEDIUM_INK)
            elif line % 5 == 0:
                look = look.but(below=HAIR_RULE)
            self.put(self.page.first_line - 1 + line, number, "", look)

    def put_key(self, column, text):
        self.put(self.page.first_line + self.page.lines, column, text, SMALL, self.last)


class Book:
    def __init__(self):
        self.workbook = xlwt.Workbook(encoding="utf-8", style_compression=2)
        self.styles = {}
        for place, colour in PALETTE.items():
            self.workbook.set_colour_RGB(place, colour >> 16, colour >> 8 & 0xFF, colour & 0xFF)

    def style(self, look):
        if look not in self.styles:
            self.styles[look] = self._make_style(look)
        return self.styles[look]

    @staticmethod
    def _make_style(look):
        style = xlwt.XFStyle()
        style.num_format_str = look.number
        style.font = xlwt.Font()
        style.font.height = round(look.size * 20)
        style.font.bold = look.bold
        style.font.colour_index = look.colour
        style.alignment.horz = {
            "left": xlwt.Alignment.HORZ_LEFT,
            "center": xlwt.Alignment.HORZ_CENTER,
            "right": xlwt.Alignment.HORZ_RIGHT,
        }[look.align]
        style.alignment.vert = xlwt.Alignment.VERT_CENTER
        style.alignment.inde = look.indent
        # What is too long for its cell gets smaller, never cut off.
        style.alignment.shri = xlwt.Alignment.SHRINK_TO_FIT
        if look.fill:
            style.pattern.pattern = xlwt.Pattern.SOLID_PATTERN
            style.pattern.pattern_fore_colour = ZEBRA
        if look.above:
            style.borders.top, style.borders.top_colour = look.above
        if look.below:
            style.borders.bottom, style.borders.bottom_colour = look.below
        return style

    def save(self, path):
        self.workbook.save(str(path))


def results():
    book = Book()
    sheet = Template(book, "Αποτελέσματα", RESULTS, PORTRAIT)
    sheet.put_top("ΥΠΟΛΟΓΙΣΜΟΣ ΣΩΛΗΝΩΝ – ΑΠΟΤΕΛΕΣΜΑΤΑ")
    sheet.put(6, 1, "", TEXT.but(below=THIN_RULE), 6)
    sheet.put(6, 7, "", Look(bold=True, align="right", below=THIN_RULE), 8)
    for row in (8, 9):
        sheet.put_across(row, "", TEXT)
    sheet.put_across(10, "", TEXT.but(below=THIN_RULE))
    sheet.put_figure(12, 8, (1, "Παροχή Αντλίας"), "m³/h", TWO)
    sheet.put_figure(13, 8, (1, "Μανομετρικό Ύψος Αντλίας"), "m w.g.", TWO)
    sheet.put_table(first_column=2)
    sheet.put_key(2, "(  ) : διάμετρος που έχει ορίσει ο μελετητής")
    return book


def data(sheet_name, columns, kind, first_tee):
    book = Book()
    last = len(columns)
    sheet = Template(book, sheet_name, columns, LANDSCAPE)
    sheet.put_top("ΥΠΟΛΟΓΙΣΜΟΣ ΣΩΛΗΝΩΝ – ΔΕΔΟΜΕΝΑ")
    sheet.put(6, 1, kind, Look(bold=True, below=THIN_RULE), 5)
    sheet.put(6, 6, "", TEXT.but(below=THIN_RULE), last)
    sheet.put_across(8, "", TEXT)
    sheet.put_across(9, "", TEXT.but(below=THIN_RULE))
    sheet.put_figure(11, 6, (1, "Μέση Θερμοκρασία"), "°C", "0.0")
    sheet.put_figure(12, 6, (1, "Πλήθος Τμημάτων"), "", WHOLE)
    sheet.put_figure(11, last - 1, (9, "Συνολική Παροχή"), "m³/h", TWO)
    sheet.put_figure(12, last - 1, (9, "Μέση Ταχύτητα"), "m/sec", "0.00")
    sheet.put_table()
    sheet.put_head_of_tees(first_tee)
    sheet.put_key(1, "–  : μηδέν")
    return book


def closed_data():
    return data("Δεδομένα κλειστού", CLOSED_DATA, "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ", first_tee=11)


def open_data():
    return data("Δεδομένα ανοικτού", OPEN_DATA, "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ", first_tee=12)


def quantities():
    book = Book()
    # Further pages are copies of the second sheet, which is hidden: whoever prints the whole
    # workbook would get it as an empty page.
    for sheet_name, hidden in (("Sheet1", 0), ("Sheet2", 1)):
        sheet = Template(book, sheet_name, QUANTITIES, PORTRAIT_QUANTITIES)
        sheet.sheet.visibility = hidden
        sheet.put_top("ΥΠΟΛΟΓΙΣΜΟΣ ΣΩΛΗΝΩΝ – ΠΡΟΜΕΤΡΗΣΗ ΣΩΛΗΝΩΝ ΚΑΙ ΕΞΑΡΤΗΜΑΤΩΝ")
        sheet.put_across(6, "", TEXT.but(below=THIN_RULE))
        sheet.put_across(8, "", TEXT)
        sheet.put_across(9, "", TEXT)
        sheet.put_across(10, "", TEXT.but(below=THIN_RULE))
        sheet.put_figure(12, 8, (1, "Παροχή Αντλίας"), "m³/h", TWO)
        sheet.put_figure(13, 8, (1, "Μανομετρικό Ύψος Αντλίας"), "m w.g.", TWO)
        sheet.put_table()
        sheet.put_key(1, "–  : μηδέν")
    return book


TEMPLATES = {
    "KALV_RS.xls": results,
    "KALV_CD.xls": closed_data,
    "KALV_OD.xls": open_data,
    "KALV_PR.xls": quantities,
}


def use_font():
    """Every font of a workbook, the first too, which xlwt cannot be told of otherwise."""
    make = xlwt.Font.__init__

    def make_own(font):
        make(font)
        font.name = FONT
        font.height = round(FIRST_FONT * 20)
        font.charset = xlwt.Font.CHARSET_SYS_DEFAULT

    xlwt.Font.__init__ = make_own


def make_all(folder):
    use_font()
    for file_name, make in TEMPLATES.items():
        make().save(folder / file_name)


def names_of_odd_ones(folder):
    """Templates in the folder that are not what this script makes, and those that only one has."""
    with tempfile.TemporaryDirectory() as made:
        made = Path(made)
        make_all(made)
        there = {path.name for path in folder.glob("*.xls")}
        return sorted(
            name for name in there | set(TEMPLATES)
            if name not in there or name not in TEMPLATES
            or (folder / name).read_bytes() != (made / name).read_bytes()
        )


def main():
    own = Path(__file__).parent.parent / "data/templates"
    if sys.argv[1:] == ["--check"]:
        odd = names_of_odd_ones(own)
        sys.exit(f"not as tools/templates.py makes them: {', '.join(odd)}" if odd else 0)
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else own
    folder.mkdir(parents=True, exist_ok=True)
    make_all(folder)


if __name__ == "__main__":
    main()
