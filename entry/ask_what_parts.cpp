#include "entry/ask_what_parts.h"

#include <algorithm>

#include "form/pasted_numbers.h"

namespace kalvo {

std::optional<bool> AskWhatParts(Workbench& bench, const std::string& title,
                                 const std::vector<std::string>& numbers, Separators separators) {
  if (!IsDoubtful(numbers, separators)) return false;
  const auto example = std::ranges::find_if(numbers, [separators](const std::string& number) {
    return number.find(separators.thousands) != std::string::npos;
  });
  const Answer answer = bench.Ask({title,
                                   {"... Το < " + *example + " > διαβάζεται με δύο τρόπους ...",
                                    std::string("... Η < ") + separators.thousands +
                                        " > χωρίζει χιλιάδες (Ναι), ή δεκαδικά (Όχι) ; ..."},
                                   box_style::kDefaultCancel});
  if (answer == Answer::kCancel || answer == Answer::kNone) return std::nullopt;
  return answer == Answer::kYes;
}

}  // namespace kalvo
