#include "entry/sheet/frm_data_sheet.h"
#include "entry/sheet/sheet_pages.h"
#include "form/print_table.h"
#include "study/date_text.h"

namespace kalvo {

// The sheet as it is shown, with whatever is missing in it.
void FrmData_Sheet::PrintSheet() {
  Focus(fpSpread1);
  const Study& study = bench.study;
  PrintedTable table = SheetPages(fpSpread1, sitting_.draft.Count(), desk.separators);
  if (table.pages.empty()) {
    Tell("Το φύλλο δεν έχει τμήματα προς εκτύπωση");
    return;
  }
  const std::string& file = study.study_short_name;
  table.title = study.study_title;
  table.heading = title;
  table.name = table.title.empty() ? title : table.title;
  table.origin = (file.empty() ? "" : file + " · ") + DateText(bench.workspace.Now());
  const std::string& base = study.study_base_name;
  Tell(PrintTable(desk, table, (base.empty() ? "" : base + "_") + "SPREAD.PDF"));
}

}  // namespace kalvo
