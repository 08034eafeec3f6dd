#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "form/printed_table.h"
#include "study/result.h"

namespace kalvo {

/// What the user chose to print on.
struct PrinterChoice {
  enum class Kind {
    kPrinter,
    kFile,  ///< a PDF, not a printer
    kCancelled,
    kNoPrinter  ///< nothing could be chosen: there are no printers, or nobody who serves them
  };
  Kind kind = Kind::kNoPrinter;
  std::filesystem::path file;  ///< of kFile; the user agrees that it is replaced
};

/// A printer of the system.
struct KnownPrinter {
  std::string name;
  std::string description;
  std::string driver;
  bool is_default = false;

  bool operator==(const KnownPrinter&) const = default;
};

/// On which printer something is printed, and how.
struct PrintOrder {
  std::string printer;
  int copies = 1;
  std::vector<std::string>
      settings{};  ///< what else the user has set, as the print service takes it
};

/// The printers of the desktop, and tables as PDF.
class Printers {
 public:
  virtual ~Printers() = default;

  /// The system's printers as they are now; none where nobody serves them.
  virtual std::vector<KnownPrinter> Known() = 0;
  /// Has the user choose in the desktop's dialogue, which begins with `order`; nothing: it was
  /// cancelled. The system's default printer stays what it is.
  virtual std::optional<PrintOrder> ChooseFrom(const PrintOrder& order) = 0;

  /// Has the user choose in the desktop's dialogue, which begins with A4, `across` or upright.
  virtual PrinterChoice Choose(std::string_view name, bool across) = 0;
  /// The table as a PDF for the paper chosen, A4 across otherwise. `notice` is shown meanwhile with
  /// a button that cancels; nothing: it was cancelled. Error: a page cannot be painted.
  virtual Result<std::optional<std::string>> MakePdf(const PrintedTable& table,
                                                     std::string_view notice) = 0;
  /// Hands a PDF to the printer chosen, `notice` as above; false: it was cancelled. Error: the
  /// printer does not take it.
  virtual Result<bool> Print(const std::string& pdf, std::string_view name,
                             std::string_view notice) = 0;
};

}  // namespace kalvo
