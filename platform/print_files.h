#pragma once

#include "results/printing/print_database.h"
#include "study/disk.h"

namespace kalvo {

/// Makes databases in the Jet 4 format and workbooks itself; no other program is needed.
class PrintFiles : public PrintDatabase {
 public:
  explicit PrintFiles(Disk& disk) : disk_(disk) {}

  Outcome Export(const std::filesystem::path& shell, const PrintTable& table,
                 const std::filesystem::path& file) override;
  Outcome ExportWorkbook(const PrintTable& table, const std::filesystem::path& file) override;

 private:
  Disk& disk_;
};

}  // namespace kalvo
