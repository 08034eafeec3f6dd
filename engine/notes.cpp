#include "engine/notes.h"

#include "engine/first_row_index.h"

namespace kalvo {

namespace {

// Losses from row 1 to the row and the row's own, mm w.g. A circle of feeders ends the sum.
double LossesTo(std::size_t row, const std::vector<SectionRow>& rows,
                const std::vector<int>& feeders) {
  double losses = rows[row].TotalDrop;
  for (std::size_t step = 0; step < rows.size() && feeders[row] != 0; ++step) {
    row = static_cast<std::size_t>(feeders[row] - 1);
    losses += rows[row].TotalDrop;
  }
  return losses;
}

std::vector<int> FeedersOf(const std::vector<SectionRow>& rows) {
  std::vector<SectionLine> table;
  table.reserve(rows.size());
  for (const SectionRow& row : rows) {
    table.push_back({row.RecordNumber, row.Name, {}});
  }
  return LinkFeeders(table);
}

void AddOpenNotes(const std::vector<SectionRow>& rows, ResultNotes& notes) {
  for (const OutletSpare& outlet : SparesOf(rows)) {
    if (outlet.spare < 0) {
      notes.outlets_in_need.push_back(outlet.section);
    }
  }
  const std::vector<int> feeders = FeedersOf(rows);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (feeders[i] > static_cast<int>(i) + 1) {
      notes.before_feeder.push_back(rows[i].RecordNumber);
    }
  }
}

}  // namespace

std::vector<OutletSpare> SparesOf(const std::vector<SectionRow>& rows) {
  const std::vector<int> feeders = FeedersOf(rows);
  std::vector<OutletSpare> spares;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].HasEmitter()) {
      const double need =
          LossesTo(i, rows, feeders) + (double{rows[i].HeightDiff} + rows[i].SomaDrop) * 1000.0;
      spares.push_back({rows[i].RecordNumber, rows.front().DP - need});
    }
  }
  return spares;
}

ResultNotes NotesOf(SystemKind kind, const std::vector<SectionRow>& rows,
                    const std::vector<PipeRow>& library) {
  ResultNotes notes;
  for (const SectionRow& row : rows) {
    // Winter's rows have no design velocity.
    if (row.MeanVel > 0.0F && row.Velocity > row.MeanVel) {
      notes.above_design_velocity.push_back(row.RecordNumber);
    }
    if (!library.empty() && row.NomiDiam.Trimmed() == library.back().nominal_diameter.Trimmed()) {
      notes.on_largest_pipe.push_back(row.RecordNumber);
    }
    if (MethodOf(row) == Method::kFlowAndPressure && row.TotalDrop < 0.0F) {
      notes.negative_drop.push_back(row.RecordNumber);
    }
  }
  if (kind == SystemKind::kOpen) {
    AddOpenNotes(rows, notes);
  }
  return notes;
}

std::string NumberRanges(const std::vector<int>& numbers) {
  std::string text;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
      ++last;
    }
    last = last - first >= 2 ? last : first;
    text += (text.empty() ? "" : ", ") + std::to_string(numbers[first]);
    text += last == first ? "" : "-" + std::to_string(numbers[last]);
    first = last + 1;
  }
  return text;
}

}  // namespace kalvo
