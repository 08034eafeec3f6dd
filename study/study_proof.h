#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "study/workbench.h"

namespace kalvo {

/// The row that a study's header values stand on: the plant section's, failing that the last.
const SectionRow& HeaderRow(const std::vector<SectionRow>& rows);

/// Which record and field is no finite number, as a reason for an error; empty when all are.
/// Reserved fields are never used: what they hold does not matter.
template <typename Row>
std::string FirstBadNumber(const std::vector<Row>& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::string field;
    ForEachField(rows[i], [&field](std::string_view name, const auto& value) {
      if constexpr (std::is_same_v<std::decay_t<decltype(value)>, float>) {
        if (field.empty() && !name.starts_with("reserved") && !std::isfinite(value)) {
          field = name;
        }
      }
    });
    if (!field.empty()) {
      return "Άκυρος αριθμός στην εγγραφή " + std::to_string(i + 1) + ", πεδίο " + field;
    }
  }
  return {};
}

/// Why a study of the other kind is not loaded.
FileError OtherKindError(const std::filesystem::path& file);

/// Rows of a main file, of either kind, if they can be loaded as ProveLoadable() says.
Result<std::vector<SectionRow>> ProveRows(const Workbench& bench, const std::filesystem::path& file,
                                          std::string_view bytes);

/// Rows of a main file if it can be loaded: whole records, at least one, numbered by their places,
/// finite numbers, of the study's kind (when both or neither kind is marked it counts as that), its
/// pipe system in the list and on disk. `file` is named in errors.
Result<std::vector<SectionRow>> ProveLoadable(const Workbench& bench,
                                              const std::filesystem::path& file,
                                              std::string_view bytes);

}  // namespace kalvo
