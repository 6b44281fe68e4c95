// SPDX-License-Identifier: MIT
#include "platform/posix/posix_files.h"

#include "platform/posix/file_attributes.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/temporary_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace chimewell {

namespace {

constexpr int maximumLinks = 40; // what Linux itself follows

std::unexpected<FileError> failure(int error)
{
    return std::unexpected(
        FileError{.missing = error == ENOENT, .description = std::generic_category().message(error)});
}

std::unexpected<FileError> notRegular(mode_t mode)
{
    if (S_ISDIR(mode)) return failure(EISDIR);
    return std::unexpected(FileError{.missing = false, .description = "Not a regular file"});
}

/// Open for reading and proven to be a regular file. Never waits: a pipe without a writer opens too.
std::expected<FileDescriptor, FileError> openRegular(const std::filesystem::path& path)
{
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return failure(errno);
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) return failure(errno);
    if (!S_ISREG(status.st_mode)) return notRegular(status.st_mode);
    return file;
}

/// The path behind the last link, whether something stands there or not.
std::expected<std::filesystem::path, FileError> followLinks(std::filesystem::path path)
{
    for (int links = 0; links < maximumLinks; ++links) {
        struct stat status = {};
        if (::lstat(path.c_str(), &status) != 0 && errno != ENOENT) return failure(errno);
        if (!S_ISLNK(status.st_mode)) return path;
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(path, error);
        if (error) return failure(error.value());
        path = path.parent_path() / target; // an absolute target replaces the whole
    }
    return failure(ELOOP);
}

/// Makes `to` as private, and owned by the same, as the file it will replace, if there is one.
std::expected<void, FileError> adoptAttributes(int folder, const std::string& name, const TemporaryFile& to)
{
    struct stat status = {};
    if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) return {};
        return failure(errno);
    }
    if (!S_ISREG(status.st_mode)) return notRegular(status.st_mode);
    const FileDescriptor original(
        ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!original.isOpen()) return failure(errno);
    if (!copyFileAttributes(original.get(), to.descriptor())) return failure(errno);
    return {};
}

}

std::expected<std::string, FileError> PosixFiles::read(const std::filesystem::path& file)
{
    const auto opened = openRegular(file);
    if (!opened) return std::unexpected(opened.error());
    std::string content;
    std::size_t used = 0;
    while (true) {
        // One byte past the limit tells a file of exactly that size from one that grew beyond it.
        if (used > maximumSize) return failure(EFBIG);
        if (used == content.size())
            content.resize(std::min(maximumSize + 1, std::max(used * 2, std::size_t{16384})));
        const ssize_t count = ::read(opened->get(), content.data() + used, content.size() - used);
        if (count == 0) break;
        if (count > 0)
            used += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return failure(errno);
    }
    content.resize(used);
    return content;
}

std::expected<void, FileError> PosixFiles::replace(const std::filesystem::path& file,
                                                   std::string_view content)
{
    const auto target = followLinks(file);
    if (!target) return std::unexpected(target.error());
    const std::string name = target->filename();
    if (name.empty()) return failure(EISDIR);
    // One open folder for all steps: they stay together even if the folder is moved meanwhile.
    const std::filesystem::path parent = target->has_parent_path() ? target->parent_path() : ".";
    const FileDescriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) return failure(errno);

    auto temporary = TemporaryFile::create(folder.get());
    if (!temporary) return failure(errno);
    if (!temporary->write(content)) return failure(errno);
    if (auto adopted = adoptAttributes(folder.get(), name, *temporary); !adopted) return adopted;
    if (!temporary->finish() || !temporary->rename(name)) return failure(errno);
    // The file is already the new one, so there is no failure left to report.
    ::fsync(folder.get());
    return {};
}

std::expected<void, FileError> PosixFiles::createFolders(const std::filesystem::path& folder)
{
    if (kind(folder) == FileKind::folder) return {};
    if (::mkdir(folder.c_str(), S_IRWXU) == 0) return {};
    if (errno != ENOENT || !folder.has_relative_path()) return failure(errno);
    if (auto parents = createFolders(folder.parent_path()); !parents) return parents;
    if (::mkdir(folder.c_str(), S_IRWXU) == 0 || kind(folder) == FileKind::folder) return {};
    return failure(errno);
}

std::expected<void, FileError> PosixFiles::remove(const std::filesystem::path& file)
{
    if (::unlink(file.c_str()) != 0) return failure(errno);
    return {};
}

std::optional<FileKind> PosixFiles::kind(const std::filesystem::path& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    if (S_ISREG(status.st_mode)) return FileKind::regular;
    return S_ISDIR(status.st_mode) ? FileKind::folder : FileKind::other;
}

}
