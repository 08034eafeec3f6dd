#pragma once

#include <QPainter>
#include <QPixmap>
#include <QTextDocument>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "shell/manual/manual_book.h"
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

/// Pictures by their files. One that several chapters show is in the PDF once.
using PictureStore = std::map<QString, QPixmap>;

/// A chapter set on pages of A4. No heading is alone at the foot of a page, no picture is parted
/// from its caption, no table from its first row.
class ChapterPages {
 public:
  /// `folder` is where the names of pictures begin; they are kept in `pictures`.
  ChapterPages(const BookChapter& chapter, const std::filesystem::path& folder,
               PictureStore& pictures);

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
