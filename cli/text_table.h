#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace kalvo {

/// The cell of what has no value.
inline constexpr const char* kNoValue = "---";

/// A column of a printed table.
struct TextColumn {
  std::string head;
  std::string unit;
  bool left_aligned = false;
  bool begins_group = false;  ///< a rule in front keeps it apart from the columns before
};

/// Rows of texts under two lines of headings, each column as wide as its widest text. Columns that
/// find no room on the terminal follow in further blocks, behind the key columns once more.
class TextTable {
 public:
  /// The first `key_columns` tell the rows apart.
  explicit TextTable(std::vector<TextColumn> columns, std::size_t key_columns = 1)
      : columns_(std::move(columns)), key_columns_(key_columns) {}

  /// `cells`: one text per column. A marked row is made to stand out on a terminal.
  void Add(std::vector<std::string> cells, bool marked = false);

  void Print(const Console& console) const;

 private:
  using Block = std::vector<std::size_t>;  ///< columns side by side

  struct Row {
    std::vector<std::string> cells;
    bool marked = false;
  };

  [[nodiscard]] std::vector<std::size_t> Widths() const;
  void PrintBlock(const Console& console, const Block& block, std::size_t gap,
                  const std::vector<std::size_t>& widths) const;

  std::vector<TextColumn> columns_;
  std::size_t key_columns_;
  std::vector<Row> rows_;
};

/// Prints `text` from column `indent` on; where it does not fit the terminal's width, word by word
/// in several lines that are indented by as much.
void PrintWrapped(const Console& console, const std::string& text, std::size_t indent = 0);

/// `utf8` with control characters, which a terminal would obey, replaced by "?".
std::string Printable(std::string_view utf8);

}  // namespace kalvo
