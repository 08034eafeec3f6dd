// The manual on paper.
#include <gtest/gtest.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

#include "shell/manual/manual_file.h"
#include "study/real_disk.h"
#include "tests/support/other_program.h"
#include "tools/manual/chapter_pages.h"
#include "tools/manual/manual_pages.h"

namespace kalvo {
namespace {

const std::filesystem::path kDelivered =
    std::filesystem::path(KALVO_LIBRARY_DIR).parent_path() / "pdf" / kManualFile;

// What a program of the machine writes; empty when there is no such program.
std::string OutputOf(const std::string& command) {
  std::string output;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>/dev/null").c_str(), "r"),
                                                   &pclose);
  std::array<char, 4096> block{};
  for (std::size_t read = 0; (read = fread(block.data(), 1, block.size(), pipe.get())) > 0;) {
    output.append(block.data(), read);
  }
  return output;
}

BookChapter ChapterOf(const std::string& text) { return {"01-test", text, HeadingsOf(text)}; }

// Paragraphs that push what follows down the page.
std::string Filler(int paragraphs) {
  std::string text = "# Κεφάλαιο\n\n";
  for (int i = 0; i < paragraphs; ++i) text += "Παράγραφος " + std::to_string(i) + ".\n\n";
  return text;
}

constexpr int kMoreThanAPage = 48;

TEST(ManualOnPaper, LeavesNoHeadingAloneAtThePagesFoot) {
  PictureStore pictures;
  int moved = 0;
  for (const char* const following : {"[κείμενο](#x)\n", "| α | β |\n|---|---|\n| [1](#x) | 2 |\n",
                                      "### Πιο μέσα\n\nΈτσι:\n\n| α |\n|---|\n| [1](#x) |\n"}) {
    for (int paragraphs = 20; paragraphs < kMoreThanAPage; ++paragraphs) {
      const ChapterPages pages(ChapterOf(Filler(paragraphs) + "## Τίτλος\n\n" + following), "/",
                               pictures);
      ASSERT_GE(pages.Headings().size(), 2U);
      ASSERT_EQ(pages.Links().size(), 1U);
      const PlacedHeading heading = pages.Headings()[1];
      EXPECT_EQ(heading.place.page, pages.Links()[0].page) << paragraphs << following;
      EXPECT_EQ(pages.count(), pages.Links()[0].page + 1) << "nothing is lost or comes twice";
      if (heading.place.page == 1 && heading.place.top < kTopMargin + 40) ++moved;
    }
  }
  EXPECT_GE(moved, 3) << "the foot was reached";
}

TEST(ManualOnPaper, KeepsAPictureWholeWithItsCaption) {
  PictureStore pictures;
  const QTemporaryDir folder;
  QImage picture(900, 700, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  ASSERT_TRUE(picture.save(folder.filePath(QStringLiteral("a.png"))));
  const std::filesystem::path place = folder.path().toStdString();
  constexpr int kAPage = 30;
  for (int paragraphs = 10; paragraphs < kAPage; ++paragraphs) {
    const ChapterPages pages(ChapterOf(Filler(paragraphs) + "![λεζάντα](a.png)\n\n[μετά](#x)\n"),
                             place, pictures);
    EXPECT_LE(pages.count(), 2) << paragraphs;
    QImage paper(qRound(kPageWidth), qRound(kPageHeight), QImage::Format_RGB32);
    int blue = 0;
    for (int page = 0; page < pages.count(); ++page) {
      paper.fill(Qt::white);
      QPainter painter(&paper);
      pages.Paint(painter, page);
      painter.end();
      int rows = 0;
      for (int y = 0; y < paper.height(); ++y) {
        if (paper.pixelColor(qRound(kSideMargin) + 20, y) == QColor(Qt::blue)) ++rows;
      }
      if (rows > 0) ++blue;
      EXPECT_TRUE(rows == 0 || rows > 380) << rows << " rows of it, " << paragraphs;
    }
    EXPECT_EQ(blue, 1) << paragraphs;
  }
}

TEST(ManualOnPaper, IsTheSameWhenItIsMadeTwice) {
  const std::filesystem::path chapters = std::filesystem::path(KALVO_SOURCE_DIR) / "docs/manual";
  const QTemporaryDir folder;
  const std::filesystem::path made = folder.path().toStdString() + "/Kalvo.pdf";
  const std::string command =
      (std::filesystem::path(KALVO_BINARY).parent_path() / "build_manual").string() + " " +
      chapters.string() + " " + KALVO_VERSION + " " + made.string();
  ASSERT_EQ(std::system(command.c_str()), 0);
  const auto bytes = RealDisk().Read(made);
  ASSERT_TRUE(bytes.ok());
  EXPECT_TRUE(*bytes == *RealDisk().Read(kDelivered));
  EXPECT_EQ(std::system((command + " extra 2>/dev/null").c_str()) >> 8, 2);
  EXPECT_NE(
      std::system(("cd " + folder.path().toStdString() + " && rm Kalvo.pdf && " +
                   (std::filesystem::path(KALVO_BINARY).parent_path() / "build_manual").string() +
                   " /nowhere 1 Kalvo.pdf 2>/dev/null")
                      .c_str()),
      0);
  EXPECT_FALSE(std::filesystem::exists(made));
}

TEST(ManualOnPaper, CanBeSearchedInGreekAndNamesItsPages) {
  NeedProgram("pdftotext", "poppler-utils");
  if (IsSkipped() || HasFatalFailure()) return;
  const std::string text = OutputOf("pdftotext -layout " + kDelivered.string() + " -");
  const auto book =
      ManualBook::Read(RealDisk(), std::filesystem::path(KALVO_SOURCE_DIR) / "docs/manual");
  ASSERT_TRUE(book.ok());
  for (const BookChapter& chapter : book->chapters()) {
    if (chapter.name == kManualContents) continue;
    EXPECT_NE(text.find(chapter.Title()), std::string::npos) << chapter.Title();
  }
  const std::string facts = OutputOf("pdfinfo -isodates " + kDelivered.string());
  EXPECT_NE(facts.find("Kalvoflume — Εγχειρίδιο"), std::string::npos) << facts;
  EXPECT_NE(facts.find("A4"), std::string::npos);
  EXPECT_EQ(facts.find("CreationDate"), std::string::npos);
}

}  // namespace
}  // namespace kalvo
