#include "shell/studies_index.h"

#include <gtest/gtest.h>

#include "study/codepage.h"
#include "study/date_text.h"
#include "study/real_disk.h"
#include "tests/support/dated_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

// A folder of studies whose files have times.
class StudiesIndex : public testing::Test {
 protected:
  void Put(const std::string& name, std::string_view title) {
    PutBytes(name, EncodeRows<SectionRow>(SampleRows(SystemKind::kClosed, title)));
  }
  void PutBytes(const std::string& name, std::string bytes) {
    ASSERT_TRUE(disk.Write(kFolder + "/" + name, std::move(bytes)).ok());
  }
  std::string Lines(SystemKind kind = SystemKind::kClosed) {
    std::string lines;
    for (const ListedStudy& study : BuildStudiesIndex(workspace, kFolder, kind)) {
      lines += study.Line() + "|";
    }
    return lines;
  }

  const std::string kFolder = "/studies";
  MemoryDisk memory;
  DatedDisk disk{memory};
  NoWait clock;
  Workspace workspace{disk, "/program", disk, "/library", clock};
};

TEST_F(StudiesIndex, ListsTheStudiesOfAKindByTheirTitles) {
  Put("ωδείο.PCK", "Ωδείο");
  Put("Άλσος.pck", "Πισίνα άλσους");
  Put("b.PCA", "Open");
  Put("άγραφη.PCK", "");
  PutBytes("short.PCK", "no study");
  PutBytes("odd.PCK", EncodeRows<SectionRow>(SampleRows(SystemKind::kClosed, "Odd")) + "x");
  PutBytes("b.STC", "");
  ASSERT_TRUE(disk.MakeFolder("/studies/folder.PCK").ok());
  EXPECT_EQ(Lines(),
            "(001.) odd.PCK|(002.) short.PCK|(003.) άγραφη.PCK|(004.) Πισίνα άλσους|(005.) Ωδείο|");
  EXPECT_EQ(Lines(SystemKind::kOpen), "(001.) Open|");
  ListedStudy thousandth;
  thousandth.number = 1000;
  EXPECT_EQ(thousandth.Line(), "(1000.) ");
}

TEST_F(StudiesIndex, WritesARecordForEveryStudyAndKeepsTheWholeNameBesideIt) {
  std::string name;
  for (int i = 0; i < 120; ++i) {
    name += "ν";
  }
  name += ".PCK";
  disk.now = 86'400 * 365;
  Put(name, "Τίτλος");
  const auto studies = BuildStudiesIndex(workspace, kFolder, SystemKind::kClosed);
  ASSERT_EQ(studies.size(), 1U);
  EXPECT_EQ(studies[0].path(), kFolder + "/" + name);

  const auto text = [](std::string_view utf8, std::size_t width) {
    std::string bytes = ToCodePage(utf8);
    bytes.resize(width, ' ');
    return bytes;
  };
  const auto bytes = workspace.Read(work_file::kStudiesIndex);
  ASSERT_TRUE(bytes.ok());
  EXPECT_EQ(*bytes, std::string("\x01\0", 2) + text("Τίτλος", 120) + text(kFolder, 264) +
                        text(name, 100) + text(DateText(disk.now), 12) +
                        text(ClockText(disk.now), 10) + std::string(18, ' '));
  EXPECT_EQ(DateText(disk.now).substr(2), "/01/1971");
}

TEST_F(StudiesIndex, HoldsUntilTheFolderOrTheIndexChanges) {
  const auto read = [this] { return ReadStudiesIndex(workspace, kFolder, SystemKind::kClosed); };
  Put("α.PCK", "Πρώτη");
  PutBytes("β.PCK", "unreadable");
  EXPECT_FALSE(read()) << "no index yet";
  BuildStudiesIndex(workspace, kFolder, SystemKind::kClosed);
  EXPECT_FALSE(read()) << "a study may have been written after the index in the same second";

  disk.now += 2;
  BuildStudiesIndex(workspace, kFolder, SystemKind::kClosed);
  auto cached = read();
  ASSERT_TRUE(cached);
  EXPECT_EQ((*cached)[0].Line() + (*cached)[1].Line(), "(001.) Πρώτη(002.) β.PCK");
  EXPECT_FALSE(ReadStudiesIndex(workspace, "/others", SystemKind::kClosed));

  disk.now += 2;
  Put("α.PCK", "Δεύτερη");
  EXPECT_FALSE(read());
  EXPECT_EQ(ListStudies(workspace, kFolder, SystemKind::kClosed)[0].title, "Δεύτερη");

  const std::string whole = *workspace.Read(work_file::kStudiesIndex);
  disk.now += 2;
  for (const std::string& broken :
       {whole.substr(1), whole.substr(526), std::string(1052, '\xFF')}) {
    ASSERT_TRUE(workspace.Write(work_file::kStudiesIndex, broken).ok());
    EXPECT_FALSE(read());
    EXPECT_EQ(ListStudies(workspace, kFolder, SystemKind::kClosed)[0].title, "Δεύτερη");
  }
}

TEST_F(StudiesIndex, AnIndexThatCannotBeWrittenIsDoneWithout) {
  Put("α.PCK", "Πρώτη");
  FailingDisk full(disk);
  full.FailAtOperation(1, FailingDisk::Lasting::kFromThenOn);
  Workspace stuck(full, "/program", full, "/library", clock);
  EXPECT_EQ(BuildStudiesIndex(stuck, kFolder, SystemKind::kClosed).size(), 1U);
  EXPECT_FALSE(workspace.Exists(work_file::kStudiesIndex));
}

TEST(StudiesIndexOnDisk, ReadsNoMoreOfAStudyThanItsFirstRow) {
  const DiskBench folders;
  RealDisk disk;
  const auto path = folders.studies() / "a.PCK";
  ASSERT_TRUE(disk.Write(path, "0123456789").ok());
  EXPECT_EQ(*disk.ReadHead(path, 4), "0123");
  EXPECT_EQ(*disk.ReadHead(path, 40), "0123456789");
  EXPECT_FALSE(disk.Remove(folders.studies()).ok());
  EXPECT_TRUE(disk.Remove(path).ok());
  EXPECT_TRUE(disk.Remove(folders.studies()).ok());
  EXPECT_FALSE(disk.Exists(folders.studies()));
}

}  // namespace
}  // namespace kalvo
