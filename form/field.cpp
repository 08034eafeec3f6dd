#include "form/field.h"

#include <algorithm>

#include "study/codepage.h"

namespace kalvo {
namespace {

constexpr std::size_t kLongestNumber = 15;

bool IsDigit(char32_t character) { return character >= U'0' && character <= U'9'; }

bool IsSeparator(char character) { return character == '.' || character == ','; }

bool IsDecimal(KeyFamily family) {
  return family == KeyFamily::kSignedDecimal || family == KeyFamily::kUnsignedDecimal;
}

bool FamilyTakes(KeyFamily family, char32_t character, Separators separators) {
  if (family == KeyFamily::kPath) return character >= U' ' && character != 0x7F;
  if (family == KeyFamily::kText) {
    return character >= U' ' && character != 0x7F && CodePageByte(character).has_value();
  }
  if (IsDigit(character)) return true;
  if (character == U'-') return family != KeyFamily::kUnsignedDecimal;
  return family != KeyFamily::kSignedWhole &&
         character == static_cast<char32_t>(static_cast<unsigned char>(separators.decimal));
}

}  // namespace

Field::Field(Form& form, std::string_view name, KeyFamily key_family)
    : Control(form, name), family(key_family), max_bytes(numeric() ? kLongestNumber : 0) {}

std::string Field::Trimmed() const {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool Field::Takes(std::string_view typed, Separators separators) const {
  while (!typed.empty()) {
    if (!FamilyTakes(family, TakeCharacter(typed), separators)) return false;
  }
  return true;
}

std::string Field::AsTyped(std::string_view piece, Separators separators) const {
  std::string typed(piece);
  if (numeric() && typed.size() > 1) {  // a number is copied with the blanks around it
    typed.erase(typed.find_last_not_of(" \t\r\n") + 1);
    typed.erase(0, typed.find_first_not_of(" \t\r\n"));
  }
  if (IsDecimal(family) && std::ranges::count_if(typed, IsSeparator) == 1) {
    std::ranges::replace_if(typed, IsSeparator, separators.decimal);
  }
  return typed;
}

// The edit as the field takes it: of a text whose middle is new, that is taken as typed.
std::string Field::Edited(std::string_view typed, Separators separators) const {
  const auto shared = static_cast<std::ptrdiff_t>(std::min(text.size(), typed.size()));
  const auto start = std::mismatch(typed.begin(), typed.begin() + shared, text.begin()).first;
  const auto left = shared - (start - typed.begin());
  const auto end = std::mismatch(typed.rbegin(), typed.rbegin() + left, text.rbegin()).first.base();
  const std::string_view middle(start, end);
  std::string edited(typed.begin(), start);
  // A pasted number with thousands stays as it is, to be refused.
  const bool one_key = middle.size() == 1;
  const bool one_separator = std::ranges::count_if(typed, IsSeparator) == 1;
  edited += one_key || one_separator || !IsDecimal(family) ? AsTyped(middle, separators)
                                                           : std::string(middle);
  edited.append(end, typed.end());
  return edited;
}

void Field::Show(std::string_view shown) {
  text = shown;
  edited_ = false;
  has_value_ = false;
  refused = false;
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
  if (numeric() && CanEdit() && CountDecimalSeparators(text, separators) > 1) {
    Show("");
    return Leave::kTooManySeparators;
  }
  return !on_leave || on_leave() ? Leave::kYes : Leave::kNo;
}

bool Field::TypeText(std::string_view given, Separators separators) {
  const std::string typed = Edited(given, separators);
  if (!CanEdit() || typed == text) return CanEdit();
  // A text that stood there before, such as a number with thousands, may be shortened.
  const bool shortened = text.find(typed) != std::string::npos;
  if (!shortened && !Takes(typed, separators)) return false;
  if (max_bytes != 0 && CountCharacters(typed) > max_bytes) return false;
  text = typed;
  edited_ = true;
  has_value_ = false;
  refused = false;
  whole_selected = false;
  if (on_change) on_change();
  return true;
}

void Field::Enter(Separators separators) {
  if (numeric() && CanEdit()) text = StripThousands(text, separators);
  whole_selected = true;
}

}  // namespace kalvo
