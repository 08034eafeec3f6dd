#include "cli/show_command.h"

#include <algorithm>

#include "cli/findings.h"
#include "cli/report_table.h"
#include "cli/session.h"
#include "cli/text_table.h"
#include "engine/fittings.h"
#include "study/numeric_text.h"

namespace kalvo {

namespace {

// Data of a section that only some studies have anything in.
struct DataColumn {
  const char* head;
  const char* unit;
  NumberField value;
  int decimals = 0;  ///< always shown; of a count those that it has
};

std::vector<DataColumn> DataColumns() {
  std::vector<DataColumn> columns = {{"Ύψος", "m", &SectionRow::HeightDiff, 2}};
  for (const Fitting& fitting : kFittings) {
    columns.push_back({fitting.head[0], fitting.head[1], fitting.count});
  }
  columns.push_back({"Άλλη πτώση", "mm w.g.", &SectionRow::OtherDrop_mm, 2});
  columns.push_back({"Άλλο μήκος", "m", &SectionRow::OtherDrop_m, 3});
  columns.push_back({"Λέβητας", "δείκτης", &SectionRow::Auxi});
  return columns;
}

class ShowPrinter {
 public:
  ShowPrinter(const Console& console, Session& session, std::string file)
      : console_(console), session_(session), study_(session.study()), file_(std::move(file)) {}

  void Print() {
    PrintFacts();
    console_.out << '\n';
    PrintSections();
    if (!study_.results_valid) {
      console_.out << "Η μελέτη δεν έχει αποτελέσματα\n";
    } else {
      console_.out << '\n';
      PrintReport(console_, MakeReport(session_.bench(), file_), PressureUnits::kWaterGauge);
    }
  }

 private:
  [[nodiscard]] std::string Number(float value) const {
    return FormatNumber(value, console_.separators);
  }
  [[nodiscard]] std::string Text(float value, int decimals) const {
    return WithDecimals(value, decimals, console_.separators);
  }

  void PrintFacts() const {
    const auto number = static_cast<std::size_t>(study_.pipe_system_number);
    const std::pair<std::string, std::string> facts[] = {
        {"Αρχείο", study_.study_path.string() + "  " + study_.study_date + " " + study_.study_time},
        {"Σύστημα", study_.SystemOpen() ? "Ανοικτό" : "Κλειστό"},
        {"Σύστημα σωλήνων", std::to_string(number) + ". " + session_.pipes()[number - 1].title},
        {"Υγρό", study_.fluid_name + ", " + Number(study_.MeanTemp) + " °C"},
        {"Ταχύτητα σχεδιασμού",
         WithEnoughDecimals(study_.MeanVel, 2, console_.separators) + " m/s"},
        {"Τμήματα", std::to_string(study_.SectionCount)},
        {study_.SystemOpen() ? "Υποδοχείς" : "Σώματα", std::to_string(study_.EmitterCount)},
        {"Τμήμα με Λέβητα",
         study_.plant_section == 0 ? "κανένα" : std::to_string(study_.plant_section)},
    };
    console_.out << console_.Heading(
                        Printable(study_.study_title.empty() ? file_ : study_.study_title))
                 << '\n';
    for (const auto& [label, text] : facts) {
      PrintFact(console_, label, text);
    }
    PrintWrapped(console_, MaterialLine(study_.pipe_material));
  }

  void PrintSections() const {
    const std::vector<SectionRow> rows = session_.Rows();
    std::vector<TextColumn> columns = {
        {"α/α", ""},
        {"Τμήμα", "", true},
        {"Μήκος", "m"},
        {"Παροχή", "l/h"},
        {study_.SystemOpen() ? "Υποδοχέας" : "Σώμα", study_.SystemOpen() ? "m w.g." : "mm w.g."}};
    std::vector<DataColumn> used;
    for (const DataColumn& data : DataColumns()) {
      if (std::any_of(rows.begin(), rows.end(), [&data](const SectionRow& row) {
            return NumberOf(row, data.value) != 0.0F;
          })) {
        used.push_back(data);
        columns.push_back({data.head, data.unit});
      }
    }
    TextTable table(columns, 2);
    for (const SectionRow& row : rows) {
      std::vector<std::string> cells = {
          std::to_string(row.RecordNumber), FromCodePage(row.Name.bytes()), Text(row.Length, 2),
          Text(row.WaterFlow, 1), row.HasEmitter() ? Text(row.SomaDrop, 2) : kNoValue};
      for (const DataColumn& data : used) {
        const float value = NumberOf(row, data.value);
        cells.push_back(value == 0.0F        ? kNoValue
                        : data.decimals == 0 ? Number(value)
                                             : Text(value, data.decimals));
      }
      table.Add(std::move(cells));
    }
    table.Print(console_);
  }

  const Console& console_;
  Session& session_;
  const Study& study_;
  std::string file_;
};

}  // namespace

int ShowCommand::RunOn(const Console& console, Session& session) {
  ShowPrinter(console, session, file()).Print();
  TellAssumedFluid(console, session);
  return session.study().results_valid ? TellLostWalk(console, session) : exit_code::kDone;
}

}  // namespace kalvo
