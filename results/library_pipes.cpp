#include "results/library_pipes.h"

#include "form/tell.h"
#include "study/numeric_text.h"

namespace kalvo {

GridColumn CentredColumn(const char* header, int width) {
  return {.header = header, .width = width, .number = false, .centred = true};
}

std::string BracketedDiameter(float mm, Separators separators) {
  return " [ " + FormatNumber(mm, separators) + " ]";
}

void ShowPipes(Grid& grid, std::span<const PipeRow> pipes, Separators separators) {
  int row = 0;
  for (const PipeRow& pipe : pipes) {
    grid.Set(row, 0, {pipe.nominal_diameter.Utf8()});
    grid.Set(row, 1, {BracketedDiameter(pipe.inner_diameter, separators)});
    ++row;
  }
}

bool BearsDiameter(const PipeRow& pipe, const SectionRow& row) {
  return pipe.nominal_diameter.Trimmed() == row.NomiDiam.Trimmed();
}

PipeChoice ChoosePipe(Workbench& bench, std::span<const PipeRow> shown, int row) {
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || at >= shown.size()) return {{}, "Επιλέξτε μία διάμετρο της λίστας.", {}};
  auto pipes = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  if (!pipes) {
    TellError(bench, pipes.error());
    return {};
  }
  if (at < pipes->size() && (*pipes)[at].nominal_diameter == shown[at].nominal_diameter) {
    return {(*pipes)[at], {}, {}};
  }
  return {{}, "Η βιβλιοθήκη σωλήνων άλλαξε, επιλέξτε ξανά.", *std::move(pipes)};
}

}  // namespace kalvo
