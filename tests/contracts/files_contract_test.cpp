// SPDX-License-Identifier: MIT
// What everybody expects of AgentFiles, of the system's files and of the fake ones.
#include "platform/posix/posix_files.h"
#include "support/memory_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test {
namespace {

using Path = std::filesystem::path;

/// A disk with a file and two folders on it: a real one, or the fake.
class FilesContract : public ::testing::TestWithParam<bool> {
protected:
    FilesContract()
    {
        EXPECT_TRUE(files.createFolders(at("folder/sub")));
        EXPECT_TRUE(files.replace(at("file"), "old"));
    }
    Path at(const char* path) const { return folder.path() / path; }
    std::vector<std::string> names(const char* ofFolder = "") const
    {
        auto list = files.list(*ofFolder ? at(ofFolder) : folder.path())
                        .value_or(std::vector<std::string>{"no list"});
        std::ranges::sort(list);
        return list;
    }

private:
    const TemporaryFolder folder;
    PosixFiles real;
    MemoryFiles fake;

protected:
    AgentFiles& files = GetParam() ? static_cast<AgentFiles&>(real) : fake;
};

INSTANTIATE_TEST_SUITE_P(Disks, FilesContract, ::testing::Bool(),
                         [](const auto& isReal) { return isReal.param ? "real" : "fake"; });

using Names = std::vector<std::string>;

TEST_P(FilesContract, ReadsWhatWasWrittenByteForByte)
{
    for (const std::size_t size : {0U, 1U, 16383U, 16384U, 16385U, 200000U}) {
        std::string content(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            content[i] = static_cast<char>(i * 31 >> 3);
        ASSERT_TRUE(files.replace(at("file"), content));
        EXPECT_EQ(files.read(at("file")), content) << size;
    }
}

TEST_P(FilesContract, TellsWhatIsMissingFromWhatFails)
{
    for (const auto& [path, missing] :
         {std::pair{"none", true}, {"no/folder", true}, {"file/below", false}, {"folder", false}}) {
        const auto content = files.read(at(path));
        ASSERT_FALSE(content) << path;
        EXPECT_EQ(content.error().missing, missing) << path;
        EXPECT_NE(content.error().description, Phrase()) << path;
        EXPECT_EQ(files.remove(at(path)).error().missing, missing) << path;
    }
    for (const auto& [path, missing] : {std::pair{"none", true}, {"file/below", false}, {"file", false}})
        EXPECT_EQ(files.list(at(path)).error().missing, missing) << path;
}

TEST_P(FilesContract, LeavesEverythingAsItWasWhenItCannotWrite)
{
    for (const char* path : {"no/folder", "file/below", "folder"}) {
        EXPECT_FALSE(files.replace(at(path), "new")) << path;
        EXPECT_FALSE(files.writeCopy(at(path), "new", at("file"))) << path;
        const auto exchanged = files.exchange(at(path), std::nullopt, "new");
        ASSERT_FALSE(exchanged) << path;
        EXPECT_FALSE(exchanged.error().changed) << path;
    }
    EXPECT_EQ(names(), (Names{"file", "folder"}));
    EXPECT_EQ(names("folder"), Names{"sub"});
    EXPECT_EQ(files.read(at("file")), "old");
}

TEST_P(FilesContract, ExchangesOnlyWhatTheCallerKnows)
{
    const auto file = at("file");
    for (const auto& known : {std::optional<std::string>("other"), std::optional<std::string>()}) {
        EXPECT_TRUE(files.exchange(file, known, "new").error().changed);
        EXPECT_EQ(files.read(file), "old");
    }
    EXPECT_TRUE(files.exchange(file, "old", "new"));
    EXPECT_EQ(files.read(file), "new");
    EXPECT_TRUE(files.exchange(at("gone"), "old", "new").error().changed);
    EXPECT_TRUE(files.exchange(at("fresh"), std::nullopt, "made"));
    EXPECT_EQ(files.read(at("fresh")), "made");
    EXPECT_FALSE(files.exchange(at("folder"), "old", "new").error().changed);
    EXPECT_EQ(names(), (Names{"file", "folder", "fresh"}));
}

TEST_P(FilesContract, CopiesOnlyWithAnOriginal)
{
    EXPECT_TRUE(files.writeCopy(at("folder/copy"), "text", at("file")));
    EXPECT_EQ(files.read(at("folder/copy")), "text");
    EXPECT_FALSE(files.writeCopy(at("other"), "text", at("gone")));
    EXPECT_EQ(names(), (Names{"file", "folder"}));
    EXPECT_EQ(names("folder"), (Names{"copy", "sub"}));
}

TEST_P(FilesContract, MakesFoldersRemovesFilesAndTellsKinds)
{
    EXPECT_TRUE(files.createFolders(at("folder/sub")));
    EXPECT_FALSE(files.createFolders(at("file")));
    EXPECT_FALSE(files.createFolders(at("file/below")));
    EXPECT_EQ(files.kind(at("folder")), FileKind::folder);
    EXPECT_EQ(files.kind(at("file")), FileKind::regular);
    EXPECT_EQ(files.kind(at("none")), std::nullopt);
    EXPECT_TRUE(files.remove(at("file")));
    EXPECT_EQ(names(), Names{"folder"});
}

}
}
