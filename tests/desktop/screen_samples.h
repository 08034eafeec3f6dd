#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desktop/pages/shown_pages.h"
#include "engine/diameter_change.h"
#include "results/frm_chang.h"
#include "shell/copying/frm_copy.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/filled_report.h"
#include "tests/desktop/pictures.h"

namespace kalvo {

/// The delivered studies in a folder whose name says nothing of this machine: pictures show it.
inline std::filesystem::path Samples() {
  const auto folder = std::filesystem::path(testing::TempDir()) / "PFILES";
  std::filesystem::create_directories(folder);
  std::filesystem::copy(
      KALVO_SAMPLES_DIR, folder,
      std::filesystem::copy_options::recursive | std::filesystem::copy_options::update_existing);
  return folder;
}

/// Three larger pipes where the hotel loses most.
inline RunEnd EnlargeThree(CalculatedDesk& desk) {
  Workbench& bench = desk.study.bench;
  const auto library = ReadPipeSystem(bench.workspace, bench.study.pipe_system_number);
  const auto pipe = [&library](std::string_view name) {
    const auto bears = [name](const PipeRow& row) { return row.nominal_diameter.Utf8() == name; };
    return *std::ranges::find_if(*library, bears);
  };
  return ChangeDiameters(bench, {{{7, 12}, pipe("1 1/4")}, {{1}, pipe("6")}}).end;
}

/// Some sections have got another diameter, others are selected for the next one.
inline void UseManyDiameters(CalculatedDesk& desk) {
  auto& form = dynamic_cast<FrmChang&>(*desk.windows.FormOf(screen::kManyDiameters));
  form.fpSpread1.TakeSelection(std::vector{2, 8});
  form.fpSpread2.MoveTo({6, 0});
  form.Run(form.CmdChange);
  form.fpSpread1.TakeSelection(std::vector{1, 4, 5, 6, 9});
  form.fpSpread2.MoveTo({5, 0});
  desk.windows.PaintAll();
  QApplication::processEvents();
}

/// A stick that has studies already, and three chosen for it.
class CopiedSamples {
 public:
  explicit CopiedSamples(CalculatedDesk& desk) : desk_(desk) {
    namespace fs = std::filesystem;
    fs::remove_all(stick_);
    for (const char* folder : {"MELETES/2025", "MELETES/2026", "ARXEIO"}) {
      fs::create_directories(stick_ / folder);
    }
    fs::copy_file(Samples() / "fancoil.PCK", stick_ / "MELETES" / "GRAFEIA.PCK");
    desk.volumes.volumes = {
        {.kind = VolumeKind::kRemovable, .name = "Αφαιρούμενο μέσο", .place = stick_},
        {.kind = VolumeKind::kHome, .name = "Φάκελος χρήστη", .place = Samples().parent_path()},
        {.kind = VolumeKind::kSystem, .name = "Όλοι οι φάκελοι", .place = "/"}};
    desk.volumes.room = {.capacity = 2'000'000, .free = 700'000, .block = 4096, .writable = true};
  }
  // The copying is pictured as it begins, and with its report.
  void Use(const QString& picture) {
    auto& form = dynamic_cast<FrmCopy&>(*desk_.windows.FormOf(screen::kCopy));
    form.DirList2.Select(2);
    for (const int line : {1, 0, 2}) form.FileList1.Tick(line);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
      if (!form.Bar.visible) return;
      look.stop();
      desk_.windows.PaintAll();
      QWidget& window = *desk_.windows.WindowOf(screen::kCopy);
      ExpectNothingClipped(window);
      KeepPicture(window, picture);
    });
    look.start(0);
    form.Run(form.CmdGo);
    desk_.windows.PaintAll();
    EXPECT_EQ(form.Report.count(), 3);
  }

 private:
  CalculatedDesk& desk_;
  std::filesystem::path stick_ = std::filesystem::path(testing::TempDir()) / "KINGSTON";
};

/// The study's results as they are previewed.
struct PreviewedSample {
  void Attach(Desk& desk) {
    book = FilledReport(desk.bench, CodeOf(ReportMode::kPreview), ReportKind::kResults);
    pages.emplace(book, desk.separators);
    desk.questions.previewed = &*pages;
    desk.questions.preview = {.title = "Αποτελέσματα",
                              .client = std::string(kSampleDesigner),
                              .name = "hotel_RCO.XLS",
                              .note = "604 τμήματα",
                              .pdf = "hotel_RCO.PDF"};
  }
  Workbook book;
  std::optional<ShownPages> pages;
};

}  // namespace kalvo
