// SPDX-License-Identifier: MIT
// fixed_sender SOCKET MESSAGES: takes the input, writes the file MESSAGES, greeting included, to the bus at
// SOCKET and waits for the answer to serial 3. The least that a program can do which reports an event to the
// bus.

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

int main(int argc, char** argv)
{
    static char buffer[65536];
    if (argc != 3) return 2;
    while (read(STDIN_FILENO, buffer, sizeof buffer) > 0) {
    }
    const int file = open(argv[2], O_RDONLY);
    const ssize_t size = read(file, buffer, sizeof buffer);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    std::strncpy(address.sun_path, argv[1], sizeof address.sun_path - 1);
    const int bus = socket(AF_UNIX, SOCK_STREAM, 0);
    if (size < 0 || connect(bus, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return 1;
    if (write(bus, buffer, static_cast<std::size_t>(size)) != size) return 1;
    constexpr char answer[] = {5, 1, 'u', 0, 3, 0, 0, 0}; // the header field "reply serial"
    for (std::size_t received = 0; received < sizeof buffer;) {
        const ssize_t count = read(bus, buffer + received, sizeof buffer - received);
        if (count <= 0) return 1;
        received += static_cast<std::size_t>(count);
        if (memmem(buffer, received, answer, sizeof answer) != nullptr) return 0;
    }
    return 1;
}
