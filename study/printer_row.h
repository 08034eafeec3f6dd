#pragma once

#include <string>

#include "study/record.h"

namespace kalvo {

/// Name of the list of the system's printers.
inline constexpr const char* kPrinterListFile = "iPrinters.prt";

/// A printer, a record of `iPrinters.prt`. What stands behind its driver is kept for older programs
/// and is not used here.
struct PrinterRow {
  std::int16_t number = 0;  ///< its place in the list, from 1
  FixedText<1024> name;
  FixedText<512> description;
  FixedText<512> driver;
  /// Fifteen settings of 16 bits, all 0.
  FixedText<30> settings = FixedText<30>::FromBytes(std::string(30, '\0'));
  FixedText<30> text1;
  FixedText<30> text2;
  FixedText<30> text3;

  static constexpr auto kFields = std::make_tuple(
      RecordField{"number", &PrinterRow::number}, RecordField{"name", &PrinterRow::name},
      RecordField{"description", &PrinterRow::description},
      RecordField{"driver", &PrinterRow::driver}, RecordField{"settings", &PrinterRow::settings},
      RecordField{"text1", &PrinterRow::text1}, RecordField{"text2", &PrinterRow::text2},
      RecordField{"text3", &PrinterRow::text3});
};

static_assert(RecordSize<PrinterRow>() == 2170);

}  // namespace kalvo
