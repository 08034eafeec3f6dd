// Any winter file beside a good study.

#include "fuzz/fuzz_bench.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kalvo;
  const std::string_view bytes = AsText(data, size);
  FuzzBench bench(SystemKind::kClosed);
  if (LoadCompanion<SectionRow>(bench, "b.WNT", work_file::kWinter, bytes)) {
    const auto rows = bench.workspace.Rows(work_file::kWinter).ReadAll().value();
    Require(EncodeRows<SectionRow>(rows) == bytes, "rows come back byte for byte");
    Require(bench.study.SectionCount == 2, "winter rows are no rows of the study");
  }
  return 0;
}
