#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "form/editable_grid.h"
#include "study/section_entry.h"
#include "study/sheet_file.h"
#include "study/system_kind.h"

namespace kalvo {

/// Columns of the sheet of sections, from 0: the names, "/" between them, and the numbers in the
/// order of `kEntryNumbers`.
namespace sheet_column {
constexpr int kLeft = 0;
constexpr int kSlash = 1;
constexpr int kRight = 2;
constexpr int kLength = 3;
constexpr int kAnglePOP = 4;
constexpr int kDiaTee = 9;
}  // namespace sheet_column

/// What is between the names.
constexpr std::string_view kSlashText = "/";
/// Characters of a name.
constexpr std::size_t kLongestName = 3;
/// Sections that a sheet takes.
constexpr int kMostSections = 999;

struct SheetColumn {
  const char* head;       ///< closed network
  const char* open_head;  ///< open network, where it is another one
  const char* prompt;     ///< what is entered, in a sentence
  int width;              ///< in digits
  CellTyping typing;
  bool closes_family = false;
  const char* open_prompt = nullptr;  ///< open network, where it is another one

  [[nodiscard]] const char* Head(SystemKind kind) const { return Of(kind, head, open_head); }
  [[nodiscard]] const char* Prompt(SystemKind kind) const { return Of(kind, prompt, open_prompt); }

 private:
  static const char* Of(SystemKind kind, const char* text, const char* open_text) {
    return kind == SystemKind::kOpen && open_text != nullptr ? open_text : text;
  }
};

/// All of them.
std::span<const SheetColumn> SheetColumns();
/// A column's head as a sentence names it, its broken words whole.
std::string HeadInWords(int column, SystemKind kind);

/// The same as columns of a grid, and how their cells are typed into.
std::vector<GridColumn> SheetGridColumns(SystemKind kind);
std::vector<CellTyping> SheetTyping();

constexpr bool IsNameColumn(int column) {
  return column == sheet_column::kLeft || column == sheet_column::kRight;
}
constexpr bool IsNumberColumn(int column) { return column >= sheet_column::kLength; }
/// The field of the row that a number's column shows.
const NumberField& FieldOfColumn(int column);

}  // namespace kalvo
