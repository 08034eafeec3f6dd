#pragma once

#include <string>
#include <vector>

#include "form/grid.h"

namespace kalvo {

struct PrintedPage {
  std::vector<std::vector<std::string>> rows;  ///< a text for each column
  std::string number;                          ///< "Σελίδα 2 από 34"
};

/// A table on paper, A4 across. Every page repeats the lines above the rows and the columns' heads.
struct PrintedTable {
  std::string name;     ///< in the printer's queue and among the properties of a PDF
  std::string title;    ///< may be empty
  std::string heading;  ///< the line below it
  std::string summary;  ///< at the right of that
  std::string origin;   ///< at the left of the page's number: where and when it comes from
  std::vector<GridColumn> columns;
  int rows_of_page = 1;  ///< that a full page has
  std::vector<PrintedPage> pages;
};

}  // namespace kalvo
