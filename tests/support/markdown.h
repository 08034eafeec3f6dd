#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/csv_table.h"

namespace kalvo {

/// A text of headings, paragraphs and tables of cells parted by "|".
struct Markdown {
  /// The lines of all its tables with that first column and these among the others, one after the
  /// other; the test fails when there is none.
  [[nodiscard]] std::vector<CsvLine> Table(std::string_view first_column,
                                           std::string_view another = {}) const;
  /// What the line that begins with this cell has in its second one; the test fails when none does.
  [[nodiscard]] std::string Value(std::string_view first_cell) const;
  /// What comes between `mark` and the next one, all of them: "**" gives what is in bold.
  [[nodiscard]] std::vector<std::string> Between(std::string_view mark) const;
  /// Targets of links and pictures: "](target)".
  [[nodiscard]] std::vector<std::string> Targets() const;
  /// What links to its headings have after "#", in lower case.
  [[nodiscard]] std::vector<std::string> Anchors() const;
  /// The part under each heading of the second level, by the heading.
  [[nodiscard]] std::map<std::string, Markdown> Parts() const;
  /// The cells of every line of a table, line by line.
  [[nodiscard]] std::vector<std::vector<std::string>> Lines() const;

  std::string text;
};

/// The test fails when the file cannot be read.
Markdown ReadMarkdown(const std::filesystem::path& file);

/// Pieces of `text` before, between and after all `by`.
std::vector<std::string> SplitAt(std::string_view text, std::string_view by);

/// The anchor of a heading: lower case, hyphens for blanks, without other signs of ASCII.
std::string AnchorOf(std::string_view heading);

/// Blanks and line ends in a row become one, those at the ends go.
std::string InOneLine(std::string_view text);

}  // namespace kalvo
