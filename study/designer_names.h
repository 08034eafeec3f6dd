#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "study/designer_row.h"
#include "study/workspace.h"

namespace kalvo {

constexpr std::size_t kDesignerNameSize = decltype(DesignerRow::Name)::kSize;
constexpr std::size_t kDesignerPasswordSize = decltype(DesignerRow::Password)::kSize;

/// The designers whose names go on paper, in UTF-8, each once.
struct DesignerList {
  std::vector<std::string> names;
  std::string password;  ///< empty: the list is open

  [[nodiscard]] bool Has(std::string_view name) const;
  bool operator==(const DesignerList&) const = default;
};

/// `name` as the list gives it back: without blanks at its ends, in the characters of the code
/// page, cut where it has no room. Empty when it cannot be in the list.
std::string ListedDesigner(std::string_view name);

/// The list in `CLIENTS.VAM`; a missing or empty file holds no name. Error: the file cannot be
/// read, or holds something else.
Result<DesignerList> ReadDesigners(const Workspace& workspace);

/// Writes the whole list. One without names keeps no password.
Outcome WriteDesigners(Workspace& workspace, const DesignerList& list);

/// Bytes with the noise of a generator, begun anew at each call, added to them and taken off again.
/// It keeps names from being read by chance; it is no protection.
std::string Scrambled(std::string_view bytes);
std::string Unscrambled(std::string_view bytes);

}  // namespace kalvo
