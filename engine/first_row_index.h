#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "study/study.h"

namespace kalvo {

/// Finds the lowest row that bears a key, as a scan from row 1 would. Row positions begin at 1.
class FirstRowIndex {
 public:
  using Entry = std::pair<std::uint32_t, int>;

  explicit FirstRowIndex(std::vector<Entry> entries);

  /// The lowest row with the key, 0 when there is none.
  [[nodiscard]] int First(std::uint32_t key) const;
  /// All entries with the key, rows rising.
  [[nodiscard]] std::span<const Entry> All(std::uint32_t key) const;

 private:
  std::vector<Entry> entries_;
};

/// Key of a node name of at most three bytes; names that are equal trimmed have one key.
std::uint32_t NodeKey(std::string_view node);

/// Rows by the node they leave, by the node they reach, by their number.
FirstRowIndex IndexByLeftNode(std::span<const SectionLine> table);
FirstRowIndex IndexByRightNode(std::span<const SectionLine> table);
FirstRowIndex IndexByNumber(std::span<const SectionLine> table);
std::uint32_t NumberKey(int number);

/// For every row of a closed network the row that a walk goes on with, 0 at the source and where it
/// is lost: towards the end the first row leaving the node it reaches, towards the start the first
/// row reaching the node it leaves.
struct Links {
  std::vector<int> next;
  std::vector<int> previous;
};

Links LinkRows(std::span<const SectionLine> table);

/// For every row of an open network the row that feeds it: row 1 where the feeder is the source,
/// else the first of that name; 0 for row 1, which nothing feeds whatever its name says, and where
/// no row bears the name.
std::vector<int> LinkFeeders(std::span<const SectionLine> table);

}  // namespace kalvo
