#include "platform/folders.h"
#include "platform/mounted_volumes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindle {
namespace {

using Volumes = std::vector<MountedVolume>;

TEST(MountedVolumes, TheRootIsFirstWhateverItIsMountedFrom) {
    EXPECT_EQ((Volumes{{"/", false}}), MountedVolumes(""));
    EXPECT_EQ((Volumes{{"/", false}, {"/home", false}}),
              MountedVolumes("/dev/sda2 /home ext4 rw 0 0\noverlay / overlay rw 0 0\n"));
}

TEST(MountedVolumes, DisksAndNetworkFoldersAreVolumes) {
    const std::string table = "/dev/sda1 / ext4 rw 0 0\n"
                              "/dev/sdb1 /run/media/me/STICK vfat rw 0 0\n"
                              "files:/plc /net/plc nfs4 rw 0 0\n"
                              "//office/plc /mnt/office cifs rw 0 0\n"
                              "tank/home /home zfs rw 0 0\n";
    EXPECT_EQ((Volumes{{"/", false},
                       {"/home", false},
                       {"/mnt/office", true},
                       {"/net/plc", true},
                       {"/run/media/me/STICK", false}}),
              MountedVolumes(table));
}

TEST(MountedVolumes, WhatTheSystemMountsForItselfIsNone) {
    const std::string table = "/dev/sda1 / ext4 rw 0 0\n"
                              "proc /proc proc rw 0 0\n"
                              "tmpfs /run tmpfs rw 0 0\n"
                              "/dev/sda3 /boot/efi vfat rw 0 0\n"
                              "/dev/loop0 /snap/core/1 squashfs ro 0 0\n"
                              "/dev/sda1 /var/lib/docker ext4 rw 0 0\n"
                              "devtmpfs /dev devtmpfs rw 0 0\n"
                              "gvfsd-fuse /run/user/1000/gvfs fuse.gvfsd-fuse rw 0 0\n";
    EXPECT_EQ((Volumes{{"/", false}}), MountedVolumes(table));
}

TEST(MountedVolumes, AFolderThatBeginsLikeOneOfTheSystemIsNotOne) {
    EXPECT_EQ((Volumes{{"/", false}, {"/bootleg", false}}),
              MountedVolumes("/dev/sdb1 /bootleg ext4 rw 0 0\n"));
}

TEST(MountedVolumes, EscapedCharactersAreRead) {
    EXPECT_EQ((Volumes{{"/", false}, {"/mnt/a b\\c", false}}),
              MountedVolumes("/dev/sdb1 /mnt/a\\040b\\134c vfat rw 0 0\n"));
}

TEST(MountedVolumes, AFolderMountedOverTwiceIsListedOnce) {
    EXPECT_EQ((Volumes{{"/", false}, {"/mnt", true}}),
              MountedVolumes("/dev/sdb1 /mnt ext4 rw 0 0\nfiles:/plc /mnt nfs rw 0 0\n"));
}

TEST(MountedVolumes, BrokenLinesArePassedOver) {
    EXPECT_EQ((Volumes{{"/", false}, {"/mnt\\04", false}}),
              MountedVolumes("\n/dev/sdb1\n/dev/sdb1 /mnt\\04 ext4"));
}

TEST(RealDrives, AreFoldersAndTheFirstIsTheRoot) {
    const FolderFunctions folders = RealFolders();
    const std::vector<std::string> drives = folders.Drives();
    ASSERT_FALSE(drives.empty());
    EXPECT_EQ("/", drives[0]);
    for (const std::string& drive : drives) {
        EXPECT_TRUE(folders.FolderExists(drive)) << drive;
    }
}

} // namespace
} // namespace brindle
