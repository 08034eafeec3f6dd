#include "results/compare_with_first.h"

#include <algorithm>

#include "engine/trap.h"
#include "form/tell.h"
#include "results/comparison_text.h"
#include "results/critical_sections.h"
#include "results/result_notes.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

using Rows = std::vector<SectionRow>;

// The rows of a work file, which must be there.
Result<Rows> RowsToCompare(const Workbench& bench, std::string_view name) {
  const auto file = bench.workspace.Rows(name);
  auto rows = file.ReadAll();
  if (rows && rows->empty()) return FileError{file.path(), "Δεν υπάρχουν εγγραφές"};
  return rows;
}

Result<ResultComparison> Compare(const Desk& desk) {
  const Workbench& bench = desk.bench;
  auto first = RowsToCompare(bench, work_file::kFirstRows);
  if (!first) return first.error();
  auto now = RowsToCompare(bench, work_file::kRows);
  if (!now) return now.error();
  const auto library = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  if (!library) return library.error();
  return CompareResults({RowTable(*std::move(first)), desk.screens.first_critical_branch},
                        {RowTable(*std::move(now)), bench.study.critical_branch}, *library);
}

std::string Pair(const ComparedText& text, std::string_view unit) {
  return text.difference.empty()
             ? text.after + std::string(unit) + ", όπως πριν"
             : text.before + " → " + text.after + std::string(unit) + "  (" + text.difference + ")";
}

std::string NodesOf(const std::string& branch, const Rows& rows, const Desk& desk) {
  const std::vector<int> sections = CriticalSections(branch, rows.size());
  return BranchLine(NodesAlong(desk.bench.study.system_kind, rows, sections));
}

// A pump that does not reach every outlet is no gain.
void AppendWarnings(MessageFacts& facts, const Rows& rows, const Desk& desk) {
  const Study& study = desk.bench.study;
  const auto library = ReadPipeSystem(desk.bench.workspace, study.pipe_system_number);
  if (!library || study.SystemClosed()) return;
  ResultNotes lacking;
  lacking.outlets_in_need = NotesOf(study.system_kind, rows, *library).outlets_in_need;
  for (const std::string& line : NoteLines(lacking)) facts.lines.push_back({"ΠΡΟΣΟΧΗ", line});
}

// Empty where old and new are the same.
void AppendTexts(std::vector<std::string>& cells, const ComparedText& text) {
  cells.push_back(text.before == text.after ? "" : text.before);
  cells.push_back(text.after);
}

}  // namespace

std::optional<ResultComparison> CompareWithFirst(Desk& desk) {
  std::optional<ResultComparison> comparison;
  RunTrapped(desk.bench, [&] {
    auto compared = Compare(desk);
    if (!compared) {
      TellError(desk.bench, compared.error());
    } else {
      comparison = *std::move(compared);
    }
  });
  return comparison;
}

MessageFacts FactsOf(const ResultComparison& comparison, const Desk& desk) {
  const Separators separators = desk.separators;
  const auto flow = TextOf(comparison.flow, pattern::kTwoDecimals, separators);
  const auto head = RoundedHead(comparison);
  const auto head_text = TextOf(head, pattern::kTwoDecimals, separators);
  MessageFacts facts;
  facts.lines = {
      {"Μανομετρικό΄Ύψος Αντλίας", head_text.difference.empty()
                                       ? Pair(head_text, " m w.g.")
                                       : head_text.before + " → " + head_text.after + " m w.g.  (" +
                                             HeadDifference(head, separators) + ")"},
      {"Παροχή Αντλίας", Pair(flow, " m³/h")}};
  if (desk.bench.study.SystemClosed()) {
    facts.lines.push_back(
        {"Υγρό στο δίκτυο",
         Pair(TextOf(Litres(comparison), pattern::kOneDecimal, separators), " Lit")});
  }
  const auto& branch = comparison.critical_branch;
  const auto rows = desk.bench.workspace.Rows().ReadAll();
  if (branch.Differs() && rows) {
    facts.lines.push_back({"Δυσμενέστερος κλάδος πριν", NodesOf(branch.before, *rows, desk)});
    facts.lines.push_back({"Δυσμενέστερος κλάδος μετά", NodesOf(branch.after, *rows, desk)});
  } else if (branch.Differs()) {
    facts.lines.push_back({"Δυσμενέστερος κλάδος", "άλλος από πριν"});
  } else {
    facts.lines.push_back({"Δυσμενέστερος κλάδος", "ο ίδιος κλάδος"});
  }
  if (rows) AppendWarnings(facts, *rows, desk);
  facts.table_caption = "▾  Τμήματα που διαφέρουν : " + std::to_string(comparison.sections.size());
  facts.heads = {"α/α",
                 "ΟΝΟΜΑΣΙΑ",
                 "ΔΙΑΜΕΤΡΟΣ\nπριν",
                 "μετά",
                 "ΤΑΧΥΤΗΤΑ\n[m/sec]\nπριν",
                 "μετά",
                 "ΠΤΩΣΗ\n[mm w.g.]\nπριν",
                 "μετά",
                 "ΔΙΑΘΕΣΙΜΗ\n[mm w.g.]\nπριν",
                 "μετά"};
  std::vector<ChangedSection> sections = comparison.sections;
  std::stable_partition(sections.begin(), sections.end(),
                        [](const ChangedSection& section) { return section.diameter.Differs(); });
  for (const ChangedSection& section : sections) {
    std::vector<std::string> cells = {std::to_string(section.number), section.name,
                                      section.diameter.Differs() ? section.diameter.before : "",
                                      section.diameter.after};
    AppendTexts(cells, TextOf(section.velocity, pattern::kTwoDecimals, separators));
    AppendTexts(cells, TextOf(section.drop, pattern::kOneDecimal, separators));
    AppendTexts(cells, TextOf(ShownPressure(section), pattern::kOneDecimal, separators));
    facts.rows.push_back(std::move(cells));
  }
  return facts;
}

}  // namespace kalvo
