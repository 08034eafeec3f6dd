#pragma once

#include <array>
#include <optional>
#include <span>
#include <string_view>

#include "study/study.h"

namespace kalvo {

/// A numbered message as it stands in the catalogue. Title and lines may each hold one mark in
/// braces, the name of the value that MessageFor() puts there.
struct Message {
  int code;
  std::string_view title;
  int style;                                ///< as in Box
  std::array<std::string_view, 6> lines{};  ///< the ones that are not empty
  std::optional<SystemKind> kind{};         ///< shown for this kind of system only; none: for all
};

/// Title of the plain warnings.
inline constexpr std::string_view kAttentionTitle = "  ! !   ΠΡΟΣΟΧΗ   ! ! ";

/// Every message, in the order of the codes' absolute values. A code whose text depends on the
/// kind of system has one entry for each kind.
std::span<const Message> MessageTable();

}  // namespace kalvo
