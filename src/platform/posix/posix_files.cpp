// SPDX-License-Identifier: MIT
#include "platform/posix/posix_files.h"

#include "platform/posix/file_calls.h"
#include "platform/posix/file_descriptor.h"
#include "platform/posix/temporary_file.h"
#include "values/texts.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

namespace chimewell {

namespace {

namespace fs = std::filesystem;
template<class T>
using Result = std::expected<T, FileError>;
using Exchange = std::expected<void, ExchangeError>;

constexpr int maximumLinks = 40; // what Linux itself follows

// How long we wait for a program that writes into a file without replacing it, and how often we look.
constexpr std::chrono::milliseconds maxWait{40};
constexpr std::chrono::milliseconds betweenLooks{1};

std::unexpected<FileError> refused(Phrase reason)
{
    return std::unexpected(FileError{.missing = false, .description = std::move(reason)});
}

std::unexpected<FileError> failure(int error)
{
    return refused(std::generic_category().message(error));
}

/// For calls that take a path: only those can report that nothing is there.
std::unexpected<FileError> failureAtPath(int error)
{
    auto failed = failure(error);
    failed.error().missing = error == ENOENT;
    return failed;
}

/// The system reads such a path only up to the NUL character.
bool namesAnotherFile(const fs::path& path)
{
    return path.native().contains('\0');
}

std::unexpected<FileError> notRegular(mode_t mode)
{
    return S_ISDIR(mode) ? failure(EISDIR) : refused(texts::notARegularFile);
}

/// A regular file, open for reading. Never waits, not even for a pipe without a writer.
Result<FileDescriptor> openRegular(int folder, const fs::path& path)
{
    if (namesAnotherFile(path)) return failure(EINVAL);
    FileDescriptor file(::openat(folder, path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) return failureAtPath(errno);
    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) return failure(errno);
    if (!S_ISREG(status.st_mode)) return notRegular(status.st_mode);
    return file;
}

Result<std::string> readAll(const FileDescriptor& file)
{
    std::string content;
    std::size_t used = 0;
    while (true) {
        // Reading one byte more than the limit shows whether the file is larger.
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

bool isSameState(const struct stat& a, const struct stat& b)
{
    const timespec& timeOfA = modificationTime(a);
    const timespec& timeOfB = modificationTime(b);
    return a.st_size == b.st_size && timeOfA.tv_sec == timeOfB.tv_sec && timeOfA.tv_nsec == timeOfB.tv_nsec;
}

struct QuietRead {
    std::string content;
    bool isCertain = false; ///< No program has the file open for writing. Otherwise the system cannot tell.
};

/// Absent if a program is writing into the file: what was read may be half of one text and half of another.
Result<std::optional<QuietRead>> readQuietly(const FileDescriptor& file)
{
    const WriteBarrier barrier(file.get());
    if (barrier.writers() == Writers::some) return std::nullopt;
    struct stat before = {};
    struct stat after = {};
    if (::fstat(file.get(), &before) != 0) return failure(errno);
    auto content = readAll(file);
    if (!content) return std::unexpected(content.error());
    if (::fstat(file.get(), &after) != 0) return failure(errno);
    const Writers writers = barrier.writers();
    if (writers == Writers::some || !isSameState(before, after)) return std::nullopt;
    return QuietRead{.content = std::move(*content), .isCertain = writers == Writers::none};
}

/// The path that the last link leads to, whether it exists or not.
Result<fs::path> followLinks(fs::path path)
{
    for (int links = 0; links < maximumLinks; ++links) {
        struct stat status = {};
        if (::lstat(path.c_str(), &status) != 0 && errno != ENOENT) return failure(errno);
        if (!S_ISLNK(status.st_mode)) return path;
        std::error_code error;
        const fs::path target = fs::read_symlink(path, error);
        if (error) return failure(error.value());
        path = path.parent_path() / target; // an absolute target replaces the whole
    }
    return failure(ELOOP);
}

std::unexpected<FileError> leadsNowhere(const fs::path& end)
{
    return refused({texts::linkLeadsNowhere, {end.string()}});
}

/// Where the first broken link on the way to `path` leads; absent if none is broken.
std::optional<fs::path> deadEnd(const fs::path& path)
{
    fs::path way;
    for (const fs::path& part : path) {
        way /= part;
        struct stat status = {};
        if (::lstat(way.c_str(), &status) != 0) return std::nullopt;
        if (!S_ISLNK(status.st_mode) || ::stat(way.c_str(), &status) == 0) continue;
        const int error = errno;
        const auto end = followLinks(way);
        return error == ENOENT && end ? std::optional(*end) : std::nullopt;
    }
    return std::nullopt;
}

/// Gives the open file `to` the owner, group, mode, access control list and extended attributes of the open
/// file `from`. False with errno set when one of them cannot be copied: without it the replacement could be
/// readable by more users than the original.
bool copyFileAttributes(int from, int to)
{
    struct stat original = {};
    struct stat copy = {};
    if (::fstat(from, &original) != 0 || ::fstat(to, &copy) != 0) return false;
    const bool sameOwner = original.st_uid == copy.st_uid && original.st_gid == copy.st_gid;
    if (!sameOwner && ::fchown(to, original.st_uid, original.st_gid) != 0) return false;
    // The mode comes last: a new owner clears some of its bits, and an access control list rewrites it.
    return copyExtendedAttributes(from, to) && ::fchmod(to, original.st_mode & 07777) == 0;
}

/// Copies the attributes of the file that `to` will replace, if there is one.
Result<void> adoptAttributes(int folder, const std::string& name, const TemporaryFile& to)
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
    /// Opened once for all steps, which therefore happen in the same folder even if it is moved meanwhile.
    FileDescriptor folder;
    std::string name; ///< Of the target within it.
    TemporaryFile temporary;

    /// Writes the new name to the disk. The file has already been replaced, so a failure is not reported.
    void flushFolder() const { flush(folder.get()); }
};

/// The attributes are those of `original`, or if that is empty, of the file that is replaced.
Result<Replacement> prepare(const fs::path& file, std::string_view content, const fs::path& original)
{
    if (namesAnotherFile(file)) return failure(EINVAL);
    const auto target = followLinks(file);
    if (!target) return std::unexpected(target.error());
    std::string name = target->filename();
    if (name.empty()) return failure(EISDIR);
    const fs::path parent = target->has_parent_path() ? target->parent_path() : ".";
    FileDescriptor folder(::open(parent.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) {
        const int error = errno;
        if (error != ENOENT) return failure(error);
        if (*target != file) return leadsNowhere(parent);
        const auto end = deadEnd(parent);
        return end ? leadsNowhere(*end) : failure(error);
    }

    removeAbandonedFiles(parent);
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

/// Replaces the target, whatever it holds.
Result<void> put(const fs::path& file, std::string_view content, const fs::path& original)
{
    auto replacement = prepare(file, content, original);
    if (!replacement) return std::unexpected(replacement.error());
    if (!replacement->temporary.rename(replacement->name)) return failure(errno);
    replacement->flushFolder();
    return {};
}

std::unexpected<ExchangeError> failed(const FileError& error)
{
    return std::unexpected(ExchangeError{.changed = false, .description = error.description});
}

std::unexpected<ExchangeError> changed()
{
    return std::unexpected(ExchangeError{.changed = true, .description = texts::changedByAnother});
}

enum class Look { once, twiceIfUncertain };

/// Whether `name` is a file of exactly that content, and no program is writing into it.
Result<bool> holds(const FileDescriptor& folder, const std::string& name, std::string_view content,
                   Look look = Look::once)
{
    const auto opened = openRegular(folder.get(), name);
    if (!opened && opened.error().missing) return false;
    if (!opened) return std::unexpected(opened.error());
    const auto read = readQuietly(*opened);
    if (!read) return std::unexpected(read.error());
    const std::optional<QuietRead>& present = *read;
    if (!present || present->content != content) return false;
    if (present->isCertain || look == Look::once) return true;
    std::this_thread::sleep_for(maxWait);
    return holds(folder, name, content);
}

Exchange takeFreePlace(Replacement& with)
{
    if (with.temporary.renameToFree(with.name)) return {};
    return errno == EEXIST ? changed() : failed(failure(errno).error());
}

/// Undoes a swap with a file that another program had changed. If that fails, the other file stays under the
/// name of the temporary file, since it may be the only copy of what that program wrote.
Exchange swapBack(Replacement& with, std::string_view content, const Exchange& otherwise)
{
    auto& [folder, name, temporary] = with;
    if (temporary.swap(name)) {
        const auto isOurs = holds(folder, temporary.name(), content);
        if (isOurs && *isOurs) return otherwise;
        // The program wrote again since: its newest text comes first.
        if (isOurs && temporary.swap(name)) return otherwise;
    } else if (errno == ENOENT && temporary.renameToFree(name)) {
        return otherwise; // the program had removed ours
    }
    const std::string kept = temporary.name();
    temporary.keep();
    return failed({.description = {texts::changedAndKept, {kept}}});
}

Exchange exchangeKnown(Replacement& with, std::string_view expected, std::string_view content)
{
    auto& [folder, name, temporary] = with;
    const auto isKnown = holds(folder, name, expected);
    if (!isKnown) return failed(isKnown.error());
    if (!*isKnown) return changed();
    if (temporary.swap(name)) {
        const auto wasKnown = holds(folder, temporary.name(), expected, Look::twiceIfUncertain);
        if (!wasKnown) return swapBack(with, content, failed(wasKnown.error()));
        return *wasKnown ? Exchange() : swapBack(with, content, changed());
    }
    if (errno == ENOENT) return changed();
    if (errno != ENOTSUP) return failed(failure(errno).error());
    // The file system does not support swapping: a change made since the check above is lost.
    if (!temporary.rename(name)) return failed(failure(errno).error());
    return {};
}

}

Result<std::string> PosixFiles::read(const fs::path& file)
{
    const auto limit = std::chrono::steady_clock::now() + maxWait;
    while (true) {
        const auto opened = openRegular(AT_FDCWD, file);
        if (!opened) return std::unexpected(opened.error());
        auto read = readQuietly(*opened);
        if (!read) return std::unexpected(read.error());
        if (std::optional<QuietRead>& present = *read) return std::move(present->content);
        if (std::chrono::steady_clock::now() >= limit) return refused(texts::beingWritten);
        std::this_thread::sleep_for(betweenLooks);
    }
}

Result<void> PosixFiles::replace(const fs::path& file, std::string_view content)
{
    return put(file, content, {});
}

Result<void> PosixFiles::writeCopy(const fs::path& copy, std::string_view content, const fs::path& original)
{
    return put(copy, content, original);
}

Exchange PosixFiles::exchange(const fs::path& file, const std::optional<std::string>& expected,
                              std::string_view content)
{
    auto replacement = prepare(file, content, {});
    if (!replacement) return failed(replacement.error());
    if (const auto exchanged =
            expected ? exchangeKnown(*replacement, *expected, content) : takeFreePlace(*replacement);
        !exchanged)
        return exchanged;
    replacement->flushFolder();
    return {};
}

Result<std::vector<std::string>> PosixFiles::list(const fs::path& folder)
{
    if (namesAnotherFile(folder)) return failure(EINVAL);
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    if (error) return failureAtPath(error.value());
    std::vector<std::string> names;
    for (const fs::directory_iterator end; !error && entry != end; entry.increment(error))
        names.push_back(entry->path().filename());
    if (error) return failure(error.value());
    return names;
}

Result<void> PosixFiles::createFolders(const fs::path& folder)
{
    if (namesAnotherFile(folder)) return failure(EINVAL);
    if (kind(folder) == FileKind::folder) return {};
    const auto make = [&] { return ::mkdir(folder.c_str(), S_IRWXU) == 0 ? 0 : errno; };
    int error = make();
    if (error == ENOENT && folder.has_relative_path()) {
        if (auto parents = createFolders(folder.parent_path()); !parents) return parents;
        error = make();
    }
    // Somebody else may have made it in the same moment.
    if (error == 0 || (error == EEXIST && kind(folder) == FileKind::folder)) return {};
    if (const auto end = deadEnd(folder)) return leadsNowhere(*end);
    return failure(error);
}

Result<void> PosixFiles::remove(const fs::path& file)
{
    if (namesAnotherFile(file)) return failure(EINVAL);
    if (::unlink(file.c_str()) != 0) return failureAtPath(errno);
    return {};
}

std::optional<FileKind> PosixFiles::kind(const fs::path& path)
{
    struct stat status = {};
    if (namesAnotherFile(path) || ::stat(path.c_str(), &status) != 0) return std::nullopt;
    if (S_ISREG(status.st_mode)) return FileKind::regular;
    return S_ISDIR(status.st_mode) ? FileKind::folder : FileKind::other;
}

}
