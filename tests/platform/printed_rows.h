#pragma once

#include <limits>
#include <string>
#include <vector>

#include "results/printing/print_columns.h"

namespace kalvo {

/// So many sections with Greek texts, negative and extreme numbers, and all that a diameter can be.
inline std::vector<SectionRow> PrintedRows(int count) {
  std::vector<SectionRow> rows(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    SectionRow& row = rows[static_cast<std::size_t>(i)];
    const auto number = static_cast<std::int16_t>(i + 1);
    row.RecordNumber = row.SectionNo = number;
    row.Thema = FixedText<78>::FromUtf8("  Ξενοδοχείο \"Αύρα\", όροφος " + std::to_string(i));
    row.Material = FixedText<78>::FromUtf8(i % 2 == 0 ? "STEEL" : "Χαλκοσωλήνας");
    row.ANOIK = -1;
    row.Auxi = i % 3 == 0 ? std::numeric_limits<std::int16_t>::min() : std::int16_t{2};
    row.Name = FixedText<7>::FromUtf8(" " + std::to_string(i % 100) + "/ΑΒ ");
    row.NomiDiam = FixedText<15>::FromUtf8("1 1/4");
    row.InDiameter = static_cast<float>(i % 3 - 1) * 35.9F;
    row.Velocity = 0.1F * static_cast<float>(i);
    row.Area = 0.00101223F;
    row.AvaiPres = -1234.567F;
    row.Reynolds = std::numeric_limits<float>::max();
    row.Lamda = std::numeric_limits<float>::min();
  }
  return rows;
}

/// The table of such rows.
inline PrintTable PrintedTable(int count) {
  return PrintedSections(PrintedRows(count), "Ωμέγα & Υιοί");
}

}  // namespace kalvo
