#include "desktop/pages/qt_workbook_pages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/desktop/paper_workbook.h"
#include "tests/desktop/print_service_script.h"
#include "tests/desktop/shown_desk.h"
#include "tests/support/other_program.h"

namespace kalvo {
namespace {

QString TextsOf(const std::string& pdf) {
  const QTemporaryDir folder;
  QFile file(folder.filePath("pages.pdf"));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray::fromStdString(pdf));
  file.close();
  QProcess reader;
  reader.start("pdftotext", {"-layout", file.fileName(), "-"});
  EXPECT_TRUE(reader.waitForFinished() && reader.exitCode() == 0);
  return QString::fromUtf8(reader.readAllStandardOutput());
}

TEST(WorkbookPages, AreAPdfWithFontsAndTextsThatCanBeSearched) {
  PaperWorkbook book;
  book.PutPages(3);
  book.sheet().page.landscape = true;
  ShownDesk desk;
  const auto pdf = QtWorkbookPages(desk.shown).MakePdf(book);
  ASSERT_TRUE(pdf.ok());
  EXPECT_TRUE(pdf->starts_with("%PDF-"));
  EXPECT_TRUE(pdf->ends_with("%%EOF\n"));
  for (const char* part : {"/Count 3", "/MediaBox [0 0 842", "/FontFile2", "/ToUnicode"}) {
    EXPECT_NE(pdf->find(part), std::string::npos) << part;
  }
  EXPECT_EQ(pdf->find("/Subtype /Image"), std::string::npos);
}

// Texts are found in the PDF by another program.
class WorkbookPdf : public testing::Test {
 protected:
  void SetUp() override { NeedProgram("pdftotext", "poppler-utils"); }
};

TEST_F(WorkbookPdf, HasTheTextsOfItsCells) {
  PaperWorkbook book;
  book.PutPages(3);
  ShownDesk desk;
  const auto pdf = QtWorkbookPages(desk.shown).MakePdf(book);
  ASSERT_TRUE(pdf.ok());
  const QString texts = TextsOf(*pdf);
  for (const char* text : {"Τμήμα 1 ", "Τμήμα 9 ", "12,5", "100", "Σελίδα 3 / 3"}) {
    EXPECT_TRUE(texts.contains(QString::fromUtf8(text))) << text;
  }
}

TEST(WorkbookPages, GoToThePrinterAsOftenAsWanted) {
  PaperWorkbook book;
  book.PutPages(1);
  ShownDesk desk;
  QtWorkbookPages pages(desk.shown);
  {
    const PrintServiceScript service("echo \"$@\" > told\ncat > got\n");
    EXPECT_TRUE(pages.Print(book, {"Γραφείο", 3}).ok());
    EXPECT_TRUE(service.Got("got").startsWith("%PDF-"));
    const QByteArray told = service.Got("told");
    EXPECT_EQ(told, "-d Γραφείο -t Φύλλο -n 3 -o media=A4 -o collate=true\n") << told.data();
    EXPECT_TRUE(pages.Print(book, {"Γραφείο", 0}).ok());
    EXPECT_TRUE(service.Got("told").contains("-n 1 "));
    EXPECT_EQ(pages.Print(book, {"", 1}).error().Line(), "Δεν έχει επιλεγεί εκτυπωτής");
  }
  const PrintServiceScript service("echo 'lp: gone' >&2\nexit 1\n");
  EXPECT_EQ(pages.Print(book, {"Γραφείο", 1}).error().Line(),
            "Ο εκτυπωτής δεν δέχεται την εκτύπωση : lp: gone");
}

TEST(WorkbookPages, SayWhenNobodyPrints) {
  const QByteArray path = qgetenv("PATH");
  const QTemporaryDir empty;
  qputenv("PATH", QFile::encodeName(empty.path()));
  PaperWorkbook book;
  ShownDesk desk;
  EXPECT_EQ(QtWorkbookPages(desk.shown).Print(book, {"Γραφείο", 1}).error().Line(),
            "Δεν υπάρχει υπηρεσία εκτύπωσης (lp)");
  qputenv("PATH", path);
}

}  // namespace
}  // namespace kalvo
