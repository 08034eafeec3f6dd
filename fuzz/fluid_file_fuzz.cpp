// Any fluid file beside a good study, and any fluid library. First byte: the fluid that is deleted
// from the library and written back at its end.

#include "fuzz/fuzz_bench.h"

namespace {

using namespace kalvo;

void TryCompanion(std::string_view bytes) {
  FuzzBench bench(SystemKind::kClosed);
  if (!LoadCompanion<FluidRow>(bench, "b.LQD", work_file::kFluid, bytes)) {
    return;
  }
  const std::string wanted =
      bytes.empty() ? std::string(kWaterName) : DecodeRecord<FluidRow>(bytes.data()).name.Utf8();
  Require(bench.study.fluid_name == wanted && IsUtf8(wanted), "the fluid's name");
  Require(bench.study.Density == 0.0F, "no density is held");
}

void RequireWithout(const std::vector<FluidRow>& before, std::size_t gone,
                    const std::vector<FluidRow>& after) {
  Require(after.size() + 1 == before.size(), "one row less");
  for (std::size_t i = 0; i < after.size(); ++i) {
    FluidRow wanted = before[i < gone ? i : i + 1];
    if (i >= gone) {
      wanted.row_number = static_cast<std::int16_t>(i + 1);
    }
    Require(
        EncodeRows<FluidRow>(std::vector{wanted}) == EncodeRows<FluidRow>(std::vector{after[i]}),
        "the others stay");
  }
}

void TryLibrary(std::string_view bytes, int number) {
  FuzzBench bench(SystemKind::kClosed);
  Require(bench.outer_disk.Write("/library/Liquids.dat", std::string(bytes)).ok(), "library");
  const auto before = ReadFluids(bench.workspace);
  Require(before.ok() == (bytes.size() % RecordSize<FluidRow>() == 0), "whole records are read");
  const FluidRow water = WaterRow(bench.workspace);
  const Outcome deleted = DeleteFluid(bench.workspace, number);
  const auto after = bench.outer_disk.Read("/library/Liquids.dat").value();
  if (!before || number < 2 || number > static_cast<int>(before->size())) {
    Require(deleted.ok() == before.ok() && after == bytes, "nothing to delete, nothing changed");
    return;
  }
  RequireWithout(*before, static_cast<std::size_t>(number - 1), DecodeRows<FluidRow>(after));
  FluidRow fluid = (*before)[static_cast<std::size_t>(number - 1)];
  fluid.row_number = static_cast<std::int16_t>(before->size());
  Require(SaveFluid(bench.workspace, fluid).ok(), "a row at the end");
  Require(ReadFluids(bench.workspace)->size() == before->size(), "it is there");
  Require(EncodeRows<FluidRow>(std::vector{WaterRow(bench.workspace)}) ==
              EncodeRows<FluidRow>(std::vector{water}),
          "water stays");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const auto number = static_cast<int>(TakeByte(bytes));
  TryCompanion(bytes);
  TryLibrary(bytes, number);
  return 0;
}
