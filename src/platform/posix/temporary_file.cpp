// SPDX-License-Identifier: MIT
#include "platform/posix/temporary_file.h"

#include "platform/posix/file_calls.h"
#include "platform/posix/random_device.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <system_error>
#include <utility>

namespace chimewell {

namespace {

// Short, and without the target's name, which may be as long as a name can be.
constexpr std::string_view prefix = ".chimewell-";
constexpr std::string_view keptPrefix = ".chimewell-kept-";
constexpr std::chrono::seconds longestUse = std::chrono::minutes(1);

bool isTemporaryName(std::string_view name)
{
    constexpr std::size_t uuidLength = 36;
    return name.size() == prefix.size() + uuidLength && name.starts_with(prefix) &&
           name.find_first_not_of("0123456789ABCDEF-", prefix.size()) == std::string_view::npos;
}

bool isAbandoned(const struct stat& status)
{
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           modificationTime(status).tv_sec < std::time(nullptr) - longestUse.count();
}

}

TemporaryFile::TemporaryFile(int folder, FileDescriptor file, std::string name)
    : folder_(folder),
      file_(std::move(file)),
      name_(std::move(name))
{
}

TemporaryFile::TemporaryFile(TemporaryFile&& other) noexcept
    : folder_(other.folder_),
      file_(std::move(other.file_)),
      name_(std::exchange(other.name_, {}))
{
}

TemporaryFile::~TemporaryFile()
{
    if (name_.empty()) return;
    const int error = errno; // unlinkat may change it
    ::unlinkat(folder_, name_.c_str(), 0);
    errno = error;
}

std::optional<TemporaryFile> TemporaryFile::create(int folder)
{
    std::string name = std::string(prefix) + RandomDevice().uuid();
    FileDescriptor file(::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                 S_IRUSR | S_IWUSR));
    if (!file.isOpen()) return std::nullopt;
    return TemporaryFile(folder, std::move(file), std::move(name));
}

bool TemporaryFile::write(std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(file_.get(), content.data(), content.size());
        if (written >= 0)
            content.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            return false;
    }
    return true;
}

bool TemporaryFile::finish()
{
    return flush(file_.get()) && file_.close();
}

bool TemporaryFile::rename(const std::string& name)
{
    if (::renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) return false;
    name_.clear();
    return true;
}

bool TemporaryFile::renameToFree(const std::string& name)
{
    if (chimewell::renameToFree(folder_, name_.c_str(), name.c_str())) {
        name_.clear();
        return true;
    }
    if (errno != ENOTSUP) return false;
    // The file system does not support this: a file made between these two calls is replaced.
    struct stat status = {};
    if (::fstatat(folder_, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) errno = EEXIST;
    return errno == ENOENT && rename(name);
}

bool TemporaryFile::swap(const std::string& name)
{
    if (!name_.starts_with(keptPrefix)) {
        std::string kept = std::string(keptPrefix) + name_.substr(prefix.size());
        if (::renameat(folder_, name_.c_str(), folder_, kept.c_str()) != 0) return false;
        name_ = std::move(kept);
    }
    return exchangeNames(folder_, name_.c_str(), name.c_str());
}

void removeAbandonedFiles(const std::filesystem::path& folder)
{
    std::error_code error; // what cannot be removed stays
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        struct stat status = {};
        if (isTemporaryName(entry->path().filename().native()) &&
            ::lstat(entry->path().c_str(), &status) == 0 && isAbandoned(status))
            ::unlink(entry->path().c_str());
    }
}

}
