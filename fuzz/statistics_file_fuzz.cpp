// Any statistics file beside a good study.

#include "fuzz/fuzz_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kalvo;
  const std::string_view bytes = AsText(data, size);
  FuzzBench bench(SystemKind::kClosed);
  if (LoadCompanion<StatRow>(bench, "b.STC", work_file::kStatistics, bytes)) {
    Require(EncodeRows<StatRow>(bench.study.PipeStats) == bytes, "every row is in the table");
    for (const StatRow& row : bench.study.PipeStats) {
      Require(IsUtf8(row.Thema.Utf8()) && IsUtf8(row.NomiDiameter.Utf8()), "texts are UTF-8");
    }
  }
  return 0;
}
