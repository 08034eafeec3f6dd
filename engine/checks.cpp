#include "engine/checks.h"

#include "engine/first_row_index.h"
#include "engine/lost_walk.h"
#include "engine/outlets.h"
#include "engine/row_store.h"
#include "study/message_codes.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

using Table = std::vector<SectionLine>;

// The source's name as a Greek keyboard types it.
constexpr std::string_view kGreekSource = "ΑΝΤ";

std::string RowText(std::size_t index) { return std::to_string(index + 1); }

std::string SectionFinding(std::size_t index, std::string_view what) {
  return "Το Τμήμα " + RowText(index) + " " + std::string(what) + "\n";
}

// Rows that bear `key` in the index, row `index` itself left out when `own` is the same key.
bool OthersBear(const FirstRowIndex& index, std::uint32_t key, std::uint32_t own) {
  return index.All(key).size() > (key == own ? 1U : 0U);
}

void WriteFindings(Workbench& bench, const std::string& findings, bool append) {
  std::string text;
  if (append && bench.workspace.Exists(work_file::kErrors)) {
    text = Require(bench.workspace.Read(work_file::kErrors));
  }
  Require(bench.workspace.Write(work_file::kErrors, text + findings));
}

// What a pair of lists comes to: nothing, or the first list anew and the second behind it.
CheckEnd Conclude(Workbench& bench, const std::string& first, const std::string& second) {
  if (first.empty() && second.empty()) {
    bench.study.NameErrors = false;
    return CheckEnd::kNothing;
  }
  WriteFindings(bench, first + second, first.empty());
  return CheckEnd::kFindings;
}

// What a list that was begun anew comes to.
CheckEnd ConcludeOpen(Workbench& bench, const std::string& findings) {
  bench.workspace.Delete(work_file::kErrors);
  if (findings.empty()) {
    return CheckEnd::kNothing;
  }
  WriteFindings(bench, findings, false);
  return CheckEnd::kFindings;
}

std::string SameNames(const Table& table, const FirstRowIndex& by_left) {
  std::string findings;
  for (std::size_t i = 0; i < table.size(); ++i) {
    for (const auto& [key, row] : by_left.All(NodeKey(LeftNode(table[i].name)))) {
      if (static_cast<std::size_t>(row) > i + 1) {
        findings += "Το Τμήμα " + RowText(i) + " και το Τμήμα " + std::to_string(row) +
                    " έχουν το ίδιο όνομα !!\n";
      }
    }
  }
  return findings;
}

}  // namespace

void ListLostWalk(Workbench& bench) {
  const Study& study = bench.study;
  if (study.lost_walk) {
    const std::string finding = LostWalkText(study, *study.lost_walk) + "\n";
    WriteFindings(bench, finding + GreekSourceFindings(study.SectionTable), false);
  }
}

void ShowLostWalk(Workbench& bench) {
  bench.study.CalcStatus = calc_status::kBranchLost;  // the message inserts it
  bench.Show(message::kWalkLost);
  bench.study.CalcStatus = calc_status::kNothing;
}

std::string GreekSourceFindings(const std::vector<SectionLine>& table) {
  const std::uint32_t key = NodeKey(ToCodePage(kGreekSource));
  std::string findings;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (NodeKey(LeftNode(table[i].name)) == key || NodeKey(RightNode(table[i].name)) == key) {
      findings += SectionFinding(i, "γράφει το ANT με Ελληνικά γράμματα !!");
    }
  }
  return findings;
}

CheckEnd CheckNodes(Workbench& bench) {
  const Table& table = bench.study.SectionTable;
  if (table.size() == 1) {
    return CheckEnd::kNothing;
  }
  const FirstRowIndex by_left = IndexByLeftNode(table);
  const FirstRowIndex by_right = IndexByRightNode(table);
  std::string dead_ends;
  std::string dead_starts;
  for (std::size_t i = 0; i < table.size(); ++i) {
    const std::uint32_t left = NodeKey(LeftNode(table[i].name));
    const std::uint32_t right = NodeKey(RightNode(table[i].name));
    if (!OthersBear(by_left, right, left)) {
      dead_ends += SectionFinding(i, "έχει ανύπαρκτο Τελικό Κόμβο !!");
    }
    if (!OthersBear(by_right, left, right)) {
      dead_starts += SectionFinding(i, "έχει ανύπαρκτο Αρχικό Κόμβο !!");
    }
  }
  if (!dead_ends.empty() || !dead_starts.empty()) {
    dead_starts += GreekSourceFindings(table);
  }
  return Conclude(bench, dead_ends, dead_starts);
}

CheckEnd CheckFeedersByName(Workbench& bench) {
  const Table& table = bench.study.SectionTable;
  const FirstRowIndex by_left = IndexByLeftNode(table);
  std::string missing;
  for (std::size_t i = 1; i < table.size(); ++i) {
    const std::uint32_t own = NodeKey(LeftNode(table[i].name));
    if (!OthersBear(by_left, NodeKey(RightNode(table[i].name)), own)) {
      missing += SectionFinding(i, "τροφοδοτείται από ανύπαρκτο Τμήμα !!");
    }
  }
  if (!missing.empty()) {
    missing += GreekSourceFindings(table);
  }
  return Conclude(bench, SameNames(table, by_left), missing);
}

CheckEnd CheckFeederNumbers(Workbench& bench) {
  const Table& table = bench.study.SectionTable;
  std::string findings;
  for (std::size_t i = 0; i < table.size(); ++i) {
    if (FeederNumber(table[i].name) > static_cast<double>(table.size())) {
      findings += "Το Τμήμα " + RowText(i) + " τροφοδοτείται από ανύπαρκτο Τμήμα (Νο " +
                  FromCodePage(Trim(RightNode(table[i].name))) + " )\n";
    }
  }
  return ConcludeOpen(bench, findings);
}

CheckEnd CheckFeederUse(Workbench& bench) {
  const Table& table = bench.study.SectionTable;
  std::vector<int> count(table.size() + 1);
  std::vector<int> first(table.size() + 1);
  for (std::size_t j = 1; j < table.size(); ++j) {
    const double feeder = FeederNumber(table[j].name);
    if (feeder < 1 || feeder > static_cast<double>(table.size()) || feeder != Int(feeder)) {
      continue;
    }
    const auto at = static_cast<std::size_t>(feeder);
    if (++count[at] == 1) {
      first[at] = table[j].number;
    }
  }
  std::string findings;
  for (std::size_t i = 1; i <= table.size(); ++i) {
    if (count[i] == 1) {
      findings += "Τα Τμήματα " + std::to_string(i) + " και " + std::to_string(first[i]) +
                  " έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n";
    }
  }
  return ConcludeOpen(bench, findings);
}

}  // namespace kalvo
