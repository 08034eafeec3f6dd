#include "study/save_journal.h"

#include <algorithm>

#include "study/study_extensions.h"
#include "study/unicode_form.h"

namespace kalvo {

namespace {

constexpr std::string_view kJournalHead = "KALVOFLUME 1\n";
constexpr std::string_view kJournalFoot = "TELOS\n";
// Before the name of a file that goes. No name of the study's own is longer than its base by that
// much, so that none is mistaken for such a line.
constexpr std::string_view kRemovedMark = "- ";

bool EndsAsFamily(std::string_view name) {
  if (name.size() <= kStudyExtensionLength) {
    return false;
  }
  const std::string_view extension = name.substr(name.size() - kStudyExtensionLength);
  return IsStudyExtension(extension) || EqualIgnoringCase(extension, kCarriedExtension);
}

std::string_view WithoutExtension(std::string_view name) {
  return name.substr(0, name.size() - kStudyExtensionLength);
}

std::string ComparedForm(std::string_view text) { return LowerCase(ComposedForm(text)); }

}  // namespace

bool BearsFamilyName(std::string_view name, std::string_view base) {
  return EndsAsFamily(name) && WithoutExtension(name) == base;
}

bool IsFamilyName(std::string_view name, std::string_view base) {
  return EndsAsFamily(name) && (WithoutExtension(name) == base ||
                                ComparedForm(WithoutExtension(name)) == ComparedForm(base));
}

std::string JournalText(const PendingSave& save) {
  std::string text(kJournalHead);
  for (const std::string& name : save.files) {
    text += name + "\n";
  }
  for (const std::string& name : save.removed) {
    text += std::string(kRemovedMark) + name + "\n";
  }
  return text += kJournalFoot;
}

PendingSave ReadJournal(std::string_view text, const std::string& base) {
  if (!text.starts_with(kJournalHead) || !text.ends_with(kJournalFoot)) {
    return {};
  }
  text.remove_prefix(kJournalHead.size());
  text.remove_suffix(kJournalFoot.size());
  PendingSave save;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    const bool removed = !IsFamilyName(line, base) && line.starts_with(kRemovedMark);
    const std::string_view name = removed ? line.substr(kRemovedMark.size()) : line;
    if (end == std::string_view::npos || !IsFamilyName(name, base)) {
      return {};
    }
    (removed ? save.removed : save.files).emplace_back(name);
    text.remove_prefix(end + 1);
  }
  return save.files.empty() ? PendingSave{} : save;
}

}  // namespace kalvo
