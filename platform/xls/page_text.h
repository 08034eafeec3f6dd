#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/xls/cell_format.h"

namespace kalvo {

/// Letters of one font above or below a page.
struct PageTextRun {
  std::string text;
  CellFont font;

  bool operator==(const PageTextRun&) const = default;
};

/// A part of what is above or below a page: its lines from the top, each of runs from the left.
using PageTextLine = std::vector<PageTextRun>;
using PageTextPart = std::vector<PageTextLine>;

struct PageText {
  PageTextPart left;
  PageTextPart centre;
  PageTextPart right;
};

/// What the codes of a header or footer stand for. Pages count from 1.
struct PageTextFacts {
  int page = 1;
  int pages = 1;
  std::string_view sheet;
  CellFont font;  ///< until a code names another
};

/// A header or footer as one page shows it. "&L", "&C" and "&R" begin its parts, "&P" is the page,
/// "&N" how many there are, "&A" the sheet's name, "&&" an "&". "&"name,style"", a size in digits,
/// "&B", "&I", "&U" and "&S" change the font of what follows in that part. Codes of dates, files,
/// pictures and colours show nothing. A part without letters is empty.
/// Source: [MS-XLS], Header.
PageText ReadPageText(std::string_view codes, const PageTextFacts& facts);

}  // namespace kalvo
