// Any file of the section sheet. First byte: 1 puts the right foot under it, since noise would
// never get past the digest; 2 reads it under a decimal point.

#include <array>

#include "fuzz/fuzz_bench.h"
#include "study/digest.h"
#include "study/sheet_file.h"

namespace {

using namespace kalvo;

std::string WithFoot(std::string_view body) {
  std::array<char, 32> foot{};
  std::snprintf(foot.data(), foot.size(), "TELOS %llx\n",
                static_cast<unsigned long long>(Digest(body)));
  return std::string(body) + foot.data();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const unsigned how = TakeByte(bytes);
  const char decimal = (how & 2U) != 0 ? '.' : ',';
  const std::string file = (how & 1U) != 0 ? WithFoot(bytes) : std::string(bytes);
  const auto sheet = DecodeSheet(file, "/program/Spread.@@@", decimal);
  if (!sheet) {
    Require(sheet.error().file == "/program/Spread.@@@" && IsUtf8(sheet.error().reason), "reason");
    return 0;
  }
  std::size_t length = 0;
  for (const SheetRow& row : sheet->rows) {
    for (const std::string& text : row.texts) length += text.size();
  }
  Require(length + 18 * sheet->rows.size() <= file.size(), "no more than there was");
  const int sections = CountSections(*sheet);
  Require(sections >= 0 && sections <= static_cast<int>(sheet->rows.size()), "sections are rows");
  const auto again = DecodeSheet(EncodeSheet(*sheet, decimal), "again", decimal);
  Require(again && *again == *sheet, "what is read is written so that it reads the same");
  return 0;
}
