#include "cli/outlets_command.h"

#include "cli/study_run.h"
#include "cli/text_table.h"
#include "engine/notes.h"
#include "engine/outlets.h"
#include "study/by_number.h"
#include "study/numeric_text.h"

namespace kalvo {

int OutletsCommand::RunOn(const Console& console, Session& session) {
  if (session.study().SystemClosed()) {
    return RefuseKind(console, session, file());
  }
  const std::vector<SectionRow> rows = session.Rows();
  TextTable table({{"α/α", ""},
                   {"Υποδοχέας", "", true},
                   {"Παροχή", "l/h"},
                   {"Πίεση ροής", "m w.g."},
                   {"Ύψος", "m"}},
                  2);
  std::vector<int> without_values;
  for (const int number : FindOutlets(rows)) {
    const SectionRow& row = ByNumber(rows, number);
    const auto text = [&](float value, int decimals) {
      return row.HasEmitter() ? WithDecimals(value, decimals, console.separators) : "---";
    };
    table.Add({std::to_string(number), FromCodePage(row.Name.bytes()), text(row.WaterFlow, 1),
               text(row.SomaDrop, 2), text(row.HeightDiff, 2)});
    if (!row.HasEmitter()) {
      without_values.push_back(number);
    }
  }
  table.Print(console);
  if (!without_values.empty() && !console.quiet) {
    PrintWrapped(console, "Υποδοχείς χωρίς τιμές : " + NumberRanges(without_values));
  }
  return exit_code::kDone;
}

}  // namespace kalvo
