#include "tools/tables/pipe_tables.h"

#include <stdexcept>

#include "study/memory_workspace.h"
#include "study/numeric_text.h"
#include "study/pipe_list.h"

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};

template <typename T>
T Need(Result<T> result) {
  if (!result) throw std::runtime_error(result.error().Line());
  return std::move(result).value();
}

std::string Number(float value, int decimals) { return WithDecimals(value, decimals, kGreek); }

}  // namespace

std::string PipeTables(const std::filesystem::path& library) {
  MemoryWorkspace workspace(library);
  const PipeList list = Need(BuildPipeList(*workspace, EmptyLibraries::kSkip));
  std::string text;
  for (const PipeListEntry& entry : list) {
    const std::vector<PipeRow> sizes = Need(ReadPipeSystem(*workspace, entry.number));
    const std::string number = std::to_string(entry.number);
    text += "### " + std::string(4 - number.size(), '0') + number + ". " + entry.title + "\n\n" +
            "Υλικό " + entry.material + ", τραχύτητα " + Number(sizes.front().roughness, 4) +
            " mm:\n\n" +
            "| ονομαστική διάμετρος | εσωτερική διάμετρος [mm] | διατομή [mm²] |\n"
            "|---|--:|--:|\n";
    for (const PipeRow& size : sizes) {
      text += "| " + size.nominal_diameter.Utf8() + " | " + Number(size.inner_diameter, 1) + " | " +
              Number(size.area, 1) + " |\n";
    }
    text += "\n";
  }
  return text;
}

}  // namespace kalvo
