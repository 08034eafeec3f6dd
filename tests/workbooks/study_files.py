"""The files of a study, decoded and made as docs/file-formats.md has them."""

import struct
from collections import namedtuple
from pathlib import Path

CODE_PAGE = "cp1253"


class RecordType:
    """Records of fixed width: fields as "name code", codes of struct but `t` for a text."""

    def __init__(self, name, size, *fields):
        names, codes = zip(*(field.split() for field in fields))
        self.layout = struct.Struct("<" + "".join(code.replace("t", "s") for code in codes))
        self.texts = [code.endswith("t") for code in codes]
        self.tuple = namedtuple(name, names)
        if self.layout.size != size:
            raise ValueError(f"a {name} of {self.layout.size} bytes")

    def read(self, path):
        data = Path(path).read_bytes()
        return [self._decode(values) for values in self.layout.iter_unpack(data)]

    def _decode(self, values):
        return self.tuple(*(
            value.decode(CODE_PAGE) if is_text else value
            for value, is_text in zip(values, self.texts)
        ))

    def write(self, path, records):
        Path(path).write_bytes(b"".join(map(self._encode, records)))

    def _encode(self, record):
        widths = iter(self._text_widths())
        return self.layout.pack(*(
            value.encode(CODE_PAGE).ljust(next(widths)) if is_text else value
            for value, is_text in zip(record, self.texts)
        ))

    def _text_widths(self):
        return [int(part) for part in _numbers_before_s(self.layout.format)]

    def blank(self, **values):
        empty = self.tuple(*("" if is_text else 0 for is_text in self.texts))
        return empty._replace(**values)


def _numbers_before_s(layout):
    number = ""
    for letter in layout:
        if letter == "s":
            yield number
        number = number + letter if letter.isdigit() else ""


SECTION = RecordType(
    "Section", 355,
    "RecordNumber h", "SectionNo h", "Client 51t", "Thema 78t", "Units 8t", "Material 78t",
    "MeanTemp f", "BurChil h", "ANOIK h", "KLEIS h", "FileNumber h", "TOT h", "MeanVel f",
    "Outlets h", "PAR f", "DP f", "INILAMDA f", "Name 7t", "WaterFlow f", "Length f",
    "AnglePOP f", "Elbow90 f", "GateValve h", "StrSwitch h", "AngSwitch h", "DiaTee h",
    "DieTee h", "AntiTee h", "SymboTee h", "CheckValve h", "OtherDrop_mm f", "OtherDrop_m f",
    "NomiDiam 15t", "Velocity f", "Area f", "InDiameter f", "Reynolds f", "Lamda f",
    "FrictionRate f", "TotalDrop f", "Auxi h", "AvaiPres f", "SomaDrop f", "HeightDiff f",
)

PIPE = RecordType(
    "Pipe", 146,
    "title 78t", "pipe_id h", "material 30t", "nominal_diameter 12t", "reserved1 f",
    "inner_diameter f", "area f", "reserved2 f", "roughness f", "reserved3 f",
)

QUANTITY = RecordType(
    "Quantity", 265,
    "RecordNumber h", "Client 51t", "Thema 78t", "Units 8t", "PipeMaterial 78t",
    "NomiDiameter 12t", "InDiameter f", "Length f", "FluidVolume f", "Corners f", "Elbows f",
    "GlobeV f", "StraightV f", "CornerV f", "CheckV f",
)

FLUID = RecordType(
    "Fluid", 72,
    "row_number h", "name 50t", "mean_temperature f", "reserved1 f", "viscosity f", "density f",
    "reserved2 f",
)


class Study:
    """What is in the files of the study whose main file is at `path`."""

    def __init__(self, path, library):
        path = Path(path)
        self.open = path.suffix == ".PCA"
        self.rows = SECTION.read(path)
        self.fluid = FLUID.read(path.with_suffix(".LQD"))[0]
        self.pipe = PIPE.read(Path(library) / f"{self.rows[0].FileNumber:04}.WPT")[0]
        quantities = path.with_suffix(".STO" if self.open else ".STC")
        self.quantities = QUANTITY.read(quantities) if quantities.exists() else []
