// manual_tables [--check] <folder of chapters> <library folder>
//     makes the tables of the manual anew that the program itself has: keys, messages, pipes. They
//     are between "<!-- table: NAME -->" and "<!-- end -->". --check changes nothing and names the
//     chapters that are out of date; then it ends with 1.

#include <charconv>
#include <iostream>
#include <stdexcept>

#include "shell/manual/manual_book.h"
#include "study/real_disk.h"
#include "tools/tables/key_index.h"
#include "tools/tables/message_text.h"
#include "tools/tables/pipe_tables.h"
#include "tools/tables/table_files.h"

namespace kalvo {
namespace {

constexpr std::string_view kMessage = "message ";

std::string TableOf(std::string_view name, const std::filesystem::path& library) {
  if (name == "pipes") return PipeTables(library);
  if (name == "keys") return KeyIndex();
  if (!name.starts_with(kMessage)) return {};
  name.remove_prefix(kMessage.size());
  int number = 0;
  const auto read = std::from_chars(name.data(), name.data() + name.size(), number);
  return read.ec == std::errc() ? MessageText(number) : std::string();
}

// The number of chapters that were out of date.
int Renew(const std::filesystem::path& folder, const std::filesystem::path& library, bool check) {
  RealDisk disk;
  const auto book = ManualBook::Read(disk, folder);
  if (!book) throw std::runtime_error(book.error().Line());
  int outdated = 0;
  for (const BookChapter& chapter : book->chapters()) {
    std::string text =
        WithTables(chapter.text, [&](std::string_view name) { return TableOf(name, library); });
    if (text == chapter.text) continue;
    ++outdated;
    const std::filesystem::path file = folder / (chapter.name + ".md");
    std::cout << (check ? "out of date: " : "made anew: ") << file.string() << '\n';
    if (check) continue;
    const Outcome written = ReplaceFile(disk, file, std::move(text));
    if (!written) throw std::runtime_error(written.error().Line());
  }
  return outdated;
}

}  // namespace
}  // namespace kalvo

int main(int argc, char** argv) {
  const bool check = argc > 1 && std::string_view(argv[1]) == "--check";
  const int first = check ? 2 : 1;
  if (argc != first + 2) {
    std::cerr << "usage: manual_tables [--check] <folder of chapters> <library folder>\n";
    return 2;
  }
  try {
    const int outdated = kalvo::Renew(argv[first], argv[first + 1], check);
    return check && outdated > 0 ? 1 : 0;
  } catch (const std::exception& error) {
    std::cerr << "manual_tables: " << error.what() << '\n';
    return 2;
  }
}
