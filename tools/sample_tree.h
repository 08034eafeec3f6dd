#pragma once

#include <vector>

#include "engine/outlets.h"
#include "tools/sample_network.h"

namespace kalvo {

/// An open supply network in the making. Sections bear their numbers, in the order of laying, so
/// that every section stands behind its feeder. A feeder needs two sections or more behind it.
class SupplyTree {
 public:
  explicit SupplyTree(NetworkFrame frame);

  /// The section from the source, number 1.
  int FromSource(const Leg& leg);
  /// A section behind `feeder`; gives its number.
  int Lay(int feeder, const Leg& leg);
  /// The same, ending in an outlet.
  void Draw(int feeder, const Leg& leg, const OutletValues& outlet);

  /// All sections, not calculated.
  [[nodiscard]] std::vector<SectionRow> Rows() const;

 private:
  SectionRow& Append(std::string_view feeder, const Leg& leg);

  NetworkFrame frame_;
  std::vector<SectionRow> rows_;
};

}  // namespace kalvo
