#include "study/study_proof.h"

#include <algorithm>
#include <climits>

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

// A row's number is always its place; any other would lead a walk to foreign rows.
std::string FirstBadPlace(const Rows& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].RecordNumber != static_cast<int>(i) + 1) {
      return "Η εγγραφή " + std::to_string(i + 1) + " φέρει αριθμό Τμήματος " +
             std::to_string(rows[i].RecordNumber);
    }
  }
  return {};
}

bool IsOfOtherKind(const SectionRow& row, const Study& study) {
  const SystemKind kind = KindOf(row);
  return kind != SystemKind::kNone && (kind == SystemKind::kClosed) != study.SystemClosed();
}

}  // namespace

const SectionRow& HeaderRow(const Rows& rows) {
  const auto plant = std::ranges::find_if(rows, &SectionRow::HasPlantMark);
  return plant == rows.end() ? rows.back() : *plant;
}

FileError OtherKindError(const std::filesystem::path& file) {
  return {file, "Η μελέτη είναι άλλου είδους Συστήματος Σωλήνων"};
}

Result<std::vector<SectionRow>> ProveLoadable(const Workbench& bench,
                                              const std::filesystem::path& file,
                                              std::string_view bytes) {
  if (bytes.size() >= RecordSize<SectionRow>() &&
      IsOfOtherKind(DecodeRecord<SectionRow>(bytes.data()), bench.study)) {
    return OtherKindError(file);
  }
  return ProveRows(bench, file, bytes);
}

Result<std::vector<SectionRow>> ProveRows(const Workbench& bench, const std::filesystem::path& file,
                                          std::string_view bytes) {
  if (bytes.empty()) {
    return FileError{file, "Το αρχείο είναι κενό"};
  }
  if (bytes.size() % RecordSize<SectionRow>() != 0) {
    return FileError{file, "Το μήκος του αρχείου δεν είναι ακέραιο πλήθος εγγραφών"};
  }
  Rows rows = DecodeRows<SectionRow>(bytes);
  if (rows.size() > static_cast<std::size_t>(INT16_MAX)) {
    return FileError{file, "Το αρχείο έχει πάρα πολλές εγγραφές"};
  }
  if (const std::string bad = FirstBadPlace(rows); !bad.empty()) {
    return FileError{file, bad};
  }
  if (const std::string bad = FirstBadNumber(rows); !bad.empty()) {
    return FileError{file, bad};
  }
  // The header's is loaded; a save goes by the first row's.
  for (const std::int16_t number : {HeaderRow(rows).FileNumber, rows.front().FileNumber}) {
    if (number < 1 || number > static_cast<int>(bench.pipes.size())) {
      return FileError{file, "Δεν υπάρχει το Σύστημα Σωλήνων Νο " + std::to_string(number)};
    }
    if (const auto pipes = ReadPipeSystem(bench.workspace, number); !pipes) {
      return pipes.error();
    }
  }
  return rows;
}

}  // namespace kalvo
