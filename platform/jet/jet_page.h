#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// Where a row is on a data page. One that is elsewhere left its new page and row in four bytes.
struct JetPageRow {
  std::size_t begin = 0;
  std::size_t size = 0;
  bool deleted = false;
  bool elsewhere = false;
};

/// How many rows a data page says it has.
std::size_t CountJetRows(std::string_view page);
/// A row of a data page; none: there is no such row, or it is not within the page.
std::optional<JetPageRow> FindJetRow(std::string_view page, std::size_t row);

/// Fills data pages of one table with rows, from the first to the last.
class JetPageWriter {
 public:
  explicit JetPageWriter(std::uint32_t owner) : owner_(owner) {}

  /// False: no page holds such a row.
  bool Add(std::string_view row);
  /// Hands over the pages.
  std::string Take();

 private:
  void EndPage();

  std::uint32_t owner_;
  std::vector<std::string> rows_;  ///< of the page that is being filled
  std::size_t used_ = 0;
  std::string pages_;
};

}  // namespace kalvo
