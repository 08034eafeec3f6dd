#include "cli/study_commands.h"

#include "cli/findings.h"
#include "cli/text_table.h"
#include "engine/checks.h"
#include "engine/flow_report.h"
#include "engine/trap.h"

namespace kalvo {

int StudyCommand::Run(const Console& console) {
  Session session(console, Library());
  session.prompter().ignore_capacity = true;
  if (!session.ok() || !session.Load(file_)) {
    return exit_code::kUnreadable;
  }
  return RunOn(console, session);
}

void StudyCommand::AddArguments(CLI::App& app) {
  app.add_option("STUDY", file_, "Αρχείο μελέτης (.PCK)")->required()->type_name("");
  AddLibraryOption(app);
}

namespace {

// Flow report under the trap: false when it was broken off.
bool WriteFlows(Workbench& bench) {
  RunTrapped(bench, [&] { WriteSectionFlows(bench); });
  return bench.study.CalcStatus != calc_status::kBrokenOff;
}

using Check = void (*)(Workbench&);

// Runs checks one after the other and prints what each finds; true when one found something.
bool PrintChecks(const Console& console, Session& session, std::initializer_list<Check> checks) {
  Workbench bench = session.bench();
  bool found = false;
  for (const Check check : checks) {
    session.workspace().Delete(work_file::kErrors);
    session.study().CalcStatus = calc_status::kNothing;
    RunTrapped(bench, [&] { check(bench); });
    found = found || session.study().CalcStatus != calc_status::kNothing;
    PrintFindings(console.out, session);
    session.study().lost_walk.reset();
  }
  return found;
}

}  // namespace

int CheckCommand::RunOn(const Console& console, Session& session) {
  const bool found =
      session.study().SystemOpen()
          ? PrintChecks(console, session, {CheckFeedersByName, CheckFeederNumbers, CheckFeederUse})
          : PrintChecks(console, session, {WriteSectionFlows, CheckNodes});
  if (found) {
    return exit_code::kRefused;
  }
  if (!console.quiet) {
    console.out << "... Οι Ονομασίες των Τμημάτων ΔΕΝ δείχνουν να έχουν πρόβλημα ...\n";
  }
  return exit_code::kDone;
}

int FlowsCommand::RunOn(const Console& console, Session& session) {
  Workbench bench = session.bench();
  if (!session.study().SystemClosed()) {
    console.err << "Η κατάσταση παροχών αφορά κλειστό σύστημα : " << file() << '\n';
    return exit_code::kRefused;
  }
  const bool written = WriteFlows(bench);
  if (const auto report = session.workspace().Read(work_file::kFlowReport)) {
    console.out << *report;
  }
  if (!written) {
    return exit_code::kBrokenOff;
  }
  if (session.study().CalcStatus > 0) {
    bench.Show(2004);
    PrintFindings(console.err, session);
    return exit_code::kRefused;
  }
  return exit_code::kDone;
}

int ShowCommand::RunOn(const Console& console, Session& session) {
  const Study& study = session.study();
  const std::vector<SectionRow> rows = session.Rows();
  const auto number = [&](float value) { return FormatNumber(value, console.separators); };
  const auto fact = [&](const std::string& label, const std::string& text) {
    PrintWrapped(console, label + " : " + text);
  };
  console.out << console.Strong(study.study_title.empty() ? file() : study.study_title) << '\n';
  fact("Αρχείο", study.study_path.string() + "  " + study.study_date + " " + study.study_time);
  fact("Σύστημα", study.SystemOpen() ? "Ανοικτό" : "Κλειστό");
  fact("Σύστημα σωλήνων",
       session.pipes()[static_cast<std::size_t>(study.pipe_system_number - 1)].Text());
  fact("Υλικό", study.pipe_material);
  fact("Υγρό", study.fluid_name + ", " + number(study.MeanTemp) + " °C");
  fact("Μέση ταχύτητα", number(study.MeanVel) + " m/s");
  fact("Τμήματα", std::to_string(study.SectionCount));
  fact(study.SystemOpen() ? "Υποδοχείς" : "Σώματα", std::to_string(study.EmitterCount));
  fact("Τμήμα με Λέβητα ή Chiller", std::to_string(study.plant_section));
  fact("Αποτελέσματα", study.results_valid ? "ναι, αντλία " + number(study.TotalFlowM3h) +
                                                 " m³/h, " + number(study.PumpHead) + " m w.g."
                                           : "όχι");
  console.out << '\n';
  TextTable table({{"α/α", ""},
                   {"Τμήμα", "", true},
                   {"Μήκος", "m"},
                   {"Παροχή", "l/h"},
                   {"Σώμα", study.SystemOpen() ? "m w.g." : "mm w.g."},
                   {"Γων", ""},
                   {"Καμπ", ""},
                   {"Βάν", ""},
                   {"ΕυθΔ", ""},
                   {"ΓωνΔ", ""},
                   {"Διακλ", ""},
                   {"Διέλ", ""},
                   {"Αντιρ", ""},
                   {"Συμβ", ""},
                   {"Αντεπ", ""},
                   {"Άλλη", "mm w.g."},
                   {"Άλλη", "m"},
                   {"Διάμετρος", "", true, true}});
  for (const SectionRow& row : rows) {
    table.Add({std::to_string(row.RecordNumber), FromCodePage(row.Name.bytes()), number(row.Length),
               number(row.WaterFlow), number(row.SomaDrop), number(row.AnglePOP),
               number(row.Elbow90), std::to_string(row.GateValve), std::to_string(row.StrSwitch),
               std::to_string(row.AngSwitch), std::to_string(row.DiaTee),
               std::to_string(row.DieTee), std::to_string(row.AntiTee),
               std::to_string(row.SymboTee), std::to_string(row.CheckValve),
               number(row.OtherDrop_mm), number(row.OtherDrop_m), row.NomiDiam.Utf8()});
  }
  table.Print(console);
  return exit_code::kDone;
}

}  // namespace kalvo
