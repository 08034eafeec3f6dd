// Any file of what stands outside the section sheet.

#include "fuzz/fuzz_bench.h"
#include "study/sheet_intro.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kalvo;
  const auto intro = DecodeIntro(AsText(data, size), "/program/Intro.ss2");
  if (!intro) {
    Require(intro.error().file == "/program/Intro.ss2", "the file is named");
    return 0;
  }
  Require(std::isfinite(intro->TotalFlowM3h) && std::isfinite(intro->MeanTemp) &&
              std::isfinite(intro->MeanVel),
          "numbers are finite");
  const auto again = DecodeIntro(EncodeIntro(*intro), "again");
  Require(again.ok(), "what is read can be written and read");
  Require(EncodeIntro(*again) == EncodeIntro(*intro), "and says the same");
  return 0;
}
