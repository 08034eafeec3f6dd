#include "shell/program_folder.h"

#include <algorithm>

#include "study/letter_case.h"
#include "study/path_text.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"
#include "study/study_file_names.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

constexpr const char* kOwnFolder = "kalvoflume";
constexpr const char* kProbe = "kalvoflume.probe~";

std::string Variable(const Surroundings& surroundings, const std::string& name) {
  const auto found = surroundings.environment.find(name);
  return found == surroundings.environment.end() ? std::string() : found->second;
}

// A folder of the user's own: the variable, or `below` in the home folder.
fs::path UserFolder(const Surroundings& surroundings, const std::string& variable,
                    const char* below) {
  const std::string given = Variable(surroundings, variable);
  if (given.starts_with('/')) return fs::path(given) / kOwnFolder;
  const std::string home = Variable(surroundings, "HOME");
  return fs::path(home.empty() ? "/tmp" : home) / below / kOwnFolder;
}

// Below a working folder that is gone nothing is found, which shows where it is looked for.
fs::path FromRoot(const std::string& text) {
  const fs::path path = PathFromText(text);
  const auto absolute = AbsolutePath(path);
  return absolute ? *absolute : path;
}

bool HoldsLibraries(const Disk& disk, const fs::path& folder) {
  const auto names = disk.List(folder);
  return names && std::ranges::any_of(*names, [](const std::string& name) {
           return EqualIgnoringCase(fs::path(name).extension().string(), ".wpt");
         });
}

bool CanBeWritten(Disk& disk, const fs::path& folder) {
  const fs::path probe = folder / kProbe;
  const bool written = disk.Write(probe, "").ok();
  return written && disk.Remove(probe).ok();
}

fs::path FindFolder(Disk& disk, const Surroundings& surroundings, const fs::path& argument) {
  if (!argument.empty() && disk.IsFolder(argument)) return argument;
  if (const std::string home = Variable(surroundings, "KALVOFLUME_HOME"); !home.empty()) {
    return FromRoot(home);
  }
  const fs::path& own = surroundings.executable_folder;
  if (HoldsLibraries(disk, own) && CanBeWritten(disk, own)) return own;
  return UserFolder(surroundings, "XDG_DATA_HOME", ".local/share");
}

// The study that the argument names, with its extension or, where only one kind of study bears that
// name, without it.
Result<fs::path> FindStudyGiven(Disk& disk, const fs::path& argument) {
  if (KindOfName(argument.filename().string()) != SystemKind::kNone) return argument;
  const auto status = disk.Status(argument);
  if (!status) return status.error();
  std::vector<fs::path> studies;
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    auto found = SettleAndFindStudy(disk, WithExtension(argument, kind));
    if (found) {
      studies.push_back(std::move(found).value());
    } else if (!found.error().IsMissing()) {
      return found.error();
    }
  }
  if (studies.size() == 1) return studies.front();
  if (studies.size() > 1) {
    return FileError{argument, "Υπάρχουν δύο μελέτες με αυτό το όνομα, δώστε και την προέκταση ( " +
                                   studies[0].extension().string() + " ή " +
                                   studies[1].extension().string() + " )"};
  }
  return *status ? FileError{argument, "Δεν είναι μελέτη ούτε φάκελος του προγράμματος"}
                 : FileError{argument, "Δεν υπάρχει τέτοιος φάκελος ή μελέτη"};
}

// Copies the files of `from` that `to` lacks, whatever the case of their names.
Outcome CopyMissing(Disk& disk, const fs::path& from, const fs::path& to) {
  const auto delivered = disk.List(from);
  for (const std::string& name : delivered ? *delivered : std::vector<std::string>{}) {
    const fs::path source = from / name;
    if (disk.IsFolder(source)) continue;
    const auto there = FindIgnoringCase(disk, to, name);
    if (!there) return there.error();
    if (*there) continue;
    auto bytes = disk.Read(source);
    if (!bytes) continue;
    if (Outcome written = ReplaceFile(disk, to / name, std::move(*bytes)); !written) return written;
  }
  return Done{};
}

}  // namespace

ProgramPlaces FindPlaces(Disk& disk, const Surroundings& surroundings) {
  ProgramPlaces places;
  fs::path argument;
  if (!surroundings.argument.empty()) {
    argument = FromRoot(surroundings.argument.string()).lexically_normal();
  }
  places.folder = FindFolder(disk, surroundings, argument);
  places.state_folder = UserFolder(surroundings, "XDG_STATE_HOME", ".local/state");
  if (argument.empty() || disk.IsFolder(argument)) return places;
  if (auto study = FindStudyGiven(disk, argument)) {
    places.study = std::move(study).value();
  } else {
    places.refused = study.error();
  }
  return places;
}

Outcome FillProgramFolder(Disk& disk, const fs::path& folder, const fs::path& installed) {
  if (Outcome made = disk.MakeFolder(folder); !made) return made;
  if (const auto readable = disk.List(folder); !readable) return readable.error();
  const bool first = !HoldsLibraries(disk, folder);
  for (const char* const part : {"library", "templates", "shells", "sound"}) {
    if (Outcome copied = CopyMissing(disk, installed / part, folder); !copied) return copied;
  }
  if (!first) return Done{};
  const fs::path studies = folder / "PFILES";
  if (Outcome made = disk.MakeFolder(studies); !made) return made;
  return CopyMissing(disk, installed / "samples", studies);
}

}  // namespace kalvo
