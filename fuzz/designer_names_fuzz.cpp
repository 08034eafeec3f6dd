// Any list of designers. With an odd first byte the rest are texts as they are before they are
// scrambled, so that the fuzzer gets past the noise.

#include "fuzz/fuzz_bench.h"
#include "study/designer_names.h"

namespace {

using namespace kalvo;

std::string ScrambledRows(std::string_view bytes) {
  std::vector<DesignerRow> rows = DecodeRows<DesignerRow>(bytes);
  for (DesignerRow& row : rows) {
    row.Name = decltype(row.Name)::FromBytes(Scrambled(row.Name.bytes()));
    row.Password = decltype(row.Password)::FromBytes(Scrambled(row.Password.bytes()));
  }
  return EncodeRows<DesignerRow>(rows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const bool plain = TakeByte(bytes) % 2 == 1;
  FuzzBench bench(SystemKind::kClosed);
  const std::string file = plain ? ScrambledRows(bytes) : std::string(bytes);
  Require(bench.workspace.Write(work_file::kDesigners, file).ok(), "the file");
  const auto list = ReadDesigners(bench.workspace);
  Require(bench.workspace.Read(work_file::kDesigners).value() == file, "reading changes nothing");
  if (!list) {
    Require(list.error().Line().find("CLIENTS.VAM") != std::string::npos, "the file is named");
    return 0;
  }
  Require(list->names.size() * RecordSize<DesignerRow>() == file.size(), "every record is a name");
  Require(!list->names.empty() || list->password.empty(), "no name, no password");
  for (const std::string& name : list->names) {
    Require(IsUtf8(name) && ListedDesigner(name) == name, "names are as they are listed");
  }
  Require(WriteDesigners(bench.workspace, *list).ok(), "it can be written");
  Require(ReadDesigners(bench.workspace).value() == *list, "and comes back");
  return 0;
}
