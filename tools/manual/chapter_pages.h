#pragma once

#include <QPainter>
#include <QTextDocument>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "shell/manual_book.h"
#include "tools/manual/page_measure.h"

namespace kalvo {

/// A heading of a chapter, on a page of it.
struct PlacedHeading {
  ManualHeading heading;
  PagePlace place;
};

/// A link of a chapter: where it is on which of its pages, and its target as it is written.
struct PlacedLink {
  int page = 0;
  QRectF area;
  std::string target;
};

/// A chapter set on pages of A4. No heading is alone at the foot of a page, no picture is parted
/// from its caption, no table from its first row.
class ChapterPages {
 public:
  /// `folder` is where the names of pictures begin.
  ChapterPages(const BookChapter& chapter, const std::filesystem::path& folder);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const std::string& title() const { return title_; }
  [[nodiscard]] int count() const { return document_->pageCount(); }
  [[nodiscard]] std::vector<PlacedHeading> Headings() const;
  [[nodiscard]] std::vector<PlacedLink> Links() const;

  /// The text of a page, with the painter's origin at the corner of the sheet.
  void Paint(QPainter& painter, int page) const;

 private:
  std::string name_;
  std::string title_;
  std::vector<ManualHeading> headings_;
  std::unique_ptr<QTextDocument> document_;
};

}  // namespace kalvo
