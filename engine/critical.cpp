#include "engine/critical.h"

#include <algorithm>
#include <numeric>

#include "engine/first_row_index.h"
#include "engine/row_store.h"
#include "study/by_number.h"
#include "study/rounding.h"

namespace kalvo {

namespace {

// What a branch loses, mm w.g.; in an open network with what its outlets need.
float DropOf(const Branch& branch, const RowTable& table, bool with_outlets) {
  const double sum = std::accumulate(
      branch.begin(), branch.end(), 0.0, [&table, with_outlets](double drop, int number) {
        const SectionRow& row = table.At(number);
        return drop + (with_outlets ? row.TotalDrop + row.SomaDrop * 1000.0 : row.TotalDrop);
      });
  return ToSingle(sum);
}

// Σ emitters' flows in m³/h.
float TotalFlow(const Study& study) {
  const double sum = std::accumulate(
      study.EmitterTable.begin(), study.EmitterTable.end(), 0.0,
      [](double flow, const EmitterLine& emitter) { return flow + emitter.flow_lh; });
  return ToSingle(sum / 1000.0);
}

void FollowChain(RowTable& table, const CriticalBranch& critical) {
  SectionRow& first = table.At(1);
  first.AvaiPres = ToSingle(RoundTo(static_cast<double>(critical.drop) - first.TotalDrop, 2));
  for (std::size_t i = 1; i < critical.chain.size(); ++i) {
    const double before = table.At(critical.chain[i - 1]).AvaiPres;
    SectionRow& row = table.At(critical.chain[i]);
    row.AvaiPres = ToSingle(RoundTo(before - row.TotalDrop, 2));
  }
}

// Finds for a row the one whose pressure it starts from; keeps the last one found.
class NeighbourSearch {
 public:
  explicit NeighbourSearch(const std::vector<SectionRow>& rows)
      : rows_(rows), index_(Index(rows)) {}

  int For(int row) {
    const SectionRow& of = ByNumber(rows_, row);
    if (const int found = index_.First(NodeKey(LeftNode(of.Name))); found != 0) {
      last_ = found;
    }
    return last_;
  }

 private:
  static FirstRowIndex Index(const std::vector<SectionRow>& rows) {
    std::vector<FirstRowIndex::Entry> entries;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (!rows[i].HasEmitter()) {
        entries.emplace_back(NodeKey(RightNode(rows[i].Name)), static_cast<int>(i) + 1);
      }
    }
    return FirstRowIndex(std::move(entries));
  }

  const std::vector<SectionRow>& rows_;
  FirstRowIndex index_;
  int last_ = 1;
};

void SettleRow(RowTable& table, int row, double before) {
  SectionRow& of = table.At(row);
  of.AvaiPres = ToSingle(RoundTo(before - of.TotalDrop, 2));
}

// Settles the rows whose neighbour's pressure is known; gives back the others, in order.
std::vector<int> SettleKnown(RowTable& table, NeighbourSearch& search,
                             const std::vector<int>& rows) {
  std::vector<int> postponed;
  for (const int row : rows) {
    const float before = table.At(search.For(row)).AvaiPres;
    if (before == 0.0F) {
      postponed.push_back(row);
    } else {
      SettleRow(table, row, before);
    }
  }
  return postponed;
}

std::vector<int> RowsOffChain(const RowTable& table, const Branch& chain) {
  std::vector<bool> on_chain(static_cast<std::size_t>(table.count()) + 1);
  for (std::size_t i = 1; i < chain.size(); ++i) {
    on_chain[static_cast<std::size_t>(chain[i])] = true;
  }
  std::vector<int> rows;
  for (int row = 2; row <= table.count(); ++row) {
    if (!on_chain[static_cast<std::size_t>(row)]) {
      rows.push_back(row);
    }
  }
  return rows;
}

}  // namespace

CriticalBranch ReadCriticalBranch(const Study& study, const RowTable& table) {
  CriticalBranch critical;
  critical.branches =
      study.SystemOpen() ? BuildOpenBranchStrings(study) : BuildBranchStrings(study);
  for (const Branch& branch : critical.branches) {
    const float drop = DropOf(branch, table, study.SystemOpen());
    if (critical.drop < drop) {
      critical.drop = drop;
      critical.chain = branch;
    }
  }
  return critical;
}

void StoreCritical(Study& study, RowTable& table, const CriticalBranch& critical) {
  study.TotalFlowM3h = TotalFlow(study);
  study.CriticalDrop = critical.drop;
  study.PumpHead = ToSingle(critical.drop / 1000.0);
  study.critical_branch = BranchText(critical.chain);
  for (SectionRow& row : table.rows()) {
    row.PAR = study.TotalFlowM3h;
    row.DP = critical.drop;
    row.AvaiPres = 0;
  }
}

CriticalBranch SettleCriticalBranch(Study& study, RowTable& table) {
  CriticalBranch critical = ReadCriticalBranch(study, table);
  critical.drop = ToSingle(RoundTo(critical.drop, 4));
  StoreCritical(study, table, critical);
  FollowChain(table, critical);
  return critical;
}

void SettleOtherRows(RowTable& table, const Branch& chain, const NotePostponed& note) {
  NeighbourSearch search(table.rows());
  const std::vector<int> postponed = SettleKnown(table, search, RowsOffChain(table, chain));
  if (!postponed.empty()) {
    note(postponed);
  }
  for (const int row : SettleKnown(table, search, postponed)) {
    SettleRow(table, row, table.At(search.For(row)).AvaiPres);
  }
}

PostponedFile::~PostponedFile() { workspace_.Delete(work_file::kPostponed); }

NotePostponed PostponedFile::Note() {
  return [this](const std::vector<int>& rows) {
    std::vector<PostponedRow> records;
    records.reserve(rows.size());
    for (const int row : rows) {
      records.push_back({FixedText<5>::FromBytes(PadBehind(std::to_string(row), 3))});
    }
    Require(workspace_.Rows<PostponedRow>(work_file::kPostponed).WriteAll(records));
  };
}

void CriticalPassFlowOnly(Study& study, RowTable& table, const NotePostponed& note) {
  const CriticalBranch critical = SettleCriticalBranch(study, table);
  SettleOtherRows(table, critical.chain, note);
}

void CriticalPassFlowOnly(Workbench& bench) {
  PostponedFile postponed(bench.workspace);
  RowStore store(bench.workspace);
  store.SaveAfter([&] { CriticalPassFlowOnly(bench.study, store, postponed.Note()); });
}

}  // namespace kalvo
