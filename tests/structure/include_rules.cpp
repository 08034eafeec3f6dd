#include "tests/structure/include_rules.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

namespace kalvo {
namespace {

struct Folder {
  std::string_view name;
  int floor;
  bool standard_library_only;
};

// A folder may include itself and every folder on a lower floor.
constexpr std::array kFolders = {
    Folder{"study", 1, true},     Folder{"engine", 2, true},   Folder{"form", 2, true},
    Folder{"entry", 3, true},     Folder{"results", 3, true},  Folder{"shell", 4, true},
    Folder{"platform", 5, false}, Folder{"desktop", 6, false}, Folder{"cli", 6, false},
    Folder{"tools", 7, false},    Folder{"tests", 8, false},   Folder{"bench", 9, false},
    Folder{"fuzz", 9, false},
};

// Headers of the operating system that need no toolkit.
constexpr auto kSystemHeaders = std::to_array<std::string_view>(
    {"dirent.h", "errno.h", "fcntl.h", "langinfo.h", "locale.h", "signal.h", "sys/file.h",
     "sys/stat.h", "sys/statvfs.h", "sys/types.h", "sys/wait.h", "time.h", "unistd.h"});

struct Include {
  std::string_view name;
  bool quoted = false;
};

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

bool SkipWord(std::string_view& text, std::string_view word) {
  SkipBlanks(text);
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  return true;
}

// What an #include line names; an empty name when it is neither "..." nor <...>.
std::optional<Include> ParseIncludeLine(std::string_view line) {
  if (!SkipWord(line, "#") || !SkipWord(line, "include")) return std::nullopt;
  SkipBlanks(line);
  const bool quoted = line.starts_with('"');
  if (!quoted && !line.starts_with('<')) return Include{};
  const std::size_t end = line.find(quoted ? '"' : '>', 1);
  if (end == std::string_view::npos) return Include{};
  return Include{line.substr(1, end - 1), quoted};
}

const Folder* FindFolder(std::string_view path) {
  const std::size_t slash = path.find('/');
  if (slash == std::string_view::npos) return nullptr;
  const auto* found = std::ranges::find(kFolders, path.substr(0, slash), &Folder::name);
  return found == kFolders.end() ? nullptr : found;
}

bool IsStandardHeader(std::string_view name) {
  const bool plain = std::ranges::all_of(
      name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
  return plain || std::ranges::find(kSystemHeaders, name) != kSystemHeaders.end();
}

// Why `from` may not have this include; empty when it may.
std::string_view ReasonAgainst(const Folder& from, const Include& include) {
  if (include.name.empty()) return "names no file";
  const Folder* to = FindFolder(include.name);
  if (to == nullptr && include.quoted) return "is not written from the project's root";
  if (to == nullptr) {
    const bool allowed = !from.standard_library_only || IsStandardHeader(include.name);
    return allowed ? "" : "is not of the standard library";
  }
  if (!include.quoted) return "is a project file and belongs in quotes";
  const std::string in_path = "/" + std::string(include.name) + "/";
  if (in_path.find("/../") != std::string::npos || in_path.find("/./") != std::string::npos) {
    return "is not written from the project's root";
  }
  if (to == &from || to->floor < from.floor) return "";
  return to->floor == from.floor ? "points sideways" : "points upward";
}

}  // namespace

std::vector<IncludeOffence> FindIncludeOffences(std::string_view path, std::string_view text) {
  const Folder* from = FindFolder(path);
  if (from == nullptr) return {{0, "", "lies in a folder that is no floor"}};

  std::vector<IncludeOffence> offences;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const auto include = ParseIncludeLine(text.substr(0, end))) {
      const std::string_view reason = ReasonAgainst(*from, *include);
      if (!reason.empty()) {
        offences.push_back({number, std::string(include->name), std::string(reason)});
      }
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return offences;
}

}  // namespace kalvo
