// Any bytes as a shell of the print database: they are refused with a reason, or a line can be
// added, which reads again as it was put in. First byte: 1 the bytes are changes to a good shell,
// three of place and one of value each, since noise would hardly get past its first page; 2 the
// same, and the shell is cut at the first place.

#include "fuzz/fuzz_bench.h"
#include "platform/jet/print_shell.h"

namespace {

using namespace kalvo;

std::string Changed(std::string shell, std::string_view changes) {
  while (changes.size() >= 4) {
    std::size_t place = 0;
    for (int i = 0; i < 3; ++i) place = place << 8U | TakeByte(changes);
    shell[place % shell.size()] = static_cast<char>(TakeByte(changes));
  }
  return shell;
}

PrintTable OneLine() {
  SectionRow row;
  row.RecordNumber = 7;
  row.Thema = FixedText<78>::FromUtf8("Σχολείο");
  row.InDiameter = -35.9F;
  return PrintedSections({&row, 1}, "Ω");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const auto kind = TakeByte(bytes);
  std::string shell(bytes);
  static const std::string good = MakePrintShell(SectionPrintColumns());
  if (kind == 1 || kind == 2) shell = Changed(good, bytes);
  if (kind == 2 && bytes.size() >= 2) {
    const std::size_t length = TakeByte(bytes);
    shell.resize((length << 8U | TakeByte(bytes)) % (shell.size() + 1));
  }
  static const PrintTable table = OneLine();
  const auto filled = FillPrintShell(shell, table);
  Require(filled || (IsUtf8(filled.error().reason) && !filled.error().reason.empty()), "reason");
  if (!filled) return 0;
  const auto read = ReadPrintShell(*filled, table.columns);
  if (read) Require(!read->lines.empty(), "the line is there");
  return 0;
}
