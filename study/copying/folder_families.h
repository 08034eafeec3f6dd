#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "study/system_kind.h"

namespace kalvo {

/// The files of one study in its folder, each as the folder spells it.
struct StudyFamily {
  std::string main;
  std::vector<std::string> companions;  ///< those that are there, in the order of their extensions
};

/// Which studies' the files of a folder are, known from one listing of it: names are compared as
/// CompanionOf() does, those of other programs included.
class FolderFamilies {
 public:
  /// `names`: all that is in the folder, in byte order.
  explicit FolderFamilies(const std::vector<std::string>& names);

  /// A file has come to the folder, or one with that name is there already.
  void Add(const std::string& name);
  void Remove(const std::string& name);

  /// Names of the main files of the kind, in byte order.
  [[nodiscard]] std::vector<std::string> Mains(SystemKind kind) const;
  /// The study whose main file is `main`, which need not be there.
  [[nodiscard]] StudyFamily Of(std::string_view main) const;
  /// Every file that somebody who looks for companions of `main` might meet, where a folder has
  /// several that differ in case only.
  [[nodiscard]] std::vector<std::string> AllCompanionsOf(std::string_view main) const;
  /// The main file with that base and extension, the base spelled alike, else in any case where
  /// `any_case` is set; empty when there is none.
  [[nodiscard]] std::string FindMain(std::string_view name, bool any_case) const;
  /// The companion goes by its base with another main file that is there.
  [[nodiscard]] bool IsAnothers(std::string_view companion, std::string_view base) const;

 private:
  [[nodiscard]] const std::vector<std::string>& Alike(const std::string& name) const;

  /// By their compared form, in byte order.
  std::unordered_map<std::string, std::vector<std::string>> alike_;
  std::unordered_multiset<std::string> bases_;  ///< of all main files
};

/// What two names have in common that differ in case, or in how accents are written, only.
std::string ComparedName(std::string_view name);

}  // namespace kalvo
