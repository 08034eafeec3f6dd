#include "study/copying/folder_families.h"

#include <algorithm>

#include "study/codepage.h"
#include "study/study_extensions.h"
#include "study/study_file_names.h"
#include "study/unicode_form.h"

namespace kalvo {

// Letters of a name that is no UTF-8 are not known: only its extension is compared.
std::string ComparedName(std::string_view name) {
  if (IsUtf8(name)) {
    return LowerCase(ComposedForm(name));
  }
  const std::string_view base = BaseOf(name);
  return std::string(base) + LowerCase(name.substr(base.size()));
}

FolderFamilies::FolderFamilies(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    Add(name);
  }
}

void FolderFamilies::Add(const std::string& name) {
  const std::string_view extension = std::string_view(name).substr(BaseOf(name).size());
  if (!IsStudyExtension(extension) && !EqualIgnoringCase(extension, kCarriedExtension)) {
    return;
  }
  std::vector<std::string>& alike = alike_[ComparedName(name)];
  const auto place = std::lower_bound(alike.begin(), alike.end(), name);
  if (place != alike.end() && *place == name) {
    return;
  }
  alike.insert(place, name);
  if (KindOfName(name) != SystemKind::kNone) {
    bases_.emplace(BaseOf(name));
  }
}

void FolderFamilies::Remove(const std::string& name) {
  const auto found = alike_.find(ComparedName(name));
  if (found == alike_.end() || std::erase(found->second, name) == 0) {
    return;
  }
  if (KindOfName(name) != SystemKind::kNone) {
    bases_.erase(bases_.find(std::string(BaseOf(name))));
  }
}

std::vector<std::string> FolderFamilies::Mains(SystemKind kind) const {
  std::vector<std::string> mains;
  for (const auto& [key, names] : alike_) {
    if (KindOfName(key) == kind) {
      mains.insert(mains.end(), names.begin(), names.end());
    }
  }
  std::sort(mains.begin(), mains.end());
  return mains;
}

const std::vector<std::string>& FolderFamilies::Alike(const std::string& name) const {
  static const std::vector<std::string> kNone;
  const auto found = alike_.find(ComparedName(name));
  return found == alike_.end() ? kNone : found->second;
}

bool FolderFamilies::IsAnothers(std::string_view companion, std::string_view base) const {
  return BaseOf(companion) != base && bases_.contains(std::string(BaseOf(companion)));
}

StudyFamily FolderFamilies::Of(std::string_view main) const {
  StudyFamily family{std::string(main), {}};
  const std::string base(BaseOf(main));
  for (const std::string_view extension : CompanionExtensions(KindOfName(main))) {
    const std::string wanted = base + std::string(extension);
    const std::vector<std::string>& alike = Alike(wanted);
    auto found = std::find(alike.begin(), alike.end(), wanted);
    if (found == alike.end()) {
      found = std::find_if(alike.begin(), alike.end(),
                           [&](const std::string& name) { return BaseOf(name) == base; });
    }
    if (found == alike.end()) {
      found = alike.begin();
    }
    if (found != alike.end() && !IsAnothers(*found, base)) {
      family.companions.push_back(*found);
    }
  }
  return family;
}

std::vector<std::string> FolderFamilies::AllCompanionsOf(std::string_view main) const {
  std::vector<std::string> names;
  const std::string base(BaseOf(main));
  for (const std::string_view extension : CompanionExtensions(KindOfName(main))) {
    for (const std::string& name : Alike(base + std::string(extension))) {
      if (!IsAnothers(name, base)) {
        names.push_back(name);
      }
    }
  }
  return names;
}

std::string FolderFamilies::FindMain(std::string_view name, bool any_case) const {
  const std::vector<std::string>& alike = Alike(std::string(name));
  if (std::find(alike.begin(), alike.end(), name) != alike.end()) {
    return std::string(name);
  }
  const auto found = std::find_if(alike.begin(), alike.end(), [&](const std::string& entry) {
    return any_case || BaseOf(entry) == BaseOf(name);
  });
  return found == alike.end() ? std::string() : *found;
}

}  // namespace kalvo
