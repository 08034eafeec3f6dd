#pragma once

#include <QPainter>
#include <string>
#include <string_view>
#include <vector>

#include "shell/manual/manual_book.h"
#include "tools/manual/chapter_pages.h"
#include "tools/manual/manual_pdf.h"

namespace kalvo {

/// The whole manual on pages: a title, the contents with the numbers of pages, the chapters with
/// running heads.
class ManualPages {
 public:
  /// `folder` is where the names of pictures begin.
  ManualPages(const ManualBook& book, const std::filesystem::path& folder, std::string version);

  [[nodiscard]] int count() const { return count_; }
  void Paint(QPainter& painter, int page) const;
  /// Title, outline and links.
  [[nodiscard]] PdfFacts Facts() const;

  /// The bytes of the PDF. Throws std::exception.
  [[nodiscard]] std::string MakePdf() const;

 private:
  /// A line of the contents.
  struct Line {
    std::string text;
    bool of_chapter = false;
    PagePlace place;
    int page = 0;  ///< on which the line is itself
    double top = 0;
  };
  struct Placed {
    ChapterPages pages;
    int first = 0;  ///< page of the whole
  };

  void PlaceLines();
  void PaintTitle(QPainter& painter) const;
  void PaintContents(QPainter& painter, int page) const;
  void PaintLine(QPainter& painter, const Line& line) const;
  void PaintHeadAndFoot(QPainter& painter, int page, const std::string& title, bool head) const;
  [[nodiscard]] const Placed* Find(std::string_view chapter) const;
  [[nodiscard]] PagePlace PlaceOf(const ManualPlace& place) const;

  const ManualBook& book_;
  std::string version_;
  PictureStore pictures_;
  std::vector<Placed> chapters_;
  std::vector<Line> lines_;
  int count_ = 0;
};

}  // namespace kalvo
