// build_manual <folder of chapters> <version> <pdf>
//     makes the manual as one PDF of its chapters: contents, running heads, outline, links. Needs
//     no display. The same chapters give the same bytes. What is wrong ends the program with a line
//     on it, and no file is left.

#include <QGuiApplication>
#include <QHashSeed>
#include <iostream>

#include "shell/manual/manual_file.h"
#include "study/real_disk.h"
#include "tools/manual/manual_pages.h"

namespace kalvo {
namespace {

void CheckWhole(const ManualBook& book) {
  for (const FileError& error : book.unread()) throw std::runtime_error(error.Line());
}

template <typename T>
T Need(Result<T> result) {
  if (!result) throw std::runtime_error(result.error().Line());
  return std::move(result).value();
}

void Build(const std::filesystem::path& folder, const std::string& version,
           const std::filesystem::path& target) {
  RealDisk disk;
  const ManualBook book = Need(ManualBook::Read(disk, folder));
  CheckWhole(book);
  std::string pdf = ManualPages(book, folder, version).MakePdf();
  pdf += ManualMark(pdf, version);
  Need(ReplaceFile(disk, target, std::move(pdf)));
}

}  // namespace
}  // namespace kalvo

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QHashSeed::setDeterministicGlobalSeed();  // the order of fonts in the file
  const QGuiApplication app(argc, argv);
  if (argc != 4) {
    std::cerr << "usage: build_manual <folder of chapters> <version> <pdf>\n";
    return 2;
  }
  try {
    kalvo::Build(argv[1], argv[2], argv[3]);
  } catch (const std::exception& error) {
    std::cerr << "build_manual: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
