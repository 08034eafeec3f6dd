"""Reads back what `kalvo report` writes of studies that fill pages exactly, and of one line more.

usage: reports_test.py KALVO SAMPLES LIBRARY TEMPLATES
"""

import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import reports
from read_workbook import faults_of
from study_files import PIPE, QUANTITY, SECTION, Study

DONE, NETWORK_IS_CUT = 0, 4  # what `kalvo` ends with when the file is written


class ReportsTest:
    def __init__(self, kalvo, samples, library, templates, folder):
        self.kalvo, self.samples, self.library = kalvo, Path(samples), Path(library)
        self.templates, self.folder = templates, Path(folder)
        self.faults = []

    def run(self):
        for sample in ("fancoil.PCK", "apartments.PCA"):
            self.calculate(sample)
            for kind in ("results", "data"):
                for count in (1, 20, 21, 40, 41, 62):
                    self.read_back(kind, self.first_rows(sample, count), self.library)
        for count in (1, 39, 40, 41, 79):
            study, library = self.sizes("fancoil.PCK", count)
            self.read_back("quantities", study, library)
        return self.faults

    def calculate(self, sample):
        self.call("calc", self.samples / sample, "--save", self.folder / sample)

    def call(self, *words, ends=(DONE,)):
        done = subprocess.run([self.kalvo, *map(str, words)], capture_output=True, text=True)
        if done.returncode not in ends:
            raise SystemExit(f"kalvo {words} ended with {done.returncode}: {done.stderr}")

    def first_rows(self, sample, count):
        """A study of the sample's first rows, in which no two columns are alike."""
        source = self.folder / sample
        study = source.with_name(f"first{count}{source.suffix}")
        rows = [self.told_apart(row, line)
                for line, row in enumerate(SECTION.read(source)[:count])]
        SECTION.write(study, rows)
        shutil.copy(source.with_suffix(".LQD"), study.with_suffix(".LQD"))
        return study

    @staticmethod
    def told_apart(row, line):
        counts = {field: (line * 7 + place * 3) % 11 for place, field in enumerate((
            "GateValve", "StrSwitch", "AngSwitch", "DiaTee", "DieTee", "AntiTee", "SymboTee",
            "CheckValve"))}
        numbers = {"AnglePOP": line % 3 / 2, "Elbow90": line % 4, "OtherDrop_mm": line * 1.1,
                   "OtherDrop_m": line % 5 * 0.1, "Length": 1234.567 + line * 0.1}
        marks = {1: {"InDiameter": -row.InDiameter}, 2: {"InDiameter": 0},
                 3: {"AvaiPres": -12.345678}, 4: {"NomiDiam": "Φ 22 x 1,5"}}
        return row._replace(**counts, **numbers, **marks.get(line % 7, {}))

    def sizes(self, sample, count):
        """A study whose pipe system has that many sizes, and the library with that system."""
        source = self.folder / sample
        study, library = source.with_name(f"sizes{count}.PCK"), self.folder / f"library{count}"
        for extension in (".PCK", ".LQD"):
            shutil.copy(source.with_suffix(extension), study.with_suffix(extension))
        shutil.copytree(self.library, library)
        system = library / f"{SECTION.read(study)[0].FileNumber:04}.WPT"
        first = PIPE.read(system)[0]
        PIPE.write(system, [
            first._replace(pipe_id=number, nominal_diameter=f"DN {number}",
                           inner_diameter=9.0 + number, area=60.0 + number)
            for number in range(1, count + 1)
        ])
        QUANTITY.write(study.with_suffix(".STC"), [
            QUANTITY.blank(RecordNumber=number, NomiDiameter=f"DN {number}", InDiameter=9.0 + number,
                           Length=(number % 4) * 333.3, Corners=number % 5, Elbows=number % 6 / 2,
                           GlobeV=number, StraightV=number % 7, CornerV=number % 8,
                           CheckV=number % 9)
            for number in range(1, count + 1)
        ])
        return study, library

    def read_back(self, kind, study, library):
        workbook = study.with_name(f"{study.stem}-{kind}.XLS")
        self.call("report", study, "--kind", kind, "--out", workbook, "--overwrite",
                  "--designer", reports.DESIGNER, "--library", library,
                  "--templates", self.templates, ends=(DONE, NETWORK_IS_CUT))
        faults = faults_of(kind, workbook, Study(study, library), self.templates)
        print(f"{kind} of {study.name}: {len(faults)} faults")
        self.faults += [f"{kind} of {study.name}, {fault}" for fault in faults[:20]]


def main():
    with tempfile.TemporaryDirectory() as folder:
        faults = ReportsTest(*sys.argv[1:], folder).run()
    print("\n".join(faults))
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
