#include "platform/drives/mount_table.h"

#include <algorithm>
#include <optional>

namespace kalvo {
namespace {

std::vector<std::string_view> WordsOf(std::string_view line) {
  std::vector<std::string_view> words;
  while (!line.empty()) {
    const std::size_t end = std::min(line.find(' '), line.size());
    if (end > 0) words.push_back(line.substr(0, end));
    line.remove_prefix(std::min(end + 1, line.size()));
  }
  return words;
}

bool IsOctal(std::string_view digits) {
  return digits.size() == 3 &&
         std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '7'; });
}

// A blank, tab, line end or "\" of a name is written as three octal digits after "\".
std::string Unescaped(std::string_view word) {
  std::string text;
  for (std::size_t at = 0; at < word.size(); ++at) {
    const std::string_view digits = word.substr(at + 1, 3);
    if (word[at] != '\\' || !IsOctal(digits)) {
      text += word[at];
      continue;
    }
    text += static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + (digits[2] - '0'));
    at += digits.size();
  }
  return text;
}

bool HasOption(std::string_view options, std::string_view option) {
  return ("," + std::string(options) + ",").find("," + std::string(option) + ",") !=
         std::string::npos;
}

// "36 35 98:0 /root /place rw,noatime shared:1 - vfat /dev/sdb1 rw"; before "-" come any number of
// words of no interest.
std::optional<Mount> MountOf(std::string_view line) {
  constexpr std::size_t kNumber = 2;
  constexpr std::size_t kPlace = 4;
  constexpr std::size_t kOptions = 5;
  const std::vector<std::string_view> words = WordsOf(line);
  if (words.size() <= kOptions) return std::nullopt;
  const auto parts = std::find(words.begin() + kOptions, words.end(), "-");
  if (words.end() - parts < 4) return std::nullopt;
  const bool writable = !HasOption(words[kOptions], "ro") && !HasOption(parts[3], "ro");
  return Mount{std::string(words[kNumber]), Unescaped(words[kPlace]), Unescaped(parts[2]),
               writable};
}

}  // namespace

std::vector<Mount> ReadMounts(std::string_view mountinfo) {
  std::vector<Mount> mounts;
  while (!mountinfo.empty()) {
    const std::size_t end = std::min(mountinfo.find('\n'), mountinfo.size());
    if (auto mount = MountOf(mountinfo.substr(0, end))) mounts.push_back(std::move(*mount));
    mountinfo.remove_prefix(std::min(end + 1, mountinfo.size()));
  }
  return mounts;
}

}  // namespace kalvo
