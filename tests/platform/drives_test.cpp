#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "platform/drives/detached_start.h"
#include "platform/drives/mount_table.h"
#include "platform/drives/mounted_volumes.h"
#include "study/real_disk.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;

TEST(MountTable, IsReadWithItsEscapesAndWithoutBrokenLines) {
  const auto mounts = ReadMounts(
      "36 35 8:17 / /media/my\\040stick rw,noatime shared:1 master:2 - vfat /dev/sdb1 rw,utf8\n"
      "broken\n"
      "37 35 8:18 / /mnt ro,noatime - ext4 /dev/sdb2 rw\n"
      "38 35 8:19 / /cd rw - iso9660 /dev/sr0 ro\n"
      "39 35 8:20 / /short rw -\n"
      "40 35 8:21 / /end\\13 rw - vfat /dev/sdd rw");
  ASSERT_EQ(mounts.size(), 4U);
  EXPECT_EQ(mounts[0].place, "/media/my stick");
  EXPECT_EQ(mounts[0].device, "/dev/sdb1");
  EXPECT_EQ(mounts[0].number, "8:17");
  EXPECT_TRUE(mounts[0].writable);
  EXPECT_FALSE(mounts[1].writable);
  EXPECT_FALSE(mounts[2].writable);
  EXPECT_EQ(mounts[3].place, "/end\\13");
  EXPECT_TRUE(ReadMounts("").empty());
}

// A machine whose own tables are files of a test.
class Drives : public testing::Test {
 protected:
  Drives() {
    PutDevice("8:1", "pci0/ata1/block/sda/sda1", "0");
    PutDevice("8:17", "pci0/usb1/block/sdb/sdb1", "1");
    PutDevice("8:33", "pci0/usb2/block/sdc/sdc1", "0");
    sources.mounts = place.folder() / "mountinfo";
    sources.devices = place.folder() / "devices";
    sources.home = place.studies();
  }
  void PutDevice(const std::string& number, const std::string& path, const std::string& removable) {
    const fs::path device = place.folder() / "sys" / path;
    fs::create_directories(device);
    fs::create_directories(place.folder() / "devices");
    EXPECT_TRUE(disk.Write(device.parent_path() / "removable", removable + "\n").ok());
    fs::create_directory_symlink(device, place.folder() / "devices" / number);
  }
  void PutMounts(const std::string& text) { ASSERT_TRUE(disk.Write(sources.mounts, text).ok()); }

  DiskBench place;
  RealDisk disk;
  MountSources sources;
};

TEST_F(Drives, AreRemovableMediaOnceTheHomeFolderAndTheRoot) {
  const fs::path stick = place.folder() / "KINGSTON";
  fs::create_directory(stick);
  PutMounts("1 1 8:1 / / rw - ext4 /dev/sda1 rw\n2 1 8:17 / " + stick.string() +
            " rw - vfat /dev/sdb1 rw\n3 1 8:17 / /again rw - vfat /dev/sdb1 rw\n" +
            "4 1 8:33 / /boot/efi rw - vfat /dev/sdc1 rw\n5 1 8:33 / /media/live ro - vfat " +
            "/dev/sdc1 rw\n6 1 0:5 / /proc rw - proc proc rw\n");
  const auto all = MountedVolumes(sources).All();
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[0].name, "KINGSTON : Αφαιρούμενο μέσο");
  EXPECT_EQ(all[0].device, "/dev/sdb1");
  EXPECT_TRUE(all[0].writable);
  EXPECT_FALSE(all[0].holds_system);
  EXPECT_EQ(all[1].place, "/media/live");
  EXPECT_TRUE(all[1].holds_system) << "the system starts from it";
  EXPECT_FALSE(all[1].writable);
  EXPECT_EQ(all[2].place, place.studies());
  EXPECT_EQ(all[3].place, "/");
  sources.mounts = place.folder() / "gone";
  EXPECT_EQ(MountedVolumes(sources).All().size(), 2U) << "without a table no stick is known";
}

TEST_F(Drives, TellTheRoomOfAFolderThatIsThere) {
  const MountedVolumes volumes(sources);
  const auto room = volumes.RoomAt(place.studies());
  ASSERT_TRUE(room.ok());
  EXPECT_GE(room->capacity, room->free);
  EXPECT_GT(room->block, 0U);
  EXPECT_TRUE(room->writable);
  EXPECT_TRUE(volumes.RoomAt(place.studies() / "gone").error().IsMissing());
  EXPECT_FALSE(volumes.RoomAt("/proc")->writable && geteuid() != 0);
  EXPECT_TRUE(volumes.Holds({.place = place.folder()}, place.studies()));
  EXPECT_FALSE(volumes.Holds({.place = place.folder()}, "/proc"));
}

TEST_F(Drives, HandADeviceToTheToolThatIsThere) {
  sources.format_tool = (place.folder() / "tool").string();
  MountedVolumes volumes(sources);
  const Volume stick{.kind = VolumeKind::kRemovable, .device = "/dev/sdb1"};
  EXPECT_FALSE(volumes.OpenFormatTool(stick).ok()) << "there is none";
  const fs::path said = place.folder() / "said";
  ASSERT_TRUE(disk.Write(place.folder() / "tool", "#!/bin/sh\nsleep 0.1\necho \"$@\" > " +
                                                      said.string() + "~\nmv " + said.string() +
                                                      "~ " + said.string() + "\n")
                  .ok());
  EXPECT_FALSE(volumes.OpenFormatTool(stick).ok()) << "it is no program yet";
  fs::permissions(place.folder() / "tool", fs::perms::owner_all);
  ASSERT_TRUE(volumes.OpenFormatTool(stick).ok());
  EXPECT_FALSE(disk.Exists(said)) << "nobody waits for it";
  for (int i = 0; i < 500 && !disk.Exists(said); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_EQ(*disk.Read(said), "--block-device /dev/sdb1 --format-device\n");
  ASSERT_TRUE(disk.Write(place.folder() / "tool", "#!/no/such/shell\n").ok());
  EXPECT_FALSE(volumes.OpenFormatTool(stick).ok()) << "it does not start";
  EXPECT_EQ(FindProgram("sh").filename(), "sh");
  EXPECT_TRUE(FindProgram("no-such-program-anywhere").empty());
}

}  // namespace
}  // namespace kalvo
