#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kalvo {

/// What a save journal says: names of the files that take their places, the main file last, and
/// of those that go.
struct PendingSave {
  std::vector<std::string> files;
  std::vector<std::string> removed;
};

/// The text of a journal.
std::string JournalText(const PendingSave& save);

/// What a whole journal of study `base` says; nothing of any other text.
PendingSave ReadJournal(std::string_view text, const std::string& base);

/// True for a name that a save of study `base` may write or remove: one of its main files or
/// companions in the same folder, the base spelled in whatever case.
bool IsFamilyName(std::string_view name, std::string_view base);

/// The same for a base that is spelled alike.
bool BearsFamilyName(std::string_view name, std::string_view base);

}  // namespace kalvo
