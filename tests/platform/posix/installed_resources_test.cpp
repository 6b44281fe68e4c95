// SPDX-License-Identifier: MIT
#include "platform/posix/installed_resources.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

TEST(InstalledResourcesTest, FindsAFileInTheFirstFolderThatHasIt)
{
    const TemporaryFolder folder;
    const auto helper = folder.write("libexec/chimewell-hook", "");
    folder.write("share/chimewell-hook", "");
    const auto sound = folder.write("share/Ping.wav", "");
    folder.write("share/chime/x", "");
    const InstalledResources resources(
        {folder.path() / "bin/../libexec", folder.path() / "none", folder.path() / "share"});

    EXPECT_EQ(resources.named("chimewell-hook"), helper); // in its shortest form
    EXPECT_EQ(resources.named("Ping.wav"), sound);
    EXPECT_EQ(resources.named("Ping"), std::nullopt);
    EXPECT_EQ(resources.named("chime"), std::nullopt); // a folder
}

}
}
