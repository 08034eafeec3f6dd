#pragma once

#include <string>
#include <vector>

#include "tools/manual/page_measure.h"

namespace kalvo {

/// An entry of a PDF's outline: a chapter, or a part of one.
struct OutlineEntry {
  std::string title;
  PagePlace place;
  std::vector<OutlineEntry> parts{};
};

/// A stretch of a page, in dots from its top left corner, that leads to a place.
struct PageLink {
  int page = 0;
  QRectF area;
  PagePlace target;
};

/// What the pages themselves do not have.
struct PdfFacts {
  std::string title;
  std::vector<OutlineEntry> outline;
  std::vector<PageLink> links;
};

/// The PDF with title, outline, links and the language Greek, and with nothing that differs from
/// one making to the next: no date, no number of its own. Throws std::exception.
std::string FinishPdf(const std::string& pdf, const PdfFacts& facts);

}  // namespace kalvo
