#include "study/study_title.h"

namespace kalvo {

Outcome StoreTitle(Workbench& bench, std::string_view title) {
  const auto thema = decltype(SectionRow::Thema)::FromUtf8(title);
  if (bench.workspace.HasBytes(work_file::kRows)) {
    auto rows = bench.workspace.Rows().ReadAll();
    if (!rows) return rows.error();
    for (SectionRow& row : *rows) {
      row.Thema = thema;
    }
    if (Outcome written = bench.workspace.Rows().WriteAll(*rows); !written) return written;
    bench.study.unsaved_changes = true;
  }
  bench.study.study_title = thema.Utf8();
  return Done{};
}

}  // namespace kalvo
