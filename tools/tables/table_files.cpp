#include "tools/tables/table_files.h"

#include <stdexcept>

namespace kalvo {
namespace {

constexpr std::string_view kBegin = "<!-- table: ";
constexpr std::string_view kBeginEnds = " -->\n";
constexpr std::string_view kEnd = "<!-- end -->";

}  // namespace

std::string WithTables(std::string_view chapter, const TableMaker& make) {
  std::string text;
  for (std::size_t at = chapter.find(kBegin); at != chapter.npos; at = chapter.find(kBegin)) {
    const std::size_t name_at = at + kBegin.size();
    const std::size_t name_end = chapter.find(kBeginEnds, name_at);
    const std::size_t end = chapter.find(kEnd, name_at);
    const std::string name(
        chapter.substr(name_at, name_end == chapter.npos ? 0 : name_end - name_at));
    if (name.empty() || end == chapter.npos || name_end > end) {
      throw std::runtime_error("a table without its end: " + name);
    }
    const std::string table = make(name);
    if (table.empty()) throw std::runtime_error("no table of that name: " + name);
    text += chapter.substr(0, name_end + kBeginEnds.size());
    text += table;
    chapter.remove_prefix(end);
  }
  return text + std::string(chapter);
}

}  // namespace kalvo
