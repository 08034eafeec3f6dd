#include "cli/study_report.h"

#include <algorithm>

#include "results/quantities.h"
#include "study/text_lines.h"

namespace kalvo {

namespace {

// Numbers of the cells of a branch's text, "1  -7  -12 -".
std::vector<int> SectionsOf(std::string_view branch) {
  std::vector<int> sections;
  constexpr Separators kPlain{'.', ','};
  for (std::size_t at = 0; at < branch.size(); at += 4) {
    sections.push_back(static_cast<int>(ParseNumber(branch.substr(at, 3), kPlain)));
  }
  return sections;
}

std::string NodeText(std::string_view node) { return FromCodePage(Trim(node)); }

std::string NodesAlong(const std::vector<int>& sections, const std::vector<SectionRow>& rows) {
  std::string nodes;
  for (const int section : sections) {
    const auto index = static_cast<std::size_t>(section - 1);
    if (index >= rows.size()) {
      continue;
    }
    if (nodes.empty()) {
      nodes = NodeText(LeftNode(rows[index].Name));
    }
    nodes += " - " + NodeText(RightNode(rows[index].Name));
  }
  return nodes;
}

}  // namespace

bool StudyReport::IsCritical(int section) const {
  return std::find(critical.begin(), critical.end(), section) != critical.end();
}

std::string MethodText(int method) {
  return method == 2
             ? "2 - Εξισορρόπηση Κλάδων, με Ρυθμιστικές Βαλβίδες και Τροποποίηση των Διαμέτρων"
             : "1 - Εξισορρόπηση Κλάδων με Ρυθμιστικές Βαλβίδες";
}

StudyReport MakeReport(Session& session, const std::string& file) {
  const Study& study = session.study();
  StudyReport report;
  report.file = file;
  report.title = study.study_title;
  report.fluid = study.fluid_name;
  report.fluid_assumed = study.fluid_assumed;
  report.mean_temperature = study.MeanTemp;
  report.design_velocity = study.MeanVel;
  report.total_flow_m3h = study.TotalFlowM3h;
  report.pump_head_m = study.PumpHead;
  report.rows = session.Rows();
  report.pipes = study.PipeStats;
  report.water_litres = WaterContent(report.pipes);
  report.critical = SectionsOf(study.critical_branch);
  report.critical_nodes = NodesAlong(report.critical, report.rows);
  if (!report.rows.empty()) {
    report.method = static_cast<int>(report.rows.front().INILAMDA);
    report.critical_drop = report.rows.front().DP;
  }
  const auto number = static_cast<std::size_t>(study.pipe_system_number);
  if (number >= 1 && number <= session.pipes().size()) {
    report.pipe_system = session.pipes()[number - 1].title;
  }
  if (const auto library = ReadPipeSystem(session.workspace(), study.pipe_system_number)) {
    report.notes = NotesOf(report.rows, *library);
  }
  return report;
}

}  // namespace kalvo
