// SPDX-License-Identifier: MIT
#include "platform/posix/posix_files.h"
#include "support/temporary_folder.h"
#include "values/texts.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace chimewell::test {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& path)
{
    struct stat status = {};
    ::lstat(path.c_str(), &status);
    return status.st_mode & 07777;
}

class PosixFilesTest : public ::testing::Test {
protected:
    TemporaryFolder folder;
    PosixFiles files;
};

TEST_F(PosixFilesTest, ReadsWhatWasWrittenByteForByte)
{
    for (const std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 200000U}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 31 >> 3);
        ASSERT_TRUE(files.replace(folder.path() / "file", content));
        EXPECT_EQ(files.read(folder.path() / "file"), content) << size;
    }
}

TEST_F(PosixFilesTest, ReadsNothingButRegularFilesOfReasonableSizeAndNeverWaits)
{
    const fs::path at = folder.path();
    ASSERT_EQ(::mkfifo((at / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop", (at / "loop").c_str()), 0);
    ASSERT_EQ(::symlink("nowhere", (at / "dangling").c_str()), 0);
    ASSERT_EQ(::truncate(folder.write("limit", "").c_str(), PosixFiles::maximumSize), 0);
    ASSERT_EQ(::truncate(folder.write("large", "").c_str(), PosixFiles::maximumSize + 1), 0);
    folder.write("file", "");

    struct Case {
        fs::path path;
        bool missing;
    };
    for (const auto& [path, missing] :
         {Case{at / "pipe", false}, Case{at, false}, Case{"/dev/zero", false}, Case{at / "loop", false},
          Case{at / "large", false}, Case{at / "file/below", false}, Case{at / std::string(300, 'x'), false},
          Case{at / "dangling", true}, Case{at / "none", true}, Case{at / "no/folder", true}}) {
        const auto content = files.read(path);
        ASSERT_FALSE(content) << path;
        EXPECT_EQ(content.error().missing, missing) << path;
        EXPECT_NE(content.error().description, Phrase()) << path;
    }
    EXPECT_TRUE(files.read(at / "limit"));
}

TEST_F(PosixFilesTest, ReplacesTheEndOfAChainOfLinksAndKeepsTheLinks)
{
    const fs::path at = folder.path();
    fs::create_directories(at / "real/deep");
    folder.write("real/deep/file", "old");
    ASSERT_EQ(::symlink("../real/deep/file", (at / "real/second").c_str()), 0);
    fs::create_symlink(at / "real", at / "linked folder");
    fs::create_symlink("linked folder/second", at / "first");

    ASSERT_TRUE(files.replace(at / "first", "new"));
    EXPECT_EQ(folder.read("real/deep/file"), "new");
    EXPECT_TRUE(fs::is_symlink(at / "first"));
    EXPECT_TRUE(fs::is_symlink(at / "real/second"));
    EXPECT_EQ(folder.names("real/deep"), std::vector<std::string>{"file"});

    ASSERT_EQ(::symlink("real/fresh", (at / "dangling").c_str()), 0);
    ASSERT_TRUE(files.replace(at / "dangling", "made"));
    EXPECT_EQ(folder.read("real/fresh"), "made");
    EXPECT_TRUE(fs::is_symlink(at / "dangling"));
}

TEST_F(PosixFilesTest, LeavesEverythingAsItWasWhenItCannotReplace)
{
    const fs::path at = folder.path();
    folder.write("file", "old");
    fs::create_directory(at / "folder");
    ASSERT_EQ(::mkfifo((at / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(::symlink("loop", (at / "loop").c_str()), 0);
    ASSERT_EQ(::symlink("gone/file", (at / "astray").c_str()), 0);
    const auto before = folder.names();

    for (const fs::path& path :
         {at / "folder", at / "folder/", at / "pipe", at / "loop", at / "astray", at / "file/below",
          at / "gone/file", at / std::string(300, 'x'), fs::path()}) {
        const auto replaced = files.replace(path, "new");
        ASSERT_FALSE(replaced) << path;
        EXPECT_NE(replaced.error().description, Phrase()) << path;
        EXPECT_EQ(folder.names(), before) << path;
        EXPECT_TRUE(folder.names("folder").empty()) << path;
    }
    EXPECT_EQ(folder.read("file"), "old");
}

TEST_F(PosixFilesTest, AWriteThatEndsTooSoonLeavesTheOldFileAndNoLitter)
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

    ASSERT_FALSE(replaced);
    EXPECT_FALSE(replaced.error().missing);
    EXPECT_EQ(folder.read("file"), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
}

TEST_F(PosixFilesTest, ExchangesOnlyWhatTheCallerKnows)
{
    const fs::path file = folder.write("file", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0640), 0);
    for (const auto& known : {std::optional<std::string>("other"), std::optional<std::string>()}) {
        const auto exchanged = files.exchange(file, known, "new");
        ASSERT_FALSE(exchanged);
        EXPECT_TRUE(exchanged.error().changed);
        EXPECT_EQ(folder.read("file"), "old");
    }
    ASSERT_TRUE(files.exchange(file, "old", "new"));
    EXPECT_EQ(folder.read("file"), "new");
    EXPECT_EQ(modeOf(file), mode_t{0640});

    fs::create_symlink("file", folder.path() / "link");
    ASSERT_TRUE(files.exchange(folder.path() / "link", "new", "newer"));
    EXPECT_EQ(folder.read("file"), "newer");
    EXPECT_TRUE(files.exchange(folder.path() / "gone", "old", "new").error().changed);
    ASSERT_TRUE(files.exchange(folder.path() / "fresh", std::nullopt, "made"));
    EXPECT_EQ(folder.read("fresh"), "made");
    const auto folderInTheWay = files.exchange(folder.path(), "old", "new");
    EXPECT_FALSE(folderInTheWay.error().changed);
    EXPECT_EQ(folder.names().size(), 3u); // no litter
}

#ifdef __linux__
TEST_F(PosixFilesTest, NeitherReadsNorExchangesWhatSomebodyWritesInto)
{
    const fs::path file = folder.write("file", "old");
    std::ofstream writer(file, std::ios::app);
    EXPECT_EQ(files.read(file).error().description, texts::beingWritten);
    EXPECT_TRUE(files.exchange(file, "old", "new").error().changed);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
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
    fs::create_directory(folder.path() / (".chimewell-1" + uuid.substr(1)));
    for (const std::string& name : {".chimewell-" + uuid + "0", ".chimewell-f" + uuid.substr(1),
                                    ".chimewell-kept-" + uuid, "x.chimewell-" + uuid})
        folder.write(name, "");
    ASSERT_TRUE(files.replace(folder.path() / "file", "text"));
    EXPECT_TRUE(fs::exists(left)); // somebody may be at work with it
    for (const auto& entry : fs::directory_iterator(folder.path()))
        fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::seconds(62));
    ASSERT_TRUE(files.replace(folder.path() / "file", "text"));
    EXPECT_FALSE(fs::exists(left));
    EXPECT_EQ(folder.names().size(), 6U);
}

TEST_F(PosixFilesTest, TakesNoPathForTheOneBeforeItsNullCharacter)
{
    const fs::path file = folder.write("file", "old");
    const fs::path odd = file.native() + std::string("\0x", 2);
    EXPECT_FALSE(files.read(odd));
    EXPECT_FALSE(files.replace(odd, "new"));
    EXPECT_FALSE(files.exchange(odd, "old", "new"));
    EXPECT_FALSE(files.writeCopy(odd, "new", file));
    EXPECT_FALSE(files.remove(odd));
    EXPECT_FALSE(files.kind(odd));
    EXPECT_FALSE(files.createFolders(folder.path().native() + std::string("/a\0x", 4)));
    EXPECT_FALSE(files.list(folder.path().native() + std::string("\0x", 2)));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});
    EXPECT_EQ(folder.read("file"), "old");
}

TEST_F(PosixFilesTest, ACopyIsAsPrivateAsItsOriginal)
{
    const fs::path original = folder.write("original", "text");
    for (const mode_t mode : {0600U, 0644U}) {
        ASSERT_EQ(::chmod(original.c_str(), mode), 0);
        ASSERT_TRUE(files.writeCopy(folder.path() / "copy", "text", original));
        EXPECT_EQ(modeOf(folder.path() / "copy"), mode);
    }
    EXPECT_FALSE(files.writeCopy(folder.path() / "other", "text", folder.path() / "gone"));
    auto names = files.list(folder.path()).value_or(std::vector<std::string>());
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"copy", "original"}));
    EXPECT_TRUE(files.list(folder.path() / "gone").error().missing);
}

TEST_F(PosixFilesTest, MakesFoldersRemovesFilesAndTellsKinds)
{
    const fs::path at = folder.path();
    folder.write("file", "");
    fs::create_directory_symlink("a", at / "link");
    ASSERT_TRUE(files.createFolders(at / "a/b/c"));
    EXPECT_TRUE(files.createFolders(at / "a/b/c/"));
    EXPECT_TRUE(files.createFolders(at / "link/d"));
    EXPECT_EQ(modeOf(at / "a"), mode_t{0700});
    EXPECT_FALSE(files.createFolders(at / "file"));
    EXPECT_FALSE(files.createFolders(at / "file/below"));
    std::atomic<int> failures = 0;
    const auto makeMany = [&] {
        for (int i = 0; i < 500; ++i)
            if (!PosixFiles().createFolders(at / std::to_string(i) / "b")) ++failures;
    };
    {
        const std::jthread other(makeMany);
        makeMany();
    }
    EXPECT_EQ(failures, 0);

    EXPECT_EQ(files.kind(at / "link"), FileKind::folder);
    EXPECT_EQ(files.kind(at / "file"), FileKind::regular);
    EXPECT_EQ(files.kind("/dev/null"), FileKind::other);
    EXPECT_EQ(files.kind(at / "none"), std::nullopt);

    EXPECT_TRUE(files.remove(at / "file"));
    EXPECT_TRUE(files.remove(at / "file").error().missing);
    EXPECT_FALSE(files.remove(at / "a").error().missing);
}

}
}
