#include "results/reports/report_table.h"

#include "study/pipe_list.h"

namespace kalvo {

ReportValue TotalFlowCell(const ReportSource& source) { return NumberCell(source.header().PAR); }

ReportValue PumpHeadCell(const ReportSource& source) {
  return NumberCell(source.header().DP / 1000.0F);
}

ReportValue StudyTitleCell(const ReportSource& source) { return source.header().Thema.Utf8(); }

std::string PipeTitle(const ReportSource& source) { return source.pipe.title.Utf8(); }

std::string PipeMaterialLine(const ReportSource& source) {
  return MaterialLine(source.pipe.material.Utf8());
}

}  // namespace kalvo
