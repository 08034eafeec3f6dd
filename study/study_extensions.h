#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "study/letter_case.h"
#include "study/study.h"

namespace kalvo {

/// Extensions of a saved study's files, by kind of system; empty where a kind has no such file.
struct StudyExtensions {
  std::string_view main;
  std::string_view sequence;
  std::string_view statistics;
  std::string_view winter;
  std::string_view fluid;
};

constexpr std::size_t kStudyExtensionLength = 4;
constexpr StudyExtensions kClosedExtensions = {".PCK", ".DPC", ".STC", ".WNT", ".LQD"};
constexpr StudyExtensions kOpenExtensions = {".PCA", ".DPO", ".STO", "", ".LQD"};

constexpr const StudyExtensions& ExtensionsOf(SystemKind kind) {
  return kind == SystemKind::kOpen ? kOpenExtensions : kClosedExtensions;
}

/// True for any extension of the two families, ignoring case.
inline bool IsStudyExtension(std::string_view extension) {
  constexpr std::array kAll = {kClosedExtensions, kOpenExtensions};
  for (const StudyExtensions& family : kAll) {
    for (const std::string_view known :
         {family.main, family.sequence, family.statistics, family.winter, family.fluid}) {
      if (!known.empty() && EqualIgnoringCase(extension, known)) {
        return true;
      }
    }
  }
  return false;
}

/// A file that is copied with a study of either kind; nobody reads or writes it.
constexpr std::string_view kCarriedExtension = ".KLD";

/// Extensions of all companions that the kind has, those of other programs included.
inline std::vector<std::string_view> CompanionExtensions(SystemKind kind) {
  const StudyExtensions& known = ExtensionsOf(kind);
  std::vector<std::string_view> extensions = {known.statistics, known.sequence, known.winter,
                                              known.fluid, kCarriedExtension};
  std::erase(extensions, std::string_view());
  return extensions;
}

/// The kind that a main file's name tells by its last four characters.
inline SystemKind KindOfName(std::string_view file_name) {
  const std::size_t at =
      file_name.size() - (file_name.size() < kStudyExtensionLength ? 0 : kStudyExtensionLength);
  const std::string_view end = file_name.substr(at);
  if (EqualIgnoringCase(end, kClosedExtensions.main)) {
    return SystemKind::kClosed;
  }
  return EqualIgnoringCase(end, kOpenExtensions.main) ? SystemKind::kOpen : SystemKind::kNone;
}

}  // namespace kalvo
