#include "results/reports/quantities_report.h"

namespace kalvo {
namespace {

std::size_t SizeLines(const ReportSource& source) { return source.sizes.size(); }

template <auto kField>
ReportValue OfSize(const ReportSource& source, std::size_t line) {
  return NumberCell(source.sizes[line].*kField);
}

constexpr HeadCell kHead[] = {
    {1, 1, [](const ReportSource& source) -> ReportValue { return "Μελέτη : " + source.designer; }},
    {4, 1, StudyTitleCell},
    {8, 1, [](const ReportSource& source) -> ReportValue { return PipeMaterialLine(source); }},
    {9, 1, [](const ReportSource& source) -> ReportValue { return PipeTitle(source); }},
    {12, 8, TotalFlowCell},
    {13, 8, PumpHeadCell},
};

constexpr LineColumn kColumns[] = {
    {1,
     [](const ReportSource& /*source*/, std::size_t line) -> ReportValue {
       return NumberCell(line + 1);
     }},
    {2,
     [](const ReportSource& source, std::size_t line) -> ReportValue {
       return source.sizes[line].NomiDiameter.Utf8();
     }},
    {3, OfSize<&StatRow::Length>},
    {4, OfSize<&StatRow::Corners>},
    {5, OfSize<&StatRow::Elbows>},
    {6, OfSize<&StatRow::GlobeV>},
    {7, OfSize<&StatRow::StraightV>},
    {8, OfSize<&StatRow::CornerV>},
    {9, OfSize<&StatRow::CheckV>},
};

}  // namespace

const ReportTable kQuantitiesReport{
    .template_file = "KALV_PR.xls",
    .suffix = "_PROM.XLS",
    .sheet = "Sheet1",
    .page = {.height = 59, .lines = 39, .first_line = 19},
    .head = kHead,
    .columns = kColumns,
    .line_count = SizeLines,
    .line_noun = "Διάμετρος",
    .lines_noun = "Διαμέτρων",
    .page_sheet = "Sheet2",
    .gap_height = 7,
};

}  // namespace kalvo
