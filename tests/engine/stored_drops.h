#pragma once

#include <string_view>
#include <vector>

#include "tests/support/test_bench.h"

namespace kalvo {

using Floats = std::vector<float>;

/// A network whose sections have these drops, mm w.g., and pressures of an earlier run.
inline void PutDrops(TestBench& bench, const std::vector<std::string_view>& lines,
                     const Floats& drops, SystemKind kind = SystemKind::kClosed) {
  NetworkHeader header;
  header.kind = kind;
  std::vector<SectionRow> rows = Network(lines, header);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].TotalDrop = drops.at(i);
    rows[i].AvaiPres = 999;
  }
  bench.PutRows(rows);
}

inline Floats Pressures(const TestBench& bench) { return bench.Column(&SectionRow::AvaiPres); }

}  // namespace kalvo
