#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace kalvo {

/// A column of a printed table. An optional one is left out where the terminal is too narrow.
struct TextColumn {
  std::string head;
  std::string unit;
  bool left_aligned = false;
  bool optional = false;
};

/// Rows of texts under two lines of headings, each column as wide as its widest text.
class TextTable {
 public:
  explicit TextTable(std::vector<TextColumn> columns) : columns_(std::move(columns)) {}

  /// `cells`: one text per column. A strong row is made to stand out on a terminal.
  void Add(std::vector<std::string> cells, bool strong = false) {
    rows_.push_back({std::move(cells), strong});
  }

  void Print(const Console& console) const;

 private:
  struct Row {
    std::vector<std::string> cells;
    bool strong = false;
  };

  [[nodiscard]] std::vector<std::size_t> Widths() const;
  [[nodiscard]] std::vector<std::size_t> ShownColumns(const std::vector<std::size_t>& widths,
                                                      int width) const;

  std::vector<TextColumn> columns_;
  std::vector<Row> rows_;
};

/// Prints `text` word by word within the terminal's width, from column `indent` on; further lines
/// are indented by as much.
void PrintWrapped(const Console& console, const std::string& text, std::size_t indent = 0);

}  // namespace kalvo
