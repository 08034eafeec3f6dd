#!/usr/bin/env python3
"""Makes the first inputs in fuzz/corpus/<target>/.

The calculation's are sample studies; those named found_* once broke the target they belong to.
"""

import pathlib
import struct

CORPUS = pathlib.Path(__file__).parent / "corpus"


def text(value, width):
    return value.encode("cp1253").ljust(width)[:width]


def section(number, name, closed=True, drop=0.0, results=False, auxi=0):
    """A record of 355 bytes."""
    return b"".join([
        struct.pack("<hh", number, number), text("", 51), text("Δίκτυο", 78), text("", 8),
        text("STEEL", 78), struct.pack("<fhhhhhfh", 70, 1, 0 if closed else -1,
                                       -1 if closed else 0, 1, 3, 1, 2),
        struct.pack("<fff", *((0.6, 1500, 1) if results else (0, 0, 0))), text(name, 7),
        struct.pack("<ffff", 300, 4.5, 2, 1), struct.pack("<8h", *[1] * 8),
        struct.pack("<ff", 150, 0), text("3/4" if results else "", 15),
        struct.pack("<7f", *[0.5] * 7),
        struct.pack("<hfff", auxi, 100, drop, 0),
    ])


def statistics(number):
    """A record of 265 bytes."""
    return (struct.pack("<h", number) + text("", 51) + text("Δίκτυο", 78) + text("m", 8) +
            text("STEEL", 78) + text("3/4", 12) + struct.pack("<9f", *range(9)))


def fluid(number, name, temperature, viscosity, density):
    """A record of 72 bytes."""
    return struct.pack("<h", number) + text(name, 50) + struct.pack(
        "<5f", temperature, 0, viscosity, density, 0)


def pipe(number, material):
    """A record of 146 bytes."""
    return (text("Σωλήνες", 78) + struct.pack("<h", number) + text(material, 30) +
            text(f"{number} in", 12) + struct.pack("<6f", 0, 10 * number, 78 * number, 0, 0.045, 0))


def scrambled(plain):
    """A field of the designers' file, padded before."""
    state, made = 0x0CCE121C, []
    for byte in plain:
        state = (state * 1664525 + 1013904223) % 2**32
        made.append((byte + (state >> 24)) % 256)
    return bytes(made)


def designer(number, name, password="", scramble=scrambled):
    """A record of 100 bytes."""
    return struct.pack("<h", number) + scramble(text(name, 78)) + scramble(text(password, 20))


def sheet(body):
    """The bytes of a section sheet with that head and those rows."""
    digest = 0xCBF29CE484222325
    for byte in body:
        digest = (digest ^ byte) * 0x100000001B3 % 2**64
    return body + b"TELOS %x\n" % digest


def rows(closed, results):
    names = ("ANT/1  ", "  1/2  ", "  1/3  ") if closed else ("  1/ANT", "  2/1  ", "  3/1  ")
    return b"".join(
        section(i + 1, name, closed, 0.25 if i else 0, results, 1 if i == 0 else 0)
        for i, name in enumerate(names))


def change(place, value):
    """Another byte at a place of a database's shell."""
    return struct.pack(">I", place)[1:] + bytes([value])


def record(kind, body=b""):
    """A record of a workbook."""
    return struct.pack("<HH", kind, len(body)) + body


def workbook(cells, more=b""):
    """The stream of a workbook with one sheet."""
    def own(offset):
        return (record(0x809, struct.pack("<HH", 0x600, 5)) +
                record(0x31, struct.pack("<HHHHHBBBB", 200, 0, 32767, 400, 0, 0, 0, 0, 0) +
                       b"\5\0Arial") +
                record(0x41E, struct.pack("<HHB", 164, 5, 0) + b"0.0;@") +
                record(0xE0, struct.pack("<HHH", 0, 164, 1) + bytes(14)) +
                record(0x85, struct.pack("<IHBB", offset, 0, 1, 0) + b"A") + more +
                record(0xFC, struct.pack("<IIHB", 2, 2, 1, 1) + b"\xA9\3" +
                       struct.pack("<HBH", 2, 8, 1) + b"ab" + bytes(4)) + record(0x0A))
    return (own(len(own(0))) + record(0x809, struct.pack("<HH", 0x600, 0x10)) + cells +
            record(0x23E) + record(0x0A))


CELLS = (record(0x1B, struct.pack("<HHHH", 1, 59, 0, 255)) + record(0x15, b"\2\0\0&P") +
         record(0x12, b"\1\0") + record(0x7D, struct.pack("<6H", 0, 3, 2560, 0, 0, 0)) +
         record(0x200) + record(0x208, struct.pack("<6HI", 0, 0, 9, 300, 0, 0, 0xF0100)) +
         record(0x203, struct.pack("<HHHd", 0, 0, 0, -2.5)) +
         record(0xFD, struct.pack("<HHHI", 0, 1, 0, 1)) +
         record(0xBD, struct.pack("<HHHiHIH", 0, 2, 0, -10, 0, 0x3FF80001, 3)) +
         record(0xBE, struct.pack("<HHHHH", 0, 4, 0, 0, 5)) +
         record(0x06, struct.pack("<HHH", 0, 6, 0) + bytes(6) + b"\xFF\xFF" + bytes(6) +
                struct.pack("<HBHH", 5, 1, 0, 6)) +
         record(0x4BC, bytes(10)) + record(0x207, b"\1\0\0x") +
         record(0x205, struct.pack("<HHHBB", 0, 7, 0, 42, 1)) + record(0x1234, b"?") +
         record(0x3C, b"!") + record(0xE5, struct.pack("<HHHHH", 1, 0, 1, 0, 8)))
TEMPLATE = (pathlib.Path(__file__).parent.parent / "tests/platform/template.xls").read_bytes()

WATER = fluid(1, "Νερό", -10000, -10000, 1000)
GLYCOL = fluid(2, "Διάλυμα 25% Προπυλενικής Γλυκόλης σε Νερό", -6, 0.00085, 1260)
STEEL = b"".join(pipe(i, "STEEL") for i in (1, 2, 3))
SHEET_ROWS = ("1\t  1/ANT\t1\t/\tANT\t12,5" + "\t" * 12 + "\n" +
              "0\t" + " " * 7 + "\tΑ\t/\t1\t1.234,5" + "\t0" * 12 + "\n").encode()
SHEET_BODY = b"KALVOFLUME SHEET\t1\tOPEN\t,\t1\t2\n" + SHEET_ROWS
INTRO = "\"Σχολείο\"\n\"OPEN\"\n\"3.25\"\n\"70\"\n\"0.75\"\n\"2\"\n\"11\"\n"
JOURNAL = b"KALVOFLUME 1\nb.LQD\nb.PCK\nTELOS\n"

SEEDS = {
    "study_file": {
        "closed": b"\0" + rows(True, True),
        "open": b"\1" + rows(False, True),
        "entered": b"\0" + rows(True, False),
        "recovered": b"\2" + rows(True, True),
        "other_kind": b"\0" + rows(False, False),
        "cut": b"\0" + rows(True, True)[:500],
        "whole_records": b"\4" + rows(True, True) + b"rest",
    },
    "statistics_file": {
        "two": statistics(1) + statistics(2),
        "odd": statistics(1) + b"x",
        "none": b"",
    },
    "winter_rows": {"three": rows(True, True), "cut": rows(True, True)[:400], "none": b""},
    "fluid_file": {
        "one": b"\1" + GLYCOL,
        "library": b"\2" + WATER + GLYCOL + fluid(3, "Λάδι", 40, 46, 870),
        "odd": b"\2" + WATER + GLYCOL[:30],
    },
    "designer_names": {
        "two": b"\0" + designer(1, "Κ. Παπαδόπουλος", "κλειδί") + designer(2, "J. Smith", "κλειδί"),
        "plain": b"\1" + designer(1, "Άννα", "7", bytes) + designer(2, "Ώ" * 78, "7", bytes),
        "twice": b"\1" + designer(1, "Άννα", "", bytes) + designer(2, "Άννα", "", bytes),
        "odd": b"\0" + designer(1, "Άννα")[:70],
        "noise": b"\0" + designer(1, "Άννα", "", bytes),
        "none": b"\0",
    },
    "pipe_library": {
        "one": b"\0\0" + STEEL,
        "three": bytes((48, 16)) + STEEL + pipe(1, "COPPER") + STEEL,
        "odd": bytes((48, 9)) + STEEL + pipe(1, "COPPER"),
    },
    "numeric_text": {
        "greek": b"\0-1.234,5",
        "english": b"\x011,234.50",
        "mixed": b"\00012a",
        "two_points": b"\0001,2,3",
        "long": b"\1" + b"9" * 40,
        "float": b"\0" + struct.pack("<f", 0.35) + b"....",
        "double": b"\1" + struct.pack("<d", 1e-7),
        "infinite": b"\2" + struct.pack("<d", float("inf")),
    },
    "text_lines": {
        "utf8": "\"/μελέτες/Κτίριο.PCK\"\n\"/b.PCK\"\n".encode(),
        "code_page": "\"C:\\Κτίριο.PCK\"\r\n\r\nC:\\b.PCK".encode("cp1253"),
        "many": b"".join(b"\"/%d.PCK\"\n" % i for i in range(40)),
    },
    "sheet_file": {
        "whole": b"\0" + sheet(SHEET_BODY),
        "body": b"\1" + SHEET_BODY,
        "point": b"\3" + SHEET_BODY,
        "cut": b"\0" + sheet(SHEET_BODY)[:70],
        "short": b"\1" + SHEET_BODY.replace(b"\t1\t2\n", b"\t1\t9\n"),
        "escapes": b"\1" + SHEET_BODY.replace(b"ANT\t12,5", b"\\t\\n\\\\\t\\"),
        "empty": b"\1KALVOFLUME SHEET\t1\tNONE\t,\t0\t0\n",
        "newer": b"\1KALVOFLUME SHEET\t2\tx\n",
    },
    "sheet_intro": {
        "whole": INTRO.encode(),
        "code_page": INTRO.encode("cp1253").replace(b"\n", b"\r\n"),
        "unquoted": INTRO.replace("\"", "").encode(),
        "cut": INTRO.encode()[:40],
        "large": INTRO.replace("11", "70000").encode(),
    },
    "workbook": {
        "template": b"\0" + TEMPLATE,
        "cut": b"\0" + TEMPLATE[:4000],
        "newer": b"\0PK\3\4",
        "stream": b"\1" + workbook(CELLS),
        "encrypted": b"\1" + workbook(CELLS, record(0x2F, bytes(6))),
        "found_between_rows": b"\1" + workbook(
            record(0x208, struct.pack("<6HI", 0, 0, 0, 300, 0, 0, 0xF0100)) + record(0x1234) +
            record(0x203, struct.pack("<HHHd", 1, 0, 0, 1))),
        "found_no_look": b"\1" + workbook(
            record(0x208, struct.pack("<6HI", 0, 0, 0, 300, 0, 0, 0x90180))),
        "no_text": b"\1" + workbook(record(0xFD, struct.pack("<HHHI", 0, 1, 0, 99))),
        "continued": b"\1" + workbook(
            CELLS, record(0xFC, struct.pack("<IIHB", 1, 1, 4, 0) + b"ab") +
            record(0x3C, b"\1\xA9\3\xB1\3")),
    },
    "print_database": {
        "noise": b"\0" + bytes(range(256)),
        "newer": b"\0\0\1\0\0Standard ACE DB\0",
        "good": b"\1",
        "indexed": b"\1" + change(6 * 4096 + 47, 1),
        "many_columns": b"\1" + change(6 * 4096 + 46, 1),
        "map_elsewhere": b"\1" + change(6 * 4096 + 56, 6),
        "row_elsewhere": b"\1" + change(8 * 4096 + 15, 0x40),
        "cut": b"\2\x50\0" + change(0, 0),
    },
    "save_journal": {
        "whole": b"\3" + JOURNAL,
        "half_done": b"\2" + JOURNAL,
        "broken": b"\3" + JOURNAL[:-4],
        "foreign": b"\3" + JOURNAL.replace(b"b.LQD", b"a.PCK"),
        "outside": b"\3" + JOURNAL.replace(b"b.LQD", b"../b.PCK"),
        "empty": b"\3",
    },
}

for target, inputs in SEEDS.items():
    folder = CORPUS / target
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in inputs.items():
        (folder / name).write_bytes(content)
