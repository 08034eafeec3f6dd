#include "shell/manual/manual_search.h"

#include <algorithm>

#include "shell/search_text.h"

namespace kalvo {
namespace {

bool HoldsAll(const std::string& key, const std::vector<std::string>& words) {
  return std::ranges::all_of(
      words, [&](const std::string& word) { return key.find(word) != std::string::npos; });
}

}  // namespace

std::vector<std::string> SearchWords(std::string_view typed) {
  const std::string key = SearchKey(typed);
  std::vector<std::string> words;
  for (std::size_t at = key.find_first_not_of(' '); at != std::string::npos;) {
    const std::size_t end = std::min(key.find(' ', at), key.size());
    words.push_back(key.substr(at, end - at));
    at = key.find_first_not_of(' ', end);
  }
  return words;
}

ManualSearch::ManualSearch(const ManualBook& book) {
  for (const BookChapter& chapter : book.chapters()) {
    auto heading = chapter.headings.begin();
    bool in_code = false;
    for (const std::string& line : LinesOf(chapter.text)) {
      if (IsFence(line)) in_code = !in_code;
      if (!in_code && HeadingLevel(line) > 0 && heading != chapter.headings.end()) {
        const std::string key = SearchKey(heading->text);
        parts_.push_back(
            {{{chapter.name, heading->anchor}, chapter.Title(), heading->text}, key, key});
        ++heading;
      } else if (!line.starts_with("<!--") && !parts_.empty()) {
        parts_.back().key += '\n' + SearchKey(PlainText(line));
      }
    }
  }
}

std::vector<ManualHit> ManualSearch::Find(std::string_view typed) const {
  const std::vector<std::string> words = SearchWords(typed);
  std::vector<ManualHit> in_headings;
  std::vector<ManualHit> in_texts;
  if (words.empty()) return {};
  for (const Part& part : parts_) {
    if (!HoldsAll(part.key, words)) continue;
    (HoldsAll(part.heading_key, words) ? in_headings : in_texts).push_back(part.hit);
  }
  in_headings.insert(in_headings.end(), in_texts.begin(), in_texts.end());
  return in_headings;
}

}  // namespace kalvo
