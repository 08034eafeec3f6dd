#include "shell/messages.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

#include "shell/message_table.h"

namespace kalvo {
namespace {

/// The one message that answers for the user: the pipes do not suffice, so the run is refused.
constexpr int kPipesDoNotSuffice = 300;

struct InsertedValue {
  std::string_view mark;
  std::string (*text)(const Study& study, Separators separators);
};

constexpr InsertedValue kInsertedValues[] = {
    {"{SectionCount}",
     [](const Study& study, Separators) { return NumberText(study.SectionCount); }},
    {"{CalcStatus}", [](const Study& study, Separators) { return NumberText(study.CalcStatus); }},
    {"{CurrentRow}", [](const Study& study, Separators) { return NumberText(study.CurrentRow); }},
    {"{critical_branch}", [](const Study& study, Separators) { return study.critical_branch; }},
    {"{WaterFlow}",
     [](const Study& study, Separators separators) {
       return FormatPattern(study.row.WaterFlow, pattern::kOneDecimal, separators);
     }},
};

/// `text` with its mark, if any, replaced. What is inserted is not searched for marks.
std::string WithValue(std::string_view text, const Study& study, Separators separators) {
  std::string filled(text);
  for (const InsertedValue& value : kInsertedValues) {
    const std::size_t at = filled.find(value.mark);
    if (at != std::string::npos) {
      return filled.replace(at, value.mark.size(), value.text(study, separators));
    }
  }
  return filled;
}

}  // namespace

std::optional<Box> MessageFor(int code, const Study& study, Separators separators) {
  const auto table = MessageTable();
  const auto message = std::ranges::find_if(table, [&](const Message& candidate) {
    return candidate.code == code &&
           candidate.kind.value_or(study.system_kind) == study.system_kind;
  });
  if (message == table.end()) {
    return std::nullopt;
  }
  Box box{WithValue(message->title, study, separators), {}, message->style, kAlarmBeeps};
  box.number = code;
  for (const std::string_view line : message->lines) {
    std::string filled = WithValue(line, study, separators);
    if (!filled.empty()) {
      box.lines.push_back(std::move(filled));
    }
  }
  return box;
}

Answer AnswerOf(int code, Answer given) {
  if (code == kPipesDoNotSuffice) {
    return Answer::kNo;
  }
  const auto table = MessageTable();
  const auto message = std::ranges::find(table, code, &Message::code);
  return message != table.end() && StyleAsks(message->style) ? given : Answer::kNone;
}

Box ConfirmOverwriteBox() {
  return {std::string(kAttentionTitle),
          {"!! Το Αρχείο αυτό, υπάρχει ήδη !!", "Θέλετε να το αντικαταστήσω ?"},
          box_style::kStopDefaultNo};
}

bool ConfirmOverwrite(Workbench& bench) { return bench.Ask(ConfirmOverwriteBox()) == Answer::kYes; }

std::string BoxText(const Box& box) {
  std::string text = "\n";
  for (std::size_t i = 0; i < box.lines.size(); ++i) {
    text += (i == 0 ? "" : "\n") + box.lines[i];
  }
  return text;
}

}  // namespace kalvo
