// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace chimewell {

/// Owns an open descriptor, or none (-1).
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor = -1) : descriptor_(descriptor) {}
    FileDescriptor(FileDescriptor&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    ~FileDescriptor()
    {
        if (isOpen()) ::close(descriptor_);
    }

    bool isOpen() const { return descriptor_ >= 0; }
    int get() const { return descriptor_; }
    /// Closes now; false with errno set when the system reports that written bytes were lost.
    bool close() { return ::close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

}
