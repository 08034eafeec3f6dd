#include "results/reports/section_report.h"

#include "study/method.h"

namespace kalvo {
namespace {

std::size_t SectionLines(const ReportSource& source) { return source.rows.size(); }

template <auto kField>
ReportValue OfSection(const ReportSource& source, std::size_t line) {
  return NumberCell(source.rows[line].*kField);
}

// Blanks around the slash keep the two nodes in line.
ReportValue SectionName(const ReportSource& source, std::size_t line) {
  return FromCodePage(source.rows[line].Name.bytes());
}

ReportValue DiameterOfSection(const ReportSource& source, std::size_t line) {
  const SectionRow& row = source.rows[line];
  if (row.InDiameter == 0.0F) return {};
  const std::string name = row.NomiDiam.Utf8();
  return row.InDiameter > 0.0F ? name : "(" + name + ")";
}

bool HasChangedDiameter(const ReportSource& source, std::size_t line) {
  return source.rows[line].InDiameter < 0.0F;
}

ReportValue KindLine(const ReportSource& source) {
  return source.kind == SystemKind::kOpen ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
}

ReportValue MethodLine(const ReportSource& source) {
  const auto method = MethodOf(source.header());
  if (source.kind == SystemKind::kOpen || !method) return {};
  return *method == Method::kFlowOnly
             ? "Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες >"
             : "Τρόπος Υπολογισμού : < Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και "
               "Τροποποίηση των Διαμέτρων >";
}

ReportValue FluidLine(const ReportSource& source) { return "Υγρό : " + source.fluid; }

// m³/h, of the sections that end in an emitter or outlet.
ReportValue FlowOfEmitters(const ReportSource& source) {
  double flow_lh = 0;
  for (const SectionRow& row : source.rows) {
    if (row.HasEmitter()) flow_lh += ThroughText(row.WaterFlow);
  }
  return NumberCell(flow_lh / 1000.0);
}

constexpr HeadCell kResultsHead[] = {
    {1, 1,
     [](const ReportSource& source) -> ReportValue {
       return "Μελετητής : " + std::string(Trim(source.designer));
     }},
    {4, 1, StudyTitleCell},
    {6, 7, KindLine},
    {8, 1,
     [](const ReportSource& source) -> ReportValue {
       return "Είδος Σωλήνων : " + PipeTitle(source);
     }},
    {9, 1, MethodLine},
    {10, 1, FluidLine},
    {12, 8, TotalFlowCell},
    {13, 8, PumpHeadCell},
};

constexpr LineColumn kResultsColumns[] = {
    {2, OfSection<&SectionRow::RecordNumber>}, {3, SectionName},
    {4, OfSection<&SectionRow::Length>},       {5, OfSection<&SectionRow::WaterFlow>},
    {6, OfSection<&SectionRow::Velocity>},     {7, DiameterOfSection, HasChangedDiameter},
    {8, OfSection<&SectionRow::AvaiPres>},
};

// The last column of the head is the one thing in which the two kinds differ.
template <int kLastColumn>
constexpr HeadCell kDataHead[] = {
    {1, 1,
     [](const ReportSource& source) -> ReportValue { return "Μελετητής : " + source.designer; }},
    {4, 1, StudyTitleCell},
    {6, 6, FluidLine},
    {8, 1,
     [](const ReportSource& source) -> ReportValue {
       return PipeMaterialLine(source) + "  /  Τυποποίηση Σωλήνων : " + PipeTitle(source);
     }},
    {11, 6,
     [](const ReportSource& source) -> ReportValue {
       return NumberCell(source.header().MeanTemp);
     }},
    {12, 6,
     [](const ReportSource& source) -> ReportValue { return NumberCell(source.rows.size()); }},
    {11, kLastColumn, FlowOfEmitters},
    {12, kLastColumn,
     [](const ReportSource& source) -> ReportValue { return NumberCell(source.header().MeanVel); }},
};

constexpr LineColumn kClosedColumns[] = {
    {1, OfSection<&SectionRow::RecordNumber>}, {2, SectionName},
    {3, OfSection<&SectionRow::Length>},       {4, OfSection<&SectionRow::WaterFlow>},
    {5, OfSection<&SectionRow::SomaDrop>},     {6, OfSection<&SectionRow::AnglePOP>},
    {7, OfSection<&SectionRow::Elbow90>},      {8, OfSection<&SectionRow::GateValve>},
    {9, OfSection<&SectionRow::StrSwitch>},    {10, OfSection<&SectionRow::AngSwitch>},
    {11, OfSection<&SectionRow::DiaTee>},      {12, OfSection<&SectionRow::DieTee>},
    {13, OfSection<&SectionRow::AntiTee>},     {14, OfSection<&SectionRow::SymboTee>},
    {15, OfSection<&SectionRow::CheckValve>},  {16, OfSection<&SectionRow::OtherDrop_mm>},
    {17, OfSection<&SectionRow::OtherDrop_m>},
};

constexpr LineColumn kOpenColumns[] = {
    {1, OfSection<&SectionRow::RecordNumber>},  {2, SectionName},
    {3, OfSection<&SectionRow::Length>},        {4, OfSection<&SectionRow::WaterFlow>},
    {5, OfSection<&SectionRow::SomaDrop>},      {6, OfSection<&SectionRow::HeightDiff>},
    {7, OfSection<&SectionRow::AnglePOP>},      {8, OfSection<&SectionRow::Elbow90>},
    {9, OfSection<&SectionRow::GateValve>},     {10, OfSection<&SectionRow::StrSwitch>},
    {11, OfSection<&SectionRow::AngSwitch>},    {12, OfSection<&SectionRow::DiaTee>},
    {13, OfSection<&SectionRow::DieTee>},       {14, OfSection<&SectionRow::AntiTee>},
    {15, OfSection<&SectionRow::SymboTee>},     {16, OfSection<&SectionRow::CheckValve>},
    {17, OfSection<&SectionRow::OtherDrop_mm>}, {18, OfSection<&SectionRow::OtherDrop_m>},
};

constexpr PageShape kResultsPage{.height = 59, .lines = 40, .first_line = 18};
constexpr PageShape kDataPage{.height = 39, .lines = 20, .first_line = 18};

}  // namespace

const ReportTable kResultsReport{
    .template_file = "KALV_RS.xls",
    .suffix = "_RCO.XLS",
    .sheet = "Αποτελέσματα",
    .page = kResultsPage,
    .head = kResultsHead,
    .columns = kResultsColumns,
    .line_count = SectionLines,
    .line_noun = "Τμήμα",
    .lines_noun = "Τμημάτων",
};

const ReportTable kClosedDataReport{
    .template_file = "KALV_CD.xls",
    .suffix = "_DC.XLS",
    .sheet = "Δεδομένα κλειστού",
    .page = kDataPage,
    .head = kDataHead<16>,
    .columns = kClosedColumns,
    .line_count = SectionLines,
    .line_noun = "Τμήμα",
    .lines_noun = "Τμημάτων",
};

const ReportTable kOpenDataReport{
    .template_file = "KALV_OD.xls",
    .suffix = "_DO.XLS",
    .sheet = "Δεδομένα ανοικτού",
    .page = kDataPage,
    .head = kDataHead<17>,
    .columns = kOpenColumns,
    .line_count = SectionLines,
    .line_noun = "Τμήμα",
    .lines_noun = "Τμημάτων",
};

}  // namespace kalvo
