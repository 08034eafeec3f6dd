#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "form/questions.h"
#include "shell/manual/manual_text.h"
#include "study/disk.h"

namespace kalvo {

/// A chapter of the manual as it is in its file, "05-emitters-outlets.md" for that name.
struct BookChapter {
  std::string name;
  std::string text;  ///< Markdown; links and pictures are relative to the manual's folder
  std::vector<ManualHeading> headings{};

  /// The words of its first heading, its name when it has none.
  [[nodiscard]] std::string Title() const;
};

/// The manual's chapters in the order of their files' names; its contents come first.
class ManualBook {
 public:
  /// The chapters of a folder, all that can be read. Error: the folder cannot be, or none of them.
  static Result<ManualBook> Read(const Disk& disk, const std::filesystem::path& folder);

  [[nodiscard]] const std::vector<BookChapter>& chapters() const { return chapters_; }
  /// The chapter of that name, nullptr when there is none.
  [[nodiscard]] const BookChapter* Find(std::string_view name) const;
  /// What could not be read of the folder.
  [[nodiscard]] const std::vector<FileError>& unread() const { return unread_; }

  /// Where a link of a chapter leads within the manual; an empty chapter when it leads out of it.
  [[nodiscard]] ManualPlace Follow(std::string_view from_chapter, std::string_view target) const;

 private:
  std::vector<BookChapter> chapters_;
  std::vector<FileError> unread_;
};

/// The chapter with the contents.
inline constexpr std::string_view kManualContents = "README";

}  // namespace kalvo
