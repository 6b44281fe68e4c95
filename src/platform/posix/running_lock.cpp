// SPDX-License-Identifier: MIT
#include "platform/posix/running_lock.h"

#include "values/shared_names.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chimewell {

std::optional<RunningLock> RunningLock::take(const std::filesystem::path& folder)
{
    FileDescriptor file(
        ::open((folder / runningLockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
    struct flock whole = {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (!file.isOpen() || ::fcntl(file.get(), F_SETLK, &whole) != 0) return std::nullopt;
    return RunningLock(std::move(file));
}

}
