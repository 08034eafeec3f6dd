// Any pipe libraries. First two bytes: where the input is cut into three files.

#include "fuzz/fuzz_bench.h"
#include "study/pipe_list.h"

namespace {

using namespace kalvo;

using Files = std::map<std::string, std::string>;

Files CutIntoFiles(std::string_view bytes) {
  const std::size_t first = TakeByte(bytes) * RecordSize<PipeRow>() / 16;
  const std::size_t second = TakeByte(bytes) * RecordSize<PipeRow>() / 16;
  Files files;
  for (const auto& [name, length] : {std::pair("0001.WPT", first), {"0002.wpt", second}}) {
    files[name] = bytes.substr(0, length);
    bytes.remove_prefix(files[name].size());
  }
  files["0003.WPT"] = bytes;
  files["readme.txt"] = "no library";
  return files;
}

void RequireEntry(const PipeListEntry& entry, int number, const std::string& bytes) {
  Require(entry.number == number, "numbers are positions");
  Require(IsUtf8(entry.Text()) && IsUtf8(entry.material), "texts are UTF-8");
  Require(entry.Text().size() <= 78 * 3 + 16, "no text longer than its field");
  Require(static_cast<std::size_t>(entry.sizes) == bytes.size() / RecordSize<PipeRow>(), "sizes");
}

void RequireSystems(const FuzzBench& bench, const Files& files) {
  for (int number = 0; number <= 4; ++number) {
    const auto rows = ReadPipeSystem(bench.workspace, number);
    const auto file = files.find("000" + std::to_string(number) + (number == 2 ? ".wpt" : ".WPT"));
    const bool good = file != files.end() && !file->second.empty() &&
                      file->second.size() % RecordSize<PipeRow>() == 0;
    Require(rows.ok() == good, "a system of whole records is read");
    Require(!good || EncodeRows<PipeRow>(*rows) == file->second, "byte for byte");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Files files = CutIntoFiles(AsText(data, size));
  FuzzBench bench(SystemKind::kClosed);
  Require(bench.outer_disk.Remove("/library/0001.WPT").ok(), "own pipes");
  Require(bench.outer_disk.Remove("/library/Liquids.dat").ok(), "own fluids");
  bool whole = true;
  for (const auto& [name, bytes] : files) {
    Require(bench.outer_disk.Write("/library/" + name, bytes).ok(), "file");
    whole = whole && (name == "readme.txt" || bytes.size() % RecordSize<PipeRow>() == 0);
  }
  RequireSystems(bench, files);
  const auto list = BuildPipeList(bench.workspace, EmptyLibraries::kSkip);
  Require(list.ok() == whole, "an odd length ends the list");
  Require(ImageOf(bench.outer_disk, "/library") == files, "listing changes nothing");
  if (!list) {
    Require(UnsuitableLibraryBox(list.error()).lines.size() == 2, "the file is told");
    return 0;
  }
  for (std::size_t i = 0; i < list->size(); ++i) {
    RequireEntry((*list)[i], static_cast<int>(i) + 1, files.at((*list)[i].file_name));
  }
  Require(BuildPipeList(bench.workspace, EmptyLibraries::kDelete)->size() == list->size(), "again");
  std::erase_if(files, [](const auto& file) { return file.second.empty(); });
  Require(ImageOf(bench.outer_disk, "/library") == files, "empty files alone are deleted");
  Require(list->size() + 1 == files.size(), "every other library has its place");
  return 0;
}
