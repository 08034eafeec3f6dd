#include "cli/save_study.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "study/real_disk.h"
#include "study/save_checks.h"
#include "study/settled_disk.h"
#include "study/study_file_names.h"
#include "study/write_study.h"

namespace kalvo {

namespace fs = std::filesystem;

namespace {

// A file that the save would replace, in whatever case its extension is written.
std::optional<fs::path> FileInTheWay(const Disk& disk, const fs::path& source,
                                     const fs::path& target) {
  const std::string base(BaseOf(target.filename().string()));
  const auto found = [&](const fs::path& path) -> std::optional<fs::path> {
    const fs::path entry = AsInFolder(disk, path);
    const bool same_base = BaseOf(entry.filename().string()) == base;
    return same_base && disk.Exists(entry) ? std::optional(entry) : std::nullopt;
  };
  if (const auto main = found(target)) {
    std::error_code error;
    return fs::equivalent(*main, source, error) ? std::nullopt : main;
  }
  const StudyExtensions& extensions = ExtensionsOf(KindOfName(target.string()));
  for (const std::string_view extension :
       {extensions.sequence, extensions.statistics, extensions.winter, extensions.fluid}) {
    if (extension.empty()) {
      continue;  // a kind without such a file
    }
    if (auto companion = found(target.parent_path() / (base + std::string(extension)))) {
      return companion;
    }
  }
  return std::nullopt;
}

// What only --overwrite replaces.
Outcome CheckExisting(Session& session, const fs::path& source, const fs::path& target) {
  Workspace& workspace = session.workspace();
  const auto settled = SettleStudy(workspace.outer_disk(), target);
  if (!settled) {
    return settled.error();
  }
  if (const auto file = TwinsCompanion(workspace, target)) {
    return FileError{*file,
                     "Το Αρχείο του υγρού ανήκει και σε Μελέτη του άλλου είδους (--overwrite το "
                     "αντικαθιστά)"};
  }
  if (const auto file = FileInTheWay(*settled, source, target)) {
    return FileError{*file, "Το Αρχείο αυτό, υπάρχει ήδη (--overwrite το αντικαθιστά)"};
  }
  if (const auto file = ProtectedTarget(workspace, target)) {
    return FileError{*file,
                     "Το Αρχείο είναι προστατευμένο από εγγραφή (--overwrite το αντικαθιστά)"};
  }
  return Done{};
}

}  // namespace

fs::path SaveTarget(const fs::path& save, const fs::path& source) {
  std::error_code error;
  fs::path path = fs::is_directory(save, error) ? save / source.filename() : save;
  path = WithExtension(path, KindOfName(source.string()));
  return BehindLink(RealDisk(), path);  // the study itself is replaced, not its link
}

Outcome CheckTarget(Session& session, const fs::path& source, const fs::path& target,
                    Existing existing) {
  const fs::path folder = target.parent_path();
  std::error_code error;
  if (!fs::is_directory(folder, error)) {
    return FileError{folder, "Ο φάκελος δεν υπάρχει"};
  }
  if (access(folder.c_str(), W_OK) != 0) {
    return FileError{folder, ReasonOf(errno)};
  }
  const std::string base(BaseOf(target.filename().string()));
  if (base.empty()) {
    return FileError{target, "Λείπει το όνομα του Αρχείου της Μελέτης"};
  }
  if (KindOfName(base) != SystemKind::kNone) {
    return FileError{target.parent_path() / base, "Η κατάληξη είναι του άλλου είδους συστήματος"};
  }
  return existing == Existing::kKeep ? CheckExisting(session, source, target) : Done{};
}

Outcome CheckImposed(const Session& session, const fs::path& source, const fs::path& target,
                     Existing existing) {
  std::error_code error;
  const fs::path main = AsInFolder(session.workspace().outer_disk(), target);
  if (existing == Existing::kReplace || !fs::equivalent(main, source, error)) {
    return Done{};
  }
  const std::vector<SectionRow> rows = session.Rows();
  const auto imposed =
      std::ranges::count_if(rows, [](const SectionRow& row) { return row.InDiameter < 0; });
  if (imposed == 0) {
    return Done{};
  }
  return FileError{main, (imposed == 1 ? "Θα χανόταν 1 διάμετρος που όρισε ο χρήστης"
                                       : "Θα χάνονταν " + std::to_string(imposed) +
                                             " διάμετροι που όρισε ο χρήστης") +
                             " (--fixed τις διατηρεί, --overwrite τις αντικαθιστά)"};
}

Outcome SaveStudy(Session& session, const fs::path& target) {
  session.study().study_path = target;
  Workbench bench = session.bench();
  return WriteStudy(bench);
}

}  // namespace kalvo
