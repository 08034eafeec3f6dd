#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "study/pipe_row.h"
#include "study/separators.h"
#include "study/stat_row.h"
#include "study/workbench.h"

namespace kalvo {

/// Why the quantities are not those of the study's own list.
enum class Recount {
  kNone,     ///< they are
  kForeign,  ///< the list belongs to other pipes than the study's pipe system
  kUnread,   ///< `STATIST.TMP` cannot be read
};

/// The bill of pipes and fittings of a calculated network.
struct Quantities {
  std::vector<PipeRow> pipes;  ///< the pipe system
  std::vector<StatRow> lines;  ///< one for each of `pipes`, in use or not; none: nothing is counted
  Recount recount = Recount::kNone;  ///< else the lines were counted anew from the rows
  std::optional<FileError> unread;   ///< of kUnread

  /// What a line in the window or in a message says of a recount; empty without one.
  [[nodiscard]] std::string RecountText() const;
};

/// What is told where nothing is counted.
constexpr const char* kNoQuantities = "Η προμέτρηση συμπληρώνεται με τον υπολογισμό.";

/// The quantities of the open study: its list, or without one that of `STATIST.TMP`; counted anew
/// from the work file `rows` where that does not belong to the pipe system line by line or cannot
/// be read. Nothing is written. Error: pipe system or rows cannot be read. Faults: kOverflow.
Result<Quantities> ReadQuantities(const Workspace& workspace, const Study& study,
                                  std::string_view rows = work_file::kRows);

/// Whether the network has any pipe or fitting of that size.
bool IsInUse(const StatRow& pipe);

/// Water content of a closed network, litres: Σ ((d/1000)² × 3.14159 / 4) × 1000 × L over the
/// pipe sizes, d in mm and L in m.
double WaterContent(std::span<const StatRow> pipes);

/// "... Το Σωληνοδίκτυο, περιέχει : 312,2 [Lit] Νερού ..."
std::string WaterLine(double litres, Separators separators);

}  // namespace kalvo
