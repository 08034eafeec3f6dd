#!/usr/bin/env python3
"""Makes template.xls, a workbook of another program's making for the tests (python3-xlwt).

59 rows by 9 columns on the sheet that is filled, a second sheet of two rows, and a picture.
"""

import pathlib
import struct

import xlwt

HERE = pathlib.Path(__file__).parent
HEAD = ("Α/Α", "Τμήμα", "Μήκος", "Παροχή", "Ταχύτητα", "Διάμετρος", "Πίεση", "Σύνολο", "°C")


def bitmap(width, height):
    """A picture of one colour, 24 bits for each of its points."""
    row = (b"\xC0\x60\x20" * width).ljust((3 * width + 3) // 4 * 4, b"\0")
    pixels = row * height
    return (b"BM" + struct.pack("<IHHI", 54 + len(pixels), 0, 0, 54) +
            struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(pixels), 0, 0, 0, 0) +
            pixels)


def main():
    book = xlwt.Workbook(encoding="utf-8")
    book.set_colour_RGB(0x21, 0x12, 0x34, 0x56)
    sheet = book.add_sheet("Αποτελέσματα")
    title = xlwt.easyxf("font: name Arial, bold on, height 280; align: horiz center, vert center, wrap on")
    head = xlwt.easyxf(
        "font: italic on, colour 0x21; align: horiz center; borders: left thin, right thin, "
        "top medium, bottom double; pattern: pattern solid, fore_colour ice_blue")
    whole = xlwt.easyxf("borders: left thin, right hair", num_format_str="0")
    tenth = xlwt.easyxf("borders: right thin", num_format_str="#,##0.0")
    three = xlwt.easyxf("borders: right thin", num_format_str='0.000" mm"')
    text = xlwt.easyxf("align: horiz left, indent 2", num_format_str="@")

    sheet.write_merge(0, 1, 0, 8, "Μελέτη δικτύου", title)
    sheet.write(3, 0, "Ημερομηνία", text)
    for column, name in enumerate(HEAD):
        sheet.write(16, column, name, head)
        sheet.col(column).width = 256 * (6 + column)
    for row in range(17, 57):
        sheet.row(row).height = 300
        sheet.row(row).height_mismatch = True
        for column in range(9):
            sheet.write(row, column, None, (whole, text, tenth, tenth, three)[min(column, 4)])
    sheet.write(57, 0, 12.5, tenth)
    sheet.write(57, 1, 7, whole)
    sheet.write(57, 2, True)
    sheet.write(57, 3, xlwt.Formula("A58*2"), tenth)
    sheet.write_merge(58, 58, 0, 8, "Σελίδα", title)
    sheet.row(58).height = 400
    sheet.row(58).height_mismatch = True
    sheet.insert_bitmap_data(bitmap(8, 8), 3, 6)
    sheet.portrait = True
    sheet.paper_size_code = 9
    sheet.set_print_scaling(85)
    sheet.left_margin = sheet.right_margin = 0.5
    sheet.top_margin = 0.75
    sheet.header_str = b""
    # xlwt 1.3 takes no Greek through its property.
    sheet._Worksheet__footer_str = "&Lκτίριο&RΣελίδα &P / &N"
    sheet.print_centered_horz = True
    sheet.horz_page_breaks = [(59, 0, 255)]

    page = book.add_sheet("Sheet2")
    page.write(0, 0, "άλλη σελίδα", title)
    page.write_merge(1, 1, 2, 4, "συγχώνευση", head)
    page.row(1).height = 500
    page.row(1).height_mismatch = True
    page.portrait = False
    page.protect = True
    page.password = "xx"
    book.save(str(HERE / "template.xls"))


if __name__ == "__main__":
    main()
