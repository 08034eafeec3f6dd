// Makes the shells of the print database.
//
//   build_shells <folder>

#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "platform/jet/print_shell.h"
#include "results/printing/print_database.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

void BuildShell(const std::filesystem::path& file, const std::vector<PrintColumn>& columns) {
  std::string shell = MakePrintShell(columns);
  if (const auto read = ReadPrintShell(shell, columns); !read) {
    throw std::runtime_error(read.error().Line());
  }
  RealDisk disk;
  if (const Outcome written = ReplaceFile(disk, file, std::move(shell)); !written) {
    throw std::runtime_error(written.error().Line());
  }
}

}  // namespace
}  // namespace kalvo

int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "usage: build_shells <folder>\n";
    return 2;
  }
  try {
    const std::filesystem::path folder = words[1];
    kalvo::BuildShell(folder / kalvo::kSectionShell, kalvo::SectionPrintColumns());
    kalvo::BuildShell(folder / kalvo::kQuantityShell, kalvo::QuantityPrintColumns());
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "build_shells: " << error.what() << '\n';
    return 1;
  }
}
