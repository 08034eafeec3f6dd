#include "results/quantities.h"

#include <algorithm>

#include "engine/fittings.h"
#include "engine/sizing.h"
#include "study/numeric_text.h"
#include "study/pipe_list.h"
#include "study/study_proof.h"

namespace kalvo {
namespace {

bool IsListOf(const std::vector<StatRow>& lines, const std::vector<PipeRow>& pipes) {
  return std::ranges::equal(lines, pipes, [](const StatRow& line, const PipeRow& pipe) {
    return line.RecordNumber == pipe.pipe_id &&
           line.NomiDiameter.Trimmed() == pipe.nominal_diameter.Trimmed();
  });
}

// The list in memory, else that of the file; empty when there is neither.
Result<std::vector<StatRow>> StoredList(const Workspace& workspace, const Study& study) {
  const auto file = workspace.Rows<StatRow>(work_file::kStatistics);
  auto lines = study.PipeStats.empty() ? file.ReadAll() : study.PipeStats;
  if (!lines) return lines;
  if (const std::string bad = FirstBadNumber(*lines); !bad.empty()) {
    return FileError{file.path(), bad};
  }
  return lines;
}

}  // namespace

std::string Quantities::RecountText() const {
  const std::string counted = " : οι ποσότητες μετρήθηκαν εκ νέου από τα Τμήματα.";
  switch (recount) {
    case Recount::kForeign:
      return "Η προμέτρηση που έχει η Μελέτη ανήκει σε άλλους Σωλήνες" + counted;
    case Recount::kUnread:
      return "Η προμέτρηση που έχει η Μελέτη δεν διαβάζεται" + counted;
    case Recount::kNone:
      break;
  }
  return {};
}

Result<Quantities> ReadQuantities(const Workspace& workspace, const Study& study,
                                  std::string_view rows) {
  auto pipes = ReadPipeSystem(workspace, study.pipe_system_number);
  if (!pipes) return pipes.error();
  Quantities quantities;
  quantities.pipes = std::move(pipes).value();
  auto stored = StoredList(workspace, study);
  if (!stored) {
    quantities.recount = Recount::kUnread;
    quantities.unread = stored.error();
  } else if (stored->empty() || IsListOf(*stored, quantities.pipes)) {
    quantities.lines = std::move(stored).value();
    return quantities;
  } else {
    quantities.recount = Recount::kForeign;
  }
  const auto sections = workspace.Rows(rows).ReadAll();
  if (!sections) return sections.error();
  quantities.lines = CountQuantities(quantities.pipes, *sections);
  return quantities;
}

bool IsInUse(const StatRow& pipe) {
  return pipe.Length != 0.0F || std::ranges::any_of(kFittings, [&pipe](const Fitting& fitting) {
           return fitting.total != nullptr && pipe.*fitting.total != 0.0F;
         });
}

double WaterContent(std::span<const StatRow> pipes) {
  constexpr double kPiOfContent = 3.14159;
  double litres = 0;
  for (const StatRow& pipe : pipes) {
    const double diameter_m = pipe.InDiameter / 1000.0;
    litres += diameter_m * diameter_m * kPiOfContent / 4.0 * 1000.0 * pipe.Length;
  }
  return litres;
}

std::string WaterLine(double litres, Separators separators) {
  const std::string rounded = FormatPattern(litres, pattern::kOneDecimal, separators);
  return "... Το Σωληνοδίκτυο, περιέχει : " +
         FormatNumber(ParseNumber(rounded, separators), separators) + " [Lit] Νερού ...";
}

}  // namespace kalvo
