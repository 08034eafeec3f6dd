#include "form/field.h"

#include <utility>

#include "study/codepage.h"
#include "study/unicode_form.h"

namespace kalvo {
namespace {

constexpr std::size_t kLongestNumber = 15;

bool IsDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

bool IsDecimal(KeyFamily family) {
  return family == KeyFamily::kSignedDecimal || family == KeyFamily::kUnsignedDecimal;
}

bool FamilyTakes(KeyFamily family, char32_t character, Separators separators) {
  if (family == KeyFamily::kPath) return character >= U' ' && character != 0x7F;
  if (family == KeyFamily::kText) {
    return character >= U' ' && character != 0x7F && CodePageByte(character).has_value();
  }
  if (IsDigit(character)) return true;
  const bool is_signed = family == KeyFamily::kSignedDecimal || family == KeyFamily::kSignedWhole;
  if (character == U'-') return is_signed;
  return IsDecimal(family) &&
         character == static_cast<char32_t>(static_cast<unsigned char>(separators.decimal));
}

constexpr std::string_view kOnlyNumbers = "Εδώ γράφονται μόνο αριθμοί";

std::string Alien(char32_t character) {
  std::string text = "Δεν γράφεται εδώ ο χαρακτήρας ";
  if (character > U' ') {
    AppendUtf8(text, character);
    text += ' ';
  }
  std::string code;  // for characters that cannot be seen
  for (auto rest = static_cast<unsigned>(character); rest != 0 || code.size() < 4; rest >>= 4) {
    code.insert(0, 1, "0123456789ABCDEF"[rest & 0xF]);
  }
  return text + "(U+" + code + ")";
}

std::string Room(std::size_t characters) {
  return "χωρούν έως " + std::to_string(characters) + " χαρακτήρες";
}

}  // namespace

Field::Field(Form& form, std::string_view name, KeyFamily key_family)
    : Control(form, name), family(key_family), max_bytes(numeric() ? kLongestNumber : 0) {}

std::string Field::Trimmed() const {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::optional<char32_t> Field::FirstAlien(std::string_view typed, Separators separators) const {
  while (!typed.empty()) {
    const char32_t character = TakeCharacter(typed);
    if (!FamilyTakes(family, character, separators)) return character;
  }
  return std::nullopt;
}

bool Field::Refuse(std::string why) {
  refusal_ = std::move(why);
  ++refusals_;
  return false;
}

bool Field::TakesKey(char32_t character, Separators separators) {
  if (!CanEdit()) return false;
  std::string piece;
  AppendUtf8(piece, character);
  if (numeric()) return !FirstAlien(NumberPiece(piece, IsDecimal(family), separators), separators);
  const bool taken = FamilyTakes(family, character, separators) || IsMark(character);
  return taken || Refuse(Alien(character));
}

void Field::Show(std::string_view shown) {
  text = shown;
  edited_ = false;
  has_value_ = false;
  refused = false;
  refusal_.clear();
}

void Field::ShowNumber(float value, std::string_view pattern, Separators separators) {
  Show(pattern.empty() ? FormatNumber(value, separators)
                       : FormatPattern(value, pattern, separators));
  value_ = value;
  has_value_ = true;
}

double Field::Number(Separators separators) const {
  return has_value_ ? value_ : ParseNumber(text, separators);
}

Field::Leave Field::TryLeave(Separators separators) {
  if (one_separator && numeric() && CanEdit() && CountDecimalSeparators(text, separators) > 1) {
    Show("");
    return Leave::kTooManySeparators;
  }
  return !on_leave || on_leave() ? Leave::kYes : Leave::kNo;
}

bool Field::Type(const Edit& edit, Separators separators) {
  if (!CanEdit()) return false;
  refusal_.clear();
  std::string before(edit.before);
  std::string piece =
      numeric() ? NumberPiece(edit.piece, IsDecimal(family), separators) : OneLine(edit.piece);
  // Paths keep the form in which their folders are written.
  if (family == KeyFamily::kText) JoinAccents(before, piece);
  const std::size_t kept = CountCharacters(before) + CountCharacters(edit.after);
  const std::size_t room = max_bytes > kept ? max_bytes - kept : 0;
  const bool too_long = max_bytes != 0 && CountCharacters(piece) > room;
  // A number that was cut would be another number.
  if (too_long && !numeric()) piece = FirstCharacters(piece, room);
  if (const auto alien = FirstAlien(piece, separators)) {
    return Refuse(numeric() ? std::string(kOnlyNumbers) : Alien(*alien));
  }
  if (too_long && (numeric() || piece.empty())) return Refuse("Εδώ " + Room(max_bytes));
  std::string typed = before.append(piece).append(edit.after);
  if (std::string why = forbids ? forbids(typed) : std::string(); !why.empty()) {
    return Refuse(std::move(why));
  }
  if (too_long) Refuse("Το κείμενο κόπηκε: " + Room(max_bytes));
  TakeText(std::move(typed));
  return true;
}

void Field::TakeText(std::string typed) {
  refused = false;
  if (typed == text) return;
  text = std::move(typed);
  edited_ = true;
  has_value_ = false;
  whole_selected = false;
  if (on_change) on_change();
}

void Field::Enter(Separators separators) {
  if (numeric() && strips_thousands && CanEdit()) text = StripThousands(text, separators);
  whole_selected = true;
}

}  // namespace kalvo
