#include <gtest/gtest.h>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "desktop/print_notice.h"
#include "desktop/print_service.h"
#include "desktop/qt_printer.h"
#include "entry/sheet/frm_data_sheet.h"
#include "tests/desktop/calculated_desk.h"
#include "tests/desktop/pictures.h"
#include "tests/desktop/print_service_script.h"
#include "tests/desktop/shown_desk.h"

namespace kalvo {
namespace {

// The printed sheet of a riser of so many sections, with names and lengths as long as they get.
PrintedTable PrintedSheet(int sections) {
  TestDesk desk(SystemKind::kOpen);
  std::vector<std::string> lines;
  for (int i = 1; i <= sections; ++i) {
    lines.push_back(std::to_string(i) + "/" + (i == 1 ? "ANT" : std::to_string(i - 1)) +
                    " 1234.56m 2 elbows");
  }
  desk.test.PutNetwork({lines.begin(), lines.end()});
  desk.test.study.study_title =
      "Κτίριο γραφείων με μακρύ τίτλο, Λεωφόρος Αλεξάνδρας 123, Αθήνα : ύδρευση";
  desk.test.study.study_short_name = "Κτίριο.PAK";
  desk.printer.choice = {PrinterChoice::Kind::kPrinter, {}};
  FrmData_Sheet sheet(desk.desk);
  sheet.Load();
  sheet.Run(sheet.Cmd_Print);
  return desk.printer.tables.at(0);
}

// Clicks the button of the notice as soon as it shows.
struct Canceller {
  Canceller() {
    QObject::connect(&look, &QTimer::timeout, &look, [this] {
      auto* dialog = dynamic_cast<PrintNotice*>(QApplication::activeModalWidget());
      if (dialog == nullptr) return;
      text = dialog->accessibleName();
      KeepPicture(*dialog, "print-notice");
      dialog->findChild<QPushButton*>()->click();
    });
    look.start(0);
  }
  QTimer look;
  QString text;
};

TEST(Printing, MakesAPdfWithItsFontsAndTextsThatCanBeSearched) {
  QtPrinter printer;
  const auto pdf = printer.MakePdf(PrintedSheet(31), "notice");
  ASSERT_TRUE(pdf.ok() && *pdf);
  const std::string& bytes = **pdf;
  EXPECT_TRUE(bytes.starts_with("%PDF-"));
  EXPECT_TRUE(bytes.ends_with("%%EOF\n"));
  for (const char* part : {"/Count 2", "/MediaBox [0 0 842.0", "/FontFile2", "/ToUnicode"}) {
    EXPECT_NE(bytes.find(part), std::string::npos) << part;
  }
  if (const QString folder = qEnvironmentVariable("KALVO_PICTURES"); !folder.isEmpty()) {
    QFile kept(QDir(folder).filePath("sheet.pdf"));
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    kept.write(QByteArray::fromStdString(bytes));
  }
}

TEST(Printing, CancelStopsIt) {
  const PrintedTable table = PrintedSheet(200);
  Canceller user;
  QtPrinter printer;
  const auto pdf = printer.MakePdf(table, "Printing - Click Cancel to quit");
  ASSERT_TRUE(pdf.ok());
  EXPECT_FALSE(*pdf);
  EXPECT_EQ(user.text, "Printing - Click Cancel to quit");
}

TEST(Printing, HandsThePdfToThePrintService) {
  const PrintServiceScript service(
      "echo \"$@\" > told\nsleep 0.3\ncat > got\n");  // it takes its time
  QPrinter printer;
  printer.setPageLayout({QPageSize(QPageSize::A4), QPageLayout::Landscape, {}});
  printer.setCopyCount(3);
  const auto printed = HandToPrintService(PrintArguments(printer, "Γραφεία"), "%PDF", "notice");
  EXPECT_TRUE(printed.ok() && *printed);
  EXPECT_EQ(service.Got("got"), "%PDF");
  const QByteArray told = service.Got("told");
  EXPECT_TRUE(told.contains("-t Γραφεία -n 3 -o media=A4 -o Collate=True -o sides=one-sided"))
      << told.data();
}

TEST(Printing, TellsWhatAPrinterThatIsGoneSaysAndCanBeCancelled) {
  {
    const PrintServiceScript service("echo 'lp: The printer does not exist.' >&2\nexit 1\n");
    const auto printed = HandToPrintService({"-d", "gone"}, QByteArray(1 << 20, ' '), "notice");
    ASSERT_FALSE(printed.ok());
    EXPECT_EQ(printed.error().Line(),
              "Ο εκτυπωτής δεν δέχεται την εκτύπωση : lp: The printer does not exist.");
  }
  const PrintServiceScript service("exec sleep 60\n");
  Canceller user;
  const auto printed = HandToPrintService({}, "%PDF", "notice");
  EXPECT_TRUE(printed.ok() && !*printed);
}

TEST(Printing, TheFormKeepsItsWidthUnderALongNameOfAFile) {
  CalculatedDesk desk(KALVO_SAMPLES_DIR "/house.PCA");
  desk.desk.screens.RouteExcel = true;
  desk.desk.data_folder = KALVO_SAMPLES_DIR;
  QWidget& window = desk.Open(screen::kPrint, {740, 672});
  window.findChild<QCheckBox*>("Chk_XL")->click();
  window.findChild<QLineEdit*>("TxtFile")->setFocus();
  QTest::keyClicks(window.findChild<QLineEdit*>("TxtFile"), QString(204, 'n'));
  QApplication::processEvents();
  const auto& target = *window.findChild<QLabel*>("LblTarget");
  EXPECT_TRUE(target.text().contains(QString(204, 'n')));
  EXPECT_GT(target.height(), 3 * target.fontMetrics().height()) << "it takes the lines it needs";
  EXPECT_EQ(window.findChild<QScrollArea*>("body")->horizontalScrollBar()->maximum(), 0);
  KeepPicture(window, "FrmPRNR1-long");
}

TEST(Printing, WithoutPrintersThereIsNothingToChoose) {
  QtPrinter printer;
  EXPECT_EQ(printer.Choose("Γραφεία", true).kind, PrinterChoice::Kind::kNoPrinter);
}

// All texts, those of the properties and of the choice of a file too: the end of the tests looks
// for any without Greek.
TEST(Printing, TheDialogueIsInGreek) {
  QPrinter printer;
  QPrintDialog dialog(&printer);
  dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintCollateCopies);
  KeepPicture(dialog, "print-dialogue");
  dialog.show();
  int opened = 0;
  for (const char* name : {"properties", "fileBrowser"}) {
    QTimer::singleShot(0, &dialog, [&opened] {
      QWidget* over = QApplication::activeModalWidget();
      if (over == nullptr) return;
      ++opened;
      over->close();
    });
    auto* button = dialog.findChild<QAbstractButton*>(name);
    ASSERT_NE(button, nullptr) << name;
    button->click();
  }
  EXPECT_EQ(opened, 2);
}

}  // namespace
}  // namespace kalvo
