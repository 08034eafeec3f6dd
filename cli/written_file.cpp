#include "cli/written_file.h"

#include <utility>

#include "study/letter_case.h"
#include "study/path_text.h"
#include "study/real_disk.h"

namespace kalvo {

CLI::Validator EndsIn(std::string extension) {
  return CLI::Validator(
      [extension = std::move(extension)](const std::string& file) {
        const bool ends = file.size() > extension.size() &&
                          EqualIgnoringCase(file.substr(file.size() - extension.size()), extension);
        return ends ? std::string() : "Το όνομα πρέπει να τελειώνει σε " + extension;
      },
      "");
}

Outcome MayWriteFile(const std::string& file, bool overwrite) {
  const std::filesystem::path path = PathFromText(file);
  const auto there = RealDisk().Status(path);
  if (!there) return there.error();
  if (*there && (*there)->is_folder) return FileError{path, "Είναι φάκελος"};
  if (*there && !overwrite) {
    return FileError{path, "Το Αρχείο αυτό, υπάρχει ήδη (--overwrite το αντικαθιστά)"};
  }
  return Done{};
}

void TellWritten(const Console& console, const std::string& file) {
  if (console.quiet) return;
  console.out.flush();
  console.err << "Γράφηκε : " << file << '\n';
}

}  // namespace kalvo
