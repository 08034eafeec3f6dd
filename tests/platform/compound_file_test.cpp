#include "platform/xls/compound_file.h"

#include <gtest/gtest.h>

#include "platform/xls/workbook_reasons.h"
#include "tests/platform/biff_stream.h"

namespace kalvo {
namespace {

CompoundEntry Tree() {
  CompoundEntry root{{}, true, {}, {}, {}};
  root.class_id = {0x20, 0x08, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
  root.entries.push_back({"Workbook", false, std::string(10'000, 'w'), {}, {}});
  root.entries.push_back({"\5SummaryInformation", false, "short", {}, {}});
  root.entries.push_back({"empty", false, {}, {}, {}});
  CompoundEntry storage{"Αντικείμενο", true, {}, {}, {}};
  storage.class_id[3] = 7;
  storage.entries.push_back({"inner", false, std::string(500, 'i'), {}, {}});
  storage.entries.push_back({"nothing", true, {}, {}, {}});
  root.entries.push_back(storage);
  return root;
}

void ExpectSame(const CompoundEntry& a, const CompoundEntry& b) {
  EXPECT_EQ(a.is_storage, b.is_storage) << b.name;
  EXPECT_EQ(a.bytes, b.bytes) << b.name;
  EXPECT_EQ(a.class_id, b.class_id) << b.name;
  ASSERT_EQ(a.entries.size(), b.entries.size()) << b.name;
  for (const CompoundEntry& entry : b.entries) {
    const CompoundEntry* found = a.Find(entry.name);
    ASSERT_NE(found, nullptr) << entry.name;
    ExpectSame(*found, entry);
  }
}

TEST(CompoundFile, GivesBackItsStreamsAndStorages) {
  const auto bytes = WriteCompoundFile(Tree());
  ASSERT_TRUE(bytes);
  EXPECT_TRUE(IsCompoundFile(*bytes));
  const auto read = ReadCompoundFile(*bytes);
  ASSERT_TRUE(read);
  ExpectSame(*read, Tree());
  const auto again = WriteCompoundFile(*read);
  EXPECT_EQ(*WriteCompoundFile(*ReadCompoundFile(*again)), *again);
}

TEST(CompoundFile, CutAnywhereIsRefusedOrWhole) {
  const std::string bytes = *WriteCompoundFile(Tree());
  for (std::size_t length = 0; length < bytes.size(); length += 13) {
    const auto read = ReadCompoundFile(bytes.substr(0, length));
    if (read) ExpectSame(*read, Tree());
  }
}

// Each entry names the next one, and so on to the end of the file.
TEST(CompoundFile, OfAnEndlessDirectoryIsRefused) {
  std::string bytes = *WriteCompoundFile(Tree());
  std::string entry(128, '\0');
  entry[0] = 'x';
  entry[64] = 4;
  entry[66] = 2;
  for (int i = 0; i < 10'000; ++i) bytes += entry;
  EXPECT_EQ(ReadCompoundFile(bytes).error().reason, workbook_reason::kDamaged);
  EXPECT_EQ(ReadCompoundFile(std::string(kMostCompoundBytes + 1, '\0')).error().reason,
            workbook_reason::kTooLarge);
}

}  // namespace
}  // namespace kalvo
