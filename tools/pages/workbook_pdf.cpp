// Makes the PDF of a saved workbook as the program does.
// usage: workbook_pdf WORKBOOK PDF

#include <QGuiApplication>
#include <cstdio>

#include "desktop/pages/shown_pages.h"
#include "platform/xls/workbook_file.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

Outcome MakePdfOf(const std::filesystem::path& workbook, const std::filesystem::path& pdf) {
  RealDisk disk;
  const auto bytes = disk.Read(workbook);
  if (!bytes) return bytes.error();
  const auto file = ReadWorkbookFile(*bytes);
  if (!file) return FileError{workbook, file.error().reason};
  const auto pages = ShownPages(file->workbook, Separators{',', '.'}).MakePdf();
  return pages ? ReplaceFile(disk, pdf, *pages) : Outcome(pages.error());
}

}  // namespace
}  // namespace kalvo

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication app(argc, argv);
  if (argc != 3) {
    std::fputs("usage: workbook_pdf WORKBOOK PDF\n", stderr);
    return 2;
  }
  const kalvo::Outcome made = kalvo::MakePdfOf(argv[1], argv[2]);
  if (made) return 0;
  std::fprintf(stderr, "%s\n", made.error().Line().c_str());
  return 1;
}
