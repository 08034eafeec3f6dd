#pragma once

#include <string>
#include <string_view>

namespace kalvo {

/// What stands above or below a page.
struct PageText {
  std::string left;
  std::string centre;
  std::string right;

  bool operator==(const PageText&) const = default;
};

/// A header or footer as one page shows it. "&L", "&C" and "&R" begin its parts, "&P" is the page,
/// "&N" how many there are, "&A" the sheet's name, "&&" an "&". Codes of fonts, and those of dates
/// and files, show nothing. Pages count from 1.
/// Source: [MS-XLS], Header.
PageText ReadPageText(std::string_view codes, int page, int pages, std::string_view sheet);

}  // namespace kalvo
