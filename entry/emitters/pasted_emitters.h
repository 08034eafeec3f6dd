#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/emitter_entry.h"
#include "form/form.h"

namespace kalvo {

/// What a copied block of three columns (section, flow, drop) adds to a list of emitters.
struct PastedEmitters {
  std::vector<EmitterValues> emitters;
  std::vector<std::string> left_out;  ///< a line for each that does not fit, with the reason
};

/// Reads the block; numbers that can be read in two ways are asked about once. Nothing when the
/// user breaks off.
std::optional<PastedEmitters> ReadPastedEmitters(Workbench& bench, std::string_view text,
                                                 const EmitterEntry& entry, Separators separators);

/// Says what went in and what was left out; nothing when all went in.
void TellPasted(Workbench& bench, const PastedEmitters& pasted);

}  // namespace kalvo
