#pragma once

#include <optional>
#include <string>
#include <vector>

#include "study/record.h"
#include "study/study.h"
#include "study/workspace.h"

namespace kalvo {

/// A record of `Studies.std`, 526 bytes.
struct StudyTitleRow {
  std::int16_t Number = 0;
  FixedText<120> Title;
  FixedText<264> Folder;
  FixedText<100> FileName;
  FixedText<12> FileDate;  ///< dd/MM/yyyy
  FixedText<10> FileTime;  ///< HH:mm:ss
  FixedText<18> rest;      ///< without meaning

  static constexpr auto kFields = std::make_tuple(
      RecordField{"Number", &StudyTitleRow::Number}, RecordField{"Title", &StudyTitleRow::Title},
      RecordField{"Folder", &StudyTitleRow::Folder},
      RecordField{"FileName", &StudyTitleRow::FileName},
      RecordField{"FileDate", &StudyTitleRow::FileDate},
      RecordField{"FileTime", &StudyTitleRow::FileTime}, RecordField{"rest", &StudyTitleRow::rest});
};
static_assert(RecordSize<StudyTitleRow>() == 526);

/// One study of the list. Texts are UTF-8, trimmed.
struct ListedStudy {
  int number = 0;     ///< from 1
  std::string title;  ///< `Thema` of row 1; the file's name when there is none or it cannot be read
  std::filesystem::path folder;
  std::string file_name;  ///< the whole name as it stands in the folder
  std::string date;       ///< dd/MM/yyyy
  std::string time;       ///< HH:mm:ss

  [[nodiscard]] std::filesystem::path path() const { return folder / file_name; }
  /// "(001.) title", as the list shows it.
  [[nodiscard]] std::string Line() const;
};

/// Names of the folder's studies of the kind, by extension, in the order of a list
/// (StandsBefore()).
std::vector<std::string> StudyNames(const Disk& disk, const std::filesystem::path& folder,
                                    SystemKind kind);

/// The studies of `folder` of the kind, those included whose first save was broken off, read from
/// their files, and `Studies.std` written anew from them. The index is a cache: that it cannot be
/// written is no error.
std::vector<ListedStudy> BuildStudiesIndex(Workspace& workspace,
                                           const std::filesystem::path& folder, SystemKind kind);

/// The same list from `Studies.std`, no study opened. None when the index is missing or broken, or
/// tells of other studies, dates or times than the folder does, or may be older than one of them.
std::optional<std::vector<ListedStudy>> ReadStudiesIndex(Workspace& workspace,
                                                         const std::filesystem::path& folder,
                                                         SystemKind kind);

/// The list for a dialog: from the index if it still holds, else built.
std::vector<ListedStudy> ListStudies(Workspace& workspace, const std::filesystem::path& folder,
                                     SystemKind kind);

}  // namespace kalvo
