#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "study/numeric_text.h"

namespace kalvo {

/// What the user has done to a text: `piece` is now between what stayed as it was.
struct Edit {
  std::string_view before;
  std::string_view piece;
  std::string_view after;
};

/// A piece of several lines as one line: what parts lines, or cells that were copied, goes at the
/// ends and becomes a blank inside.
std::string OneLine(std::string_view piece);

/// Puts accents into their letters; one that comes first is for the last letter of `before`, which
/// then goes over to `piece`.
void JoinAccents(std::string& before, std::string& piece);

/// A number as it is typed or copied, without the blanks around it. Where `decimal` it loses its
/// thousands, and the sign of its decimals becomes the user's own: a sign that is there once, or
/// the last of two different ones. One that is there several times parts thousands.
std::string NumberPiece(std::string_view piece, bool decimal, Separators separators);

/// At most `count` characters of `text`, from its start.
std::string FirstCharacters(std::string_view text, std::size_t count);

}  // namespace kalvo
