// The delivered templates, filled from the samples and painted as they are printed.

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QPainter>

#include "desktop/pages/shown_pages.h"
#include "engine/calculation_command.h"
#include "tests/desktop/filled_report.h"
#include "tests/desktop/pictures.h"
#include "tests/support/calculated_case.h"

namespace kalvo {
namespace {

constexpr int kDotsOfInch = 96;

struct SampleReport {
  const char* picture;
  const char* study;
  int code;
  ReportKind kind;
  int pages;
  const char* paper;
};

class ReportPages : public testing::TestWithParam<SampleReport> {};

QImage Painted(ShownPages& pages, int page) {
  const QSize dots = DotsOf(pages.size(), 100, kDotsOfInch);
  QImage image(dots, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  pages.Paint(painter, QRectF(QPointF(), QSizeF(dots)), page);
  return image;
}

bool HasInk(const QImage& image, const QRect& place) {
  for (int y = place.top(); y <= place.bottom(); ++y) {
    for (int x = place.left(); x <= place.right(); ++x) {
      if (qGray(image.pixel(x, y)) < 128) return true;
    }
  }
  return false;
}

// Nothing may be so near the paper's edge that a printer cuts it: 6 mm.
void ExpectWhiteEdges(const QImage& image) {
  constexpr int kEdge = kDotsOfInch * 6 / 25;
  const QRect paper = image.rect();
  EXPECT_FALSE(HasInk(image, {0, 0, paper.width(), kEdge})) << "above";
  EXPECT_FALSE(HasInk(image, {0, paper.height() - kEdge, paper.width(), kEdge})) << "below";
  EXPECT_FALSE(HasInk(image, {0, 0, kEdge, paper.height()})) << "at the left";
  EXPECT_FALSE(HasInk(image, {paper.width() - kEdge, 0, kEdge, paper.height()})) << "at the right";
}

TEST_P(ReportPages, AreAsManyAsTheStudyTakesAndKeepOffThePapersEdges) {
  const SampleReport& report = GetParam();
  CalculatedCase study(std::filesystem::path(KALVO_SAMPLES_DIR) / report.study, KALVO_LIBRARY_DIR);
  ASSERT_EQ(Calculate(study.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  const Workbook book = FilledReport(study.bench, report.code, report.kind);
  ShownPages pages(book, {',', '.'});
  EXPECT_EQ(pages.count(), report.pages);
  EXPECT_EQ(pages.paper(), report.paper);
  for (const int page : {0, pages.count() - 1}) ExpectWhiteEdges(Painted(pages, page));
  QLabel shown;
  const QImage first = Painted(pages, 0);
  shown.setPixmap(QPixmap::fromImage(first));
  shown.resize(first.size());
  KeepPicture(shown, report.picture);
}

INSTANTIATE_TEST_SUITE_P(
    OfSamples, ReportPages,
    testing::Values(SampleReport{"page-results", "hotel.PCK", CodeOf(ReportMode::kPreview),
                                 ReportKind::kResults, 16, "A4 όρθιο"},
                    SampleReport{"page-data-closed", "hotel.PCK", CodeOf(ReportMode::kPreview),
                                 ReportKind::kData, 31, "A4 πλαγιαστό"},
                    SampleReport{"page-data-open", "house.PCA", CodeOf(ReportMode::kPreview),
                                 ReportKind::kData, 1, "A4 πλαγιαστό"},
                    SampleReport{"page-quantities", "fancoil.PCK",
                                 QuantitiesCodeOf(ReportMode::kPreview), ReportKind::kResults, 1,
                                 "A4 όρθιο"}),
    [](const auto& one) {
      std::string name = one.param.picture;
      std::erase(name, '-');
      return name;
    });

}  // namespace
}  // namespace kalvo
