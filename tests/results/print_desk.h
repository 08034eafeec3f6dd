#pragma once

#include <optional>

#include "form/file_dialog.h"
#include "results/printing/frm_prnr1.h"
#include "results/printing/frm_xl_or_not.h"
#include "results/printing/print_database.h"
#include "results/printing/print_study.h"
#include "tests/results/report_desk.h"

namespace kalvo {

/// A database program that notes what it is told.
class NotedDatabase : public PrintDatabase {
 public:
  Outcome Export(const std::filesystem::path& shell, const PrintTable& table,
                 const std::filesystem::path& file) override {
    log.push_back(shell.filename().string() + " to " + file.filename().string() + " : " +
                  std::to_string(table.lines.size()));
    return refusal ? Outcome(*refusal) : Outcome(Done{});
  }
  Outcome ExportWorkbook(const PrintTable& /*table*/, const std::filesystem::path& file) override {
    log.push_back("workbook " + file.filename().string());
    return Done{};
  }
  std::vector<std::string> log;
  std::optional<FileError> refusal;
};

class AnsweringFileDialog : public FileDialog {
 public:
  std::filesystem::path ChooseTarget(const FileRequest& request) override {
    asked.push_back(request);
    return answer;
  }
  std::filesystem::path answer = kNoFileAtAll;
  std::vector<FileRequest> asked;
};

/// A desk with everything that prints, and the form that asks where to.
class PrintDesk : public ReportDesk {
 public:
  explicit PrintDesk(SystemKind kind = SystemKind::kClosed) : ReportDesk(kind) {
    EXPECT_TRUE(test.outer_disk.MakeFolder("/studies").ok());
    desk.program_folder = kTemplates;
    desk.data_folder = "/studies";
    desk.spreadsheet = &application;
    desk.print_database = &database;
    desk.file_dialog = &files;
    test.study.results_valid = true;
    test.study.study_path = "/studies/hotel.PCK";
    printer.known = {{"Γραφείο 1", "πρώτος όροφος", "PS", false},
                     {"Γραφείο 2", "ισόγειο", "PCL", true}};
    printer.answer = [](const PrintOrder& asked) { return asked; };
  }

  /// Opens the form by a route, as a command would; `use` is what the user does in it.
  template <typename Use>
  void In(ReportKind kind, bool spreadsheet, Use&& use) {
    if (!spreadsheet) {
      navigator.Expect(screen::kPrintRoute, [this] {
        FrmXLorNOT route(desk);
        route.Load();
        route.OptCRW.Set(true);
        route.Run(route.CmdOK);
      });
    }
    navigator.Expect(screen::kPrint, [this, &use] {
      FrmPRNR1 form(desk);
      form.Load();
      form.Derive();
      use(form);
    });
    spreadsheet ? PrintBySpreadsheet(desk, kind) : PrintByChosenRoute(desk, kind);
  }
  [[nodiscard]] bool Closed() {
    const std::vector<std::string> log = TakeLog();
    return std::ranges::count(log, "close FrmPRNR1") > 0;
  }

  NotedDatabase database;
  AnsweringFileDialog files;
};

}  // namespace kalvo
