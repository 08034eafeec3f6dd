#include "entry/sections/section_draft.h"

#include <gtest/gtest.h>

#include <random>

#include "entry/sections/sheet_columns.h"

namespace kalvo {
namespace {

SectionDraft DraftOf(SystemKind kind,
                     const std::vector<std::pair<const char*, const char*>>& names) {
  SheetImage image{kind, static_cast<int>(names.size()), {}};
  for (const auto& [left, right] : names) {
    SheetRow& row = image.rows.emplace_back();
    row.texts[sheet_column::kLeft] = left;
    row.texts[sheet_column::kRight] = right;
    row.texts[sheet_column::kLength] = "1";
    row.origin = static_cast<int>(image.rows.size());
  }
  SectionDraft draft;
  draft.Begin(std::move(image));
  return draft;
}

std::string NamesOf(const SectionDraft& draft) {
  std::string names;
  for (int row = 0; row < draft.Count(); ++row) {
    names += (row > 0 ? " " : "") + draft.Text(row, 0) + "/" + draft.Text(row, 2);
  }
  return names;
}

template <typename Work>
void Act(SectionDraft& draft, Work&& work) {
  const SectionDraft::Action action(draft, "x", {});
  work();
}

TEST(Draft, BeginsWithTheNamesOfItsKind) {
  EXPECT_EQ(DraftOf(SystemKind::kClosed, {}).Text(0, 0), "ANT");
  SectionDraft open = DraftOf(SystemKind::kOpen, {});
  EXPECT_EQ(open.Text(0, 0) + "/" + open.Text(0, 2), "1/ANT");
  EXPECT_EQ(open.Count(), 0) << "a row with nothing else is no section";
  Act(open, [&] { open.Set(2, 3, "5"); });
  EXPECT_EQ(open.Text(2, 0), "3") << "a row that is begun bears its number";
  EXPECT_EQ(open.Count(), 3);
}

TEST(Draft, NumbersOfAnOpenNetworkFollowItsRows) {
  SectionDraft draft =
      DraftOf(SystemKind::kOpen, {{"1", "ANT"}, {"2", "1"}, {"3", "2"}, {"4", "3"}, {"5", "2"}});
  Act(draft, [&] { draft.InsertRows(1, 2); });
  EXPECT_EQ(NamesOf(draft), "1/ANT 2/ 3/ 4/1 5/4 6/5 7/4");
  EXPECT_EQ(draft.At(3).origin, 2);
  Act(draft, [&] { draft.RemoveRows(3, 1); });
  EXPECT_EQ(NamesOf(draft), "1/ANT 2/ 3/ 4/ 5/4 6/") << "fed by the deleted row: emptied";
  draft.Undo();
  draft.Undo();
  EXPECT_EQ(NamesOf(draft), "1/ANT 2/1 3/2 4/3 5/2");
  EXPECT_FALSE(draft.Undo());
}

// Any actions, taken back and done again, give the same sheets.
TEST(Draft, UndoAndRedoGoThroughTheSameSheets) {
  std::mt19937 random(7);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
    SectionDraft draft = DraftOf(kind, {{"1", "ANT"}, {"2", "1"}, {"07", "1"}, {"2", "3"}});
    std::vector<std::vector<SheetRow>> sheets{draft.Image().rows};
    std::vector<std::string> words = {"", "1", "2", "3", "12", "ANT", "999", "0", "x"};
    for (int step = 0; step < 500; ++step) {
      const int before = draft.revision();
      Act(draft, [&] {
        switch (below(6)) {
          case 0:
            draft.InsertRows(below(draft.Count() + 1), 1 + below(3));
            break;
          case 1:
            draft.RemoveRows(below(draft.Count() + 2), 1 + below(3));
            break;
          default:
            for (int i = below(4); i >= 0; --i) {
              draft.Set(below(draft.Count() + 2), below(2) * 2, words[random() % words.size()]);
              draft.Set(below(draft.Count() + 1), 3 + below(13), words[random() % words.size()]);
            }
        }
      });
      if (draft.revision() != before) sheets.push_back(draft.Image().rows);
      if (below(10) == 0) {
        int back = below(5);
        while (back-- > 0 && draft.Undo()) {
          sheets.pop_back();
          ASSERT_EQ(draft.Image().rows, sheets.back()) << step;
        }
      }
    }
    for (auto at = sheets.size(); at-- > 1;) {
      ASSERT_TRUE(draft.Undo());
      ASSERT_EQ(draft.Image().rows, sheets[at - 1]);
    }
    EXPECT_FALSE(draft.Undo());
    for (std::size_t at = 1; at < sheets.size(); ++at) {
      ASSERT_TRUE(draft.Redo());
      ASSERT_EQ(draft.Image().rows, sheets[at]);
    }
    EXPECT_FALSE(draft.Redo());
  }
}

}  // namespace
}  // namespace kalvo
