#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace kalvo {

/// What has become of a grid since its front-end looked last.
struct GridChange {
  enum class Kind {
    kCells,     ///< cells of these rows
    kInserted,  ///< these rows are new
    kRemoved,   ///< what was in these rows is gone
    kReset      ///< nothing shown before stays
  };
  Kind kind = Kind::kCells;
  int first = 0;
  int last = 0;  ///< included

  bool operator==(const GridChange&) const = default;
};

/// Changes in the order in which they were made, the fewest that say the same. Where nobody looks
/// they come to one reset.
class GridChanges {
 public:
  void Cells(int row) {
    if (!list_.empty() && list_.back().kind == GridChange::Kind::kCells) {
      GridChange& last = list_.back();
      last.first = row < last.first ? row : last.first;
      last.last = row > last.last ? row : last.last;
      return;
    }
    Add({GridChange::Kind::kCells, row, row});
  }
  void Rows(GridChange::Kind kind, int first, int last) { Add({kind, first, last}); }
  void Reset() { list_.assign(1, {GridChange::Kind::kReset, 0, 0}); }

  /// The changes, which then count as seen.
  std::vector<GridChange> Take() { return std::exchange(list_, {}); }

 private:
  static constexpr std::size_t kMost = 64;

  void Add(const GridChange& change) {
    if (!list_.empty() && list_.front().kind == GridChange::Kind::kReset) return;
    list_.push_back(change);
    if (list_.size() > kMost) Reset();
  }

  std::vector<GridChange> list_;
};

}  // namespace kalvo
