#include "shell/manual/manual_book.h"

#include <algorithm>

namespace kalvo {
namespace {

constexpr std::string_view kChapterEnd = ".md";

}  // namespace

std::string BookChapter::Title() const { return headings.empty() ? name : headings.front().text; }

Result<ManualBook> ManualBook::Read(const Disk& disk, const std::filesystem::path& folder) {
  auto names = disk.List(folder);
  if (!names) return names.error();
  ManualBook book;
  for (const std::string& name : *names) {
    if (!name.ends_with(kChapterEnd)) continue;
    auto text = disk.Read(folder / name);
    if (!text) {
      book.unread_.push_back(text.error());
      continue;
    }
    BookChapter chapter{name.substr(0, name.size() - kChapterEnd.size()), std::move(*text)};
    chapter.headings = HeadingsOf(chapter.text);
    book.chapters_.push_back(std::move(chapter));
  }
  if (book.chapters_.empty()) {
    return book.unread_.empty() ? FileError{folder, "Δεν υπάρχει κεφάλαιο του εγχειριδίου"}
                                : book.unread_.front();
  }
  std::stable_partition(book.chapters_.begin(), book.chapters_.end(),
                        [](const BookChapter& one) { return one.name == kManualContents; });
  return book;
}

const BookChapter* ManualBook::Find(std::string_view name) const {
  const auto found = std::ranges::find(chapters_, name, &BookChapter::name);
  return found == chapters_.end() ? nullptr : &*found;
}

ManualPlace ManualBook::Follow(std::string_view from_chapter, std::string_view target) const {
  const std::size_t mark = target.find('#');
  const std::string_view file = target.substr(0, mark);
  ManualPlace spot;
  if (mark != std::string_view::npos) spot.anchor = target.substr(mark + 1);
  if (file.empty()) {
    spot.chapter = from_chapter;
  } else if (file.ends_with(kChapterEnd) && file.find('/') == std::string_view::npos) {
    spot.chapter = file.substr(0, file.size() - kChapterEnd.size());
  }
  return spot.chapter.empty() ? ManualPlace{} : spot;
}

}  // namespace kalvo
