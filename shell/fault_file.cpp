#include "shell/fault_file.h"

#include <algorithm>
#include <string>

#include "study/date_text.h"

namespace kalvo {
namespace {

constexpr std::size_t kLongestLine = 8'192;  // longer than any path

// One line of it, cut between characters.
std::string OneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c >= 0 && c < ' '; }, ' ');
  std::size_t length = std::min(text.size(), kLongestLine);
  while (length < text.size() && length > 0 &&
         (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
    --length;
  }
  text.resize(length);
  return text;
}

std::string LineOf(const FaultNote& note, std::int64_t moment) {
  std::string line =
      DateText(moment) + ' ' + ClockText(moment) + "  fault " + std::to_string(note.number);
  if (note.row != 0) line += ", row " + std::to_string(note.row);
  if (!note.section.empty()) line += " (" + note.section + ")";
  return OneLine(line + " : " + note.text) + '\n';
}

// Takes whole lines off the front until the rest is short enough.
void DropOldest(std::string& log) {
  if (log.size() <= FaultFile::kMostBytes) return;
  const std::size_t end = log.find('\n', log.size() - FaultFile::kMostBytes - 1);
  log.erase(0, end == std::string::npos ? log.size() : end + 1);
}

}  // namespace

void FaultFile::Note(const FaultNote& note) {
  if (!disk_.MakeFolder(folder_)) return;
  auto read = disk_.Read(folder_ / kFaultFile);
  if (!read && !read.error().IsMissing()) return;
  std::string log = read ? std::move(read).value() : std::string();
  if (!log.empty() && log.back() != '\n') log += '\n';
  log += LineOf(note, clock_.Now());
  DropOldest(log);
  static_cast<void>(ReplaceFile(disk_, folder_ / kFaultFile, std::move(log)));
}

}  // namespace kalvo
