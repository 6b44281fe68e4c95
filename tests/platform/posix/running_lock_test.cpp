// SPDX-License-Identifier: MIT
#include "platform/posix/running_lock.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>

namespace chimewell::test {
namespace {

TEST(RunningLockTest, IsHeldByOneProcessUntilThatEndsHoweverItDoes)
{
    const TemporaryFolder folder;
    std::array<int, 2> pipe = {};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const pid_t other = ::fork();
    if (other == 0) {
        const auto lock = RunningLock::take(folder.path());
        const char said = lock ? 'y' : 'n';
        if (::write(pipe[1], &said, 1) == 1) ::pause();
        ::_exit(1);
    }
    char said = 0;
    ASSERT_EQ(::read(pipe[0], &said, 1), 1);
    EXPECT_EQ(said, 'y');
    EXPECT_FALSE(RunningLock::take(folder.path()));

    ::kill(other, SIGKILL);
    ::waitpid(other, nullptr, 0);
    EXPECT_TRUE(RunningLock::take(folder.path()));
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(RunningLockTest, CannotBeTakenWhereNoFileCanBe)
{
    const TemporaryFolder folder;
    EXPECT_FALSE(RunningLock::take(folder.path() / "missing"));
}

}
}
