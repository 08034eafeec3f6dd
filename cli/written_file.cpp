#include "cli/written_file.h"

#include "study/letter_case.h"
#include "study/path_text.h"
#include "study/real_disk.h"

namespace kalvo {

void AddFileOption(CLI::App& app, std::string& file, const std::string& extension,
                   const std::string& help) {
  const auto ends = [extension](const std::string& name) {
    return name.size() > extension.size() &&
           EqualIgnoringCase(name.substr(name.size() - extension.size()), extension);
  };
  app.add_option("--out", file, help)
      ->required()
      ->check(CLI::Validator(
          [ends](const std::string& name) { return std::string(ends(name) ? "" : "extension"); },
          ""))
      ->type_name("ΑΡΧΕΙΟ" + extension);
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
