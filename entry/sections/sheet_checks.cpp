#include "entry/sections/sheet_checks.h"

#include <algorithm>

#include "entry/sections/sheet_columns.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

// What the other rows have to do with the names of one.
struct Meetings {
  int begin_at_end = 0;   ///< rows that begin where it ends
  int last_beginner = 0;  ///< number of one of them
  int end_at_end = 0;     ///< rows that end where it ends
  int end_at_begin = 0;   ///< rows that end where it begins
  int same_name = 0;      ///< number of a row of its name
  int same_own = 0;       ///< number of a row of its first name
};

Meetings MeetingsOf(const SectionDraft& draft, int row, const SheetRow& texts) {
  Meetings found;
  const std::string& left = texts.texts[sheet_column::kLeft];
  const std::string& right = texts.texts[sheet_column::kRight];
  for (int other = 0, count = draft.Count(); other < count; ++other) {
    if (other == row) continue;
    const std::string& other_left = draft.Text(other, sheet_column::kLeft);
    const std::string& other_right = draft.Text(other, sheet_column::kRight);
    if (other_left == right) {
      ++found.begin_at_end;
      found.last_beginner = other + 1;
    }
    found.end_at_end += other_right == right ? 1 : 0;
    found.end_at_begin += other_right == left ? 1 : 0;
    if (other_left == left) found.same_own = other + 1;
    if (other_left == left && other_right == right) found.same_name = other + 1;
  }
  return found;
}

void Remark(RowRemarks& remarks, std::string_view what, bool fault = true) {
  if (!remarks.text.empty()) remarks.text += " · ";
  remarks.text += what;
  remarks.fault = remarks.fault || fault;
}

std::string InSection(std::string_view what, int number) {
  return std::string(what) + std::to_string(number);
}

void RemarkClosed(const Meetings& found, const std::string& end, RowRemarks& remarks) {
  if (found.begin_at_end == 0) Remark(remarks, "κανένα τμήμα δεν αρχίζει στον κόμβο " + end);
  if (found.end_at_begin == 0) Remark(remarks, "κανένα τμήμα δεν καταλήγει στην αρχή του");
  if (found.same_name != 0) {
    Remark(remarks, InSection("ίδιο όνομα με το τμήμα ", found.same_name));
  }
  if (found.begin_at_end == 1 && found.end_at_end == 0 && end != kSource) {
    Remark(remarks, InSection("συνεχίζει μόνο στο τμήμα ", found.last_beginner), false);
  }
}

void RemarkOpen(const Meetings& found, const std::string& feeder, RowRemarks& remarks) {
  if (feeder != kSource && found.begin_at_end == 0) {
    Remark(remarks, "δεν υπάρχει το τμήμα τροφοδοσίας " + feeder);
  }
  if (found.same_own != 0) Remark(remarks, InSection("ίδιος α/α με το τμήμα ", found.same_own));
}

}  // namespace

RowRemarks RemarksOf(const SectionDraft& draft, int row) {
  return row < draft.Count() ? RemarksOf(draft, row, draft.At(row)) : RowRemarks{};
}

RowRemarks RemarksOf(const SectionDraft& draft, int row, const SheetRow& texts) {
  RowRemarks remarks;
  const std::string& left = texts.texts[sheet_column::kLeft];
  const std::string& right = texts.texts[sheet_column::kRight];
  if (left.empty() || right.empty()) return remarks;
  const Meetings found = MeetingsOf(draft, row, texts);
  if (left == right && left != kSource) Remark(remarks, "αρχή και τέλος στον ίδιο κόμβο");
  if (draft.kind() == SystemKind::kOpen) {
    RemarkOpen(found, right, remarks);
  } else if (std::max(draft.Count(), row + 1) > 1) {
    RemarkClosed(found, right, remarks);
  }
  return remarks;
}

std::string SelectionSummary(const SectionDraft& draft, const std::vector<GridBlock>& selection,
                             Separators separators) {
  int cells = 0;
  int filled = 0;
  double sum = 0;
  for (const GridBlock& block : selection) {
    cells += block.rows() * block.columns();
    for (int row = block.top; row <= block.bottom && row < draft.Count(); ++row) {
      for (int column = block.left; column <= block.right; ++column) {
        const std::string& text = draft.Text(row, column);
        if (text.empty()) continue;
        ++filled;
        if (IsNumberColumn(column)) sum += ParseNumber(text, separators);
      }
    }
  }
  if (cells < 2) return {};
  return "Επιλογή : " + std::to_string(filled) + (filled == 1 ? " τιμή" : " τιμές") +
         " · άθροισμα " + FormatNumber(static_cast<float>(sum), separators);
}

}  // namespace kalvo
