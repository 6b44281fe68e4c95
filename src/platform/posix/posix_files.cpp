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
#include <utility>

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
std::expected<FileDescriptor, FileError> openRegular(int folder, const std::filesystem::path& path)
{
    FileDescriptor file(::openat(folder, path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return failure(errno);
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) return failure(errno);
    if (!S_ISREG(status.st_mode)) return notRegular(status.st_mode);
    return file;
}

std::expected<std::string, FileError> readAll(const FileDescriptor& file)
{
    std::string content;
    std::size_t used = 0;
    while (true) {
        // One byte past the limit tells a file of exactly that size from one that grew beyond it.
        if (used > PosixFiles::maximumSize) return failure(EFBIG);
        if (used == content.size())
            content.resize(std::min(PosixFiles::maximumSize + 1, std::max(used * 2, std::size_t{16384})));
        const ssize_t count = ::read(file.get(), content.data() + used, content.size() - used);
        if (count == 0) break;
        if (count > 0)
            used += static_cast<std::size_t>(count);
        else if (errno != EINTR)
            return failure(errno);
    }
    content.resize(used);
    return content;
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

/// New content beside its target, ready to take its place.
struct Replacement {
    FileDescriptor
        folder;       ///< One open folder for all steps: they stay together even if it is moved meanwhile.
    std::string name; ///< Of the target within it.
    TemporaryFile temporary;

    /// Brings the new name to the disk. The file is already the new one, so no failure is left to report.
    void settle() const { ::fsync(folder.get()); }
};

/// The attributes are those of `original` if that is given, else of what stands at the target.
std::expected<Replacement, FileError> prepare(const std::filesystem::path& file, std::string_view content,
                                              const std::filesystem::path& original)
{
    const auto target = followLinks(file);
    if (!target) return std::unexpected(target.error());
    std::string name = target->filename();
    if (name.empty()) return failure(EISDIR);
    const std::filesystem::path parent = target->has_parent_path() ? target->parent_path() : ".";
    FileDescriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) return failure(errno);

    auto temporary = TemporaryFile::create(folder.get());
    if (!temporary) return failure(errno);
    if (!temporary->write(content)) return failure(errno);
    if (original.empty()) {
        if (auto adopted = adoptAttributes(folder.get(), name, *temporary); !adopted)
            return std::unexpected(adopted.error());
    } else {
        const auto opened = openRegular(AT_FDCWD, original);
        if (!opened) return std::unexpected(opened.error());
        if (!copyFileAttributes(opened->get(), temporary->descriptor())) return failure(errno);
    }
    if (!temporary->finish()) return failure(errno);
    return Replacement{std::move(folder), std::move(name), std::move(*temporary)};
}

/// Whatever stands at the target is replaced.
std::expected<void, FileError> put(const std::filesystem::path& file, std::string_view content,
                                   const std::filesystem::path& original)
{
    auto replacement = prepare(file, content, original);
    if (!replacement) return std::unexpected(replacement.error());
    if (!replacement->temporary.rename(replacement->name)) return failure(errno);
    replacement->settle();
    return {};
}

}

std::expected<std::string, FileError> PosixFiles::read(const std::filesystem::path& file)
{
    const auto opened = openRegular(AT_FDCWD, file);
    if (!opened) return std::unexpected(opened.error());
    return readAll(*opened);
}

std::expected<void, FileError> PosixFiles::replace(const std::filesystem::path& file,
                                                   std::string_view content)
{
    return put(file, content, {});
}

std::expected<void, FileError> PosixFiles::writeCopy(const std::filesystem::path& copy,
                                                     std::string_view content,
                                                     const std::filesystem::path& original)
{
    return put(copy, content, original);
}

std::expected<void, ExchangeError> PosixFiles::exchange(const std::filesystem::path& file,
                                                        const std::optional<std::string>& expected,
                                                        std::string_view content)
{
    const auto failed = [](const std::string& description) {
        return std::unexpected(ExchangeError{.changed = false, .description = description});
    };
    const std::unexpected changed(
        ExchangeError{.changed = true, .description = "The file was changed by another program"});

    auto replacement = prepare(file, content, {});
    if (!replacement) return failed(replacement.error().description);
    auto& [folder, name, temporary] = *replacement;

    if (!expected) {
        if (!temporary.renameToFree(name))
            return errno == EEXIST ? changed : failed(failure(errno).error().description);
        replacement->settle();
        return {};
    }
    const auto holds = [&](const std::string& entry, std::string_view wanted) {
        const auto opened = openRegular(folder.get(), entry);
        const auto present = opened ? readAll(*opened) : std::unexpected(opened.error());
        return present && *present == wanted;
    };
    if (!holds(name, *expected)) return changed;
    if (!temporary.swap(name)) {
        if (errno == ENOENT) return changed;
        if (errno != EINVAL && errno != ENOSYS) return failed(failure(errno).error().description);
        // A file system that cannot swap: what is left is the moment since the look above.
        if (!temporary.rename(name)) return failed(failure(errno).error().description);
    } else if (!holds(temporary.name(), *expected)) {
        // Somebody wrote in between. That goes back, unless even more was written meanwhile, which then comes
        // first.
        const bool isBack =
            temporary.swap(name) && (holds(temporary.name(), content) || temporary.swap(name));
        if (!isBack) temporary.keep(); // litter, but it is the only copy of somebody's text
        return changed;
    }
    replacement->settle();
    return {};
}

std::expected<std::vector<std::string>, FileError> PosixFiles::list(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        names.push_back(entry->path().filename());
    if (error) return failure(error.value());
    return names;
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
