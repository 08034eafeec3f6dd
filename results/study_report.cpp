#include "results/study_report.h"

#include <algorithm>

#include "engine/lost_walk.h"
#include "results/critical_sections.h"
#include "results/quantities.h"
#include "study/fault.h"

namespace kalvo {

namespace {

std::string Joined(const std::vector<std::string>& nodes) {
  std::string text;
  for (const std::string& node : nodes) {
    text += (text.empty() ? "" : " - ") + node;
  }
  return text;
}

// What the rows of a calculated study tell.
void TakeRows(StudyReport& report, std::vector<SectionRow> rows, std::string_view critical) {
  report.rows = std::move(rows);
  report.critical = CriticalSections(critical, report.rows.size());
  report.critical_nodes = Joined(NodesAlong(report.kind, report.rows, report.critical));
  if (report.kind == SystemKind::kOpen) {
    report.outlets = SparesOf(report.rows);
  }
  if (!report.rows.empty()) {
    report.method = MethodOf(report.rows.front());
    report.critical_drop = report.rows.front().DP;
  }
}

void TakeQuantities(StudyReport& report, const Workbench& bench) {
  if (auto quantities = ReadQuantities(bench.workspace, bench.study)) {
    report.recount = quantities->RecountText();
    report.pipes = std::move(quantities->lines);
  }
  if (report.kind == SystemKind::kClosed) {
    report.water_litres = WaterContent(report.pipes);
  }
}

// What the study tells of summer and winter alike.
StudyReport BeginReport(const Workbench& bench, const std::string& file) {
  const Study& study = bench.study;
  StudyReport report;
  report.file = file;
  report.title = study.study_title;
  report.kind = study.system_kind;
  report.fluid = study.fluid_name;
  report.fluid_assumed = study.fluid_assumed;
  const auto number = static_cast<std::size_t>(study.pipe_system_number);
  if (number >= 1 && number <= bench.pipes.size()) {
    report.pipe_system = bench.pipes[number - 1].title;
  }
  return report;
}

}  // namespace

bool StudyReport::IsCritical(int section) const {
  return std::find(critical.begin(), critical.end(), section) != critical.end();
}

std::string MethodText(std::optional<Method> method) {
  return method == Method::kFlowAndPressure
             ? "2 - Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και Τροποποίηση των Διαμέτρων"
             : "1 - Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες";
}

StudyReport MakeReport(const Workbench& bench, const std::string& file) {
  const Study& study = bench.study;
  StudyReport report = BeginReport(bench, file);
  report.mean_temperature = study.MeanTemp;
  report.design_velocity = study.MeanVel;
  report.total_flow_m3h = study.TotalFlowM3h;
  report.pump_head_m = study.PumpHead;
  TakeQuantities(report, bench);
  report.lost_walk = FindLostWalk(study);
  auto rows = bench.workspace.Rows().ReadAll();
  TakeRows(report, rows ? std::move(rows).value() : std::vector<SectionRow>(),
           study.critical_branch);
  if (const auto library = ReadPipeSystem(bench.workspace, study.pipe_system_number)) {
    report.notes = NotesOf(report.kind, report.rows, *library);
  }
  return report;
}

StudyReport MakeWinterReport(const Workbench& bench, const std::string& file,
                             const std::string& critical_branch) {
  StudyReport report = BeginReport(bench, file);
  report.winter = true;
  if (auto rows = bench.workspace.Rows(work_file::kWinter).ReadAll(); rows && !rows->empty()) {
    const SectionRow& first = rows->front();
    report.mean_temperature = first.MeanTemp;
    report.total_flow_m3h = first.PAR;
    report.pump_head_m = ToSingle(first.DP / 1000.0);
    TakeRows(report, std::move(rows).value(), critical_branch);
  }
  return report;
}

}  // namespace kalvo
