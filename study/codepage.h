#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kalvo {

/// Code page 1253 (Greek) bytes as UTF-8. Every byte has a partner, so any byte string comes back
/// unchanged through ToCodePage(): unassigned bytes of 0x80-0x9F stand for the C1 controls, 0xAA,
/// 0xD2 and 0xFF for U+F8F9, U+F8FA and U+F8FB.
/// Source of the table: The Unicode Consortium, mapping file CP1253.TXT.
std::string FromCodePage(std::string_view bytes);

/// UTF-8 as code page 1253 bytes; what the code page lacks, and broken UTF-8, becomes "?".
std::string ToCodePage(std::string_view utf8);

/// The code page byte of one character, none when the code page lacks it.
std::optional<char> CodePageByte(char32_t character);

/// Takes the first character off `utf8`; U+FFFD for a broken sequence (one byte is taken).
/// `utf8` must not be empty.
char32_t TakeCharacter(std::string_view& utf8);

/// Appends `character` to `text` in UTF-8.
void AppendUtf8(std::string& text, char32_t character);

/// True when `text` is well-formed UTF-8.
bool IsUtf8(std::string_view text);

/// Count of characters of a UTF-8 text, for aligning columns.
std::size_t CountCharacters(std::string_view utf8);

}  // namespace kalvo
