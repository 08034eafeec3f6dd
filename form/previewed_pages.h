#pragma once

#include <filesystem>
#include <string>

#include "study/result.h"

namespace kalvo {

/// Points: 1/72 inch.
struct PageSize {
  double width = 0;
  double height = 0;

  bool operator==(const PageSize&) const = default;
};

/// Pages as they would be printed; whoever shows them knows how to paint them.
class PreviewedPages {
 public:
  virtual ~PreviewedPages() = default;

  [[nodiscard]] virtual int count() const = 0;
  [[nodiscard]] virtual PageSize size() const = 0;      ///< the same for all
  [[nodiscard]] virtual std::string paper() const = 0;  ///< "A4 όρθιο"
  /// The name of the sheet that they are of.
  [[nodiscard]] virtual std::string sheet() const = 0;
  /// The bytes of a PDF file. Error: a page cannot be painted.
  virtual Result<std::string> MakePdf() = 0;
};

/// What is known of previewed pages by whoever asks for the preview; all of it may be empty.
struct PreviewFacts {
  std::string title;   ///< "Αποτελέσματα"; empty: the sheet's name
  std::string client;  ///< the designer
  std::string name;    ///< of the workbook: "HOTEL_RCO.XLS"
  std::string note;    ///< "604 τμήματα"
  /// Where their PDF goes, from the root on or below the export folder; empty: nobody has named it.
  std::filesystem::path pdf;
  std::string suffix = ".PDF";  ///< of the name that it gets then
};

}  // namespace kalvo
