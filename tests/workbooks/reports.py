"""What each report has on its pages: the cells that are filled, and how they look.

Rows and columns count from 1.
"""

import struct
from dataclasses import dataclass

WHOLE = "0"
PLAIN = "General"
ONE = "#,##0.0"
TWO = "#,##0.00"
HUNDREDTHS = "0.00"


def dashed(pattern):
    """Of a column that shows a dash for zero."""
    return f'{pattern};-{pattern};"–"'


def single(number):
    """A number of 32 bits as it is written down, with 7 digits."""
    (stored_number,) = struct.unpack("<f", struct.pack("<f", number))
    return float(f"{stored_number:.7g}")


@dataclass(frozen=True)
class Report:
    template: str
    page_rows: int
    lines: int  # of a page's table
    first_line: int
    head: tuple  # (row, column, value of a study, number format or None)
    columns: tuple  # (column, value of a line, number format or None)
    lines_of: callable = lambda study: study.rows
    sheets: int = 1
    gap_points: float = 0  # height of the row before a new page


def stored(field):
    return lambda row: single(getattr(row, field))


def columns(first, fields):
    return tuple(
        (first + place, stored(field), pattern) for place, (field, pattern) in enumerate(fields)
    )


def diameter(row):
    if row.InDiameter == 0:
        return None
    name = row.NomiDiam.strip()
    return name if row.InDiameter > 0 else f"({name})"


def kind(study):
    return ("ΑΝΟΙΚΤΟ" if study.open else "ΚΛΕΙΣΤΟ") + " ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ"


METHODS = {
    1: "Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες >",
    2: "Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και Τροποποίηση των "
       "Διαμέτρων >",
}


def method(study):
    return None if study.open else METHODS.get(study.rows[0].INILAMDA)


def title(study):
    return study.rows[0].Thema.strip()


def fluid(study):
    return "Υγρό : " + study.fluid.name.strip()


def pipe_title(study):
    return study.pipe.title.strip()


def material(study):
    word = study.pipe.material.strip()
    return "Υλικό Σωλήνων : " + {"STEEL": "ΧΑΛΥΒΑΣ", "COPPER": "ΧΑΛΚΟΣ"}.get(word, word)


def emitter_flow(study):
    litres = sum(single(row.WaterFlow) for row in study.rows if row.SomaDrop != 0)
    return float(f"{litres / 1000:.15g}")


def pump(row):
    return (
        (row, 8, lambda study: single(study.rows[0].PAR), TWO),
        (row + 1, 8, lambda study: single(study.rows[0].DP / 1000), TWO),
    )


DESIGNER = "Μ. Μηχανικός & Συνεργάτες"

RESULTS = Report(
    template="KALV_RS.xls", page_rows=59, lines=40, first_line=18,
    head=(
        (1, 1, lambda study: "Μελετητής : " + DESIGNER, None),
        (4, 1, title, None),
        (6, 7, kind, None),
        (8, 1, lambda study: "Είδος Σωλήνων : " + pipe_title(study), None),
        (9, 1, method, None),
        (10, 1, fluid, None),
        *pump(12),
    ),
    columns=(
        (2, stored("RecordNumber"), WHOLE),
        (3, lambda row: row.Name, None),
        (4, stored("Length"), ONE),
        (5, stored("WaterFlow"), ONE),
        (6, stored("Velocity"), HUNDREDTHS),
        (7, diameter, None),
        (8, stored("AvaiPres"), ONE),
    ),
)

FITTINGS = [
    *((field, dashed(PLAIN)) for field in (
        "AnglePOP", "Elbow90", "GateValve", "StrSwitch", "AngSwitch", "DiaTee", "DieTee",
        "AntiTee", "SymboTee", "CheckValve")),
    ("OtherDrop_mm", dashed(ONE)),
    ("OtherDrop_m", dashed(ONE)),
]


def data_report(template, fields, last_figure):
    return Report(
        template=template, page_rows=39, lines=20, first_line=18,
        head=(
            (1, 1, lambda study: "Μελετητής : " + DESIGNER, None),
            (4, 1, title, None),
            (6, 6, fluid, None),
            (8, 1, lambda study: f"{material(study)}  /  Τυποποίηση Σωλήνων : {pipe_title(study)}",
             None),
            (11, 6, lambda study: single(study.rows[0].MeanTemp), "0.0"),
            (12, 6, lambda study: len(study.rows), WHOLE),
            (11, last_figure, emitter_flow, TWO),
            (12, last_figure, lambda study: single(study.rows[0].MeanVel), HUNDREDTHS),
        ),
        columns=(
            (1, stored("RecordNumber"), WHOLE),
            (2, lambda row: row.Name, None),
            *columns(3, [("Length", TWO), ("WaterFlow", ONE), *fields, *FITTINGS]),
        ),
    )


CLOSED_DATA = data_report("KALV_CD.xls", [("SomaDrop", dashed(ONE))], 16)
OPEN_DATA = data_report(
    "KALV_OD.xls", [("SomaDrop", dashed(TWO)), ("HeightDiff", dashed(TWO))], 17)

QUANTITIES = Report(
    template="KALV_PR.xls", page_rows=59, lines=39, first_line=19,
    head=(
        (1, 1, lambda study: "Μελέτη : " + DESIGNER, None),
        (4, 1, title, None),
        (8, 1, material, None),
        (9, 1, pipe_title, None),
        *pump(12),
    ),
    columns=(
        (1, stored("RecordNumber"), WHOLE),  # its lines are numbered like their sizes
        (2, lambda line: line.NomiDiameter.strip(), None),
        *columns(3, [("Length", dashed(TWO)), *((field, dashed(PLAIN)) for field in (
            "Corners", "Elbows", "GlobeV", "StraightV", "CornerV", "CheckV"))]),
    ),
    lines_of=lambda study: study.quantities, sheets=2, gap_points=7,
)


def report_of(kind_of_report, study):
    """By the word that `kalvo report --kind` takes."""
    if kind_of_report == "data":
        return OPEN_DATA if study.open else CLOSED_DATA
    return {"results": RESULTS, "quantities": QUANTITIES}[kind_of_report]
