// SPDX-License-Identifier: MIT
#include "platform/posix/posix_files.h"
#include "support/temporary_folder.h"
#include "values/texts.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <vector>

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace chimewell::test {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

mode_t modeOf(const fs::path& path)
{
    struct stat status = {};
    ::lstat(path.c_str(), &status);
    return status.st_mode & 07777;
}

class PosixFilesTest : public ::testing::Test {
protected:
    TemporaryFolder folder;
    fs::path at = folder.path();
    PosixFiles files;
};

TEST_F(PosixFilesTest, NeitherReadsNorReplacesWhatIsNoOrdinaryFile)
{
    ASSERT_EQ(::mkfifo((at / "pipe").c_str(), 0600), 0);
    fs::create_directory(at / "folder");
    fs::create_symlink("loop", at / "loop");
    fs::create_symlink("gone/file", at / "astray");
    ASSERT_EQ(::truncate(folder.write("limit", "").c_str(), PosixFiles::maximumSize), 0);
    ASSERT_EQ(::truncate(folder.write("large", "").c_str(), PosixFiles::maximumSize + 1), 0);
    const fs::path withNull = (at / "limit").native() + std::string("\0x", 2);
    const Names before = folder.names();
    for (const fs::path& path :
         {at / "pipe", at / "folder/", at / "loop", at / "astray", withNull, fs::path()}) {
        EXPECT_FALSE(files.read(path)) << path;
        EXPECT_FALSE(files.replace(path, "new")) << path;
        EXPECT_FALSE(files.exchange(path, "old", "new")) << path;
    }
    EXPECT_TRUE(files.read(at / "limit"));
    EXPECT_FALSE(files.read(at / "large"));
    EXPECT_FALSE(files.read("/dev/zero"));
    EXPECT_FALSE(files.writeCopy(withNull, "new", at / "limit"));
    EXPECT_FALSE(files.remove(withNull));
    EXPECT_EQ(folder.names(), before);
    EXPECT_EQ(english(files.replace(at / "astray", "").error().description),
              "A symbolic link leads to " + (at / "gone").string() + ", which does not exist");
}

TEST_F(PosixFilesTest, ReplacesTheEndOfAChainOfLinksAndKeepsTheLinks)
{
    folder.write("real/deep/file", "old");
    fs::create_symlink("../real/deep/file", at / "real/second");
    fs::create_symlink(at / "real", at / "linked folder");
    fs::create_symlink("linked folder/second", at / "first");
    fs::create_symlink("real/fresh", at / "dangling");
    ASSERT_TRUE(files.exchange(at / "first", "old", "new"));
    EXPECT_EQ(folder.read("real/deep/file"), "new");
    ASSERT_TRUE(files.replace(at / "dangling", "made"));
    EXPECT_EQ(folder.read("real/fresh"), "made");
    for (const char* link : {"first", "real/second", "linked folder", "dangling"})
        EXPECT_TRUE(fs::is_symlink(at / link)) << link;
    EXPECT_EQ(folder.names("real/deep"), Names{"file"});
}

TEST_F(PosixFilesTest, ANewFileHasTheRightsOfTheOneThatItReplaces)
{
    const fs::path file = folder.write("file", "old");
    for (const mode_t mode : {mode_t{0600}, mode_t{0444}, mode_t{0666}}) {
        ASSERT_EQ(::chmod(file.c_str(), mode), 0);
        EXPECT_TRUE(files.replace(file, "old") && files.exchange(file, "old", "old"));
        EXPECT_TRUE(files.writeCopy(at / "copy", "old", file));
        EXPECT_EQ(modeOf(file), mode);
        EXPECT_EQ(modeOf(at / "copy"), mode);
    }
    EXPECT_TRUE(files.replace(at / "fresh", ""));
    EXPECT_EQ(modeOf(at / "fresh"), mode_t{0600});
#ifdef __linux__
    // rw- for the owner and user 1234, r-- for the group: of the folder for new files, or of the file itself.
    constexpr char list[] = "\2\0\0\0\1\0\6\0\xFF\xFF\xFF\xFF\2\0\6\0\xD2\4\0\0\4\0\4\0\xFF\xFF\xFF\xFF"
                            "\20\0\6\0\xFF\xFF\xFF\xFF \0\0\0\xFF\xFF\xFF\xFF";
    if (::setxattr(at.c_str(), "system.posix_acl_default", list, sizeof list - 1, 0) != 0)
        GTEST_SKIP() << "the file system keeps no access control lists";
    ASSERT_TRUE(files.replace(file, "new"));
    EXPECT_LT(::getxattr(file.c_str(), "system.posix_acl_access", nullptr, 0), 0);
    ASSERT_EQ(::setxattr(file.c_str(), "system.posix_acl_access", list, sizeof list - 1, 0), 0);
    ASSERT_EQ(::setxattr(file.c_str(), "user.note", "k\0pt", 4, 0), 0);
    ASSERT_TRUE(files.replace(file, "new"));
    std::string found(100, '\0');
    EXPECT_EQ(::getxattr(file.c_str(), "system.posix_acl_access", found.data(), found.size()),
              ssize_t{sizeof list - 1});
    EXPECT_EQ(::getxattr(file.c_str(), "user.note", found.data(), found.size()), 4);
    EXPECT_EQ(found.substr(0, 4), std::string("k\0pt", 4));
#endif
}

TEST_F(PosixFilesTest, AWriteThatEndsTooSoonLeavesTheOldFileAndNoOther)
{
    // The limit allows the first part of the content, so the system first writes short and then refuses.
    const fs::path file = folder.write("file", "old");
    struct rlimit before = {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {.rlim_cur = 5000, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const auto replaced = files.replace(file, std::string(100000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);

    EXPECT_FALSE(replaced);
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(folder.names(), Names{"file"});
}

#ifdef __linux__
TEST_F(PosixFilesTest, NeitherReadsNorExchangesWhatSomebodyWritesInto)
{
    const fs::path file = folder.write("file", "old");
    std::ofstream writer(file, std::ios::app);
    EXPECT_EQ(files.read(file).error().description, texts::beingWritten);
    EXPECT_TRUE(files.exchange(file, "old", "new").error().changed);
    EXPECT_EQ(folder.names(), Names{"file"});
    writer << "er" << std::flush;
    writer.close();
    EXPECT_EQ(files.read(file), "older");
    EXPECT_TRUE(files.exchange(file, "older", "new"));
}
#endif

TEST_F(PosixFilesTest, WritesRemoveWhatAKilledOneLeftAndNothingElse)
{
    const std::string uuid = "0F0F0F0F-0F0F-4F0F-8F0F-0F0F0F0F0F0F";
    const auto left = folder.write(".chimewell-" + uuid, "left");
    fs::create_directory(at / (".chimewell-1" + uuid.substr(1)));
    for (const std::string& name : {".chimewell-" + uuid + "0", ".chimewell-f" + uuid.substr(1),
                                    ".chimewell-kept-" + uuid, "x.chimewell-" + uuid})
        folder.write(name, "");
    ASSERT_TRUE(files.replace(at / "file", "text"));
    EXPECT_TRUE(fs::exists(left)); // may be in use
    for (const auto& entry : fs::directory_iterator(at))
        fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::seconds(62));
    ASSERT_TRUE(files.replace(at / "file", "text"));
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(folder.names().size(), 6U);
}

TEST_F(PosixFilesTest, MakesPrivateFoldersAlsoBehindALink)
{
    fs::create_directory_symlink("0", at / "link");
    EXPECT_TRUE(files.createFolders(at / "0/b/"));
    EXPECT_EQ(modeOf(at / "0"), mode_t{0700});
    EXPECT_TRUE(files.createFolders(at / "link/d"));
    EXPECT_EQ(files.kind(at / "link"), FileKind::folder);
    EXPECT_EQ(files.kind("/dev/null"), FileKind::other);
}

}
}
