#pragma once

#include <string>

#include "study/fault.h"

namespace kalvo {

/// What a table holds of row `number`; rows are numbered from 1.
/// Faults: kBadRecordNumber when there is no such row.
template <typename Table>
[[nodiscard]] decltype(auto) ByNumber(Table&& table, int number) {
  if (number < 1 || static_cast<std::size_t>(number) > table.size()) {
    throw Fault(FaultCode::kBadRecordNumber, "no row " + std::to_string(number));
  }
  return table[static_cast<std::size_t>(number) - 1];
}

}  // namespace kalvo
