// SPDX-License-Identifier: MIT
#include "harness/private_session.h"

#include <unistd.h>

namespace chimewell::test {
namespace {

std::vector<std::string> harnessCommand(const std::vector<std::string>& programs)
{
    std::vector<std::string> command = {"/usr/bin/python3", "-B", CHIMEWELL_VIRTUAL_DESKTOP};
    command.insert(command.end(), programs.begin(), programs.end());
    return command;
}

}

PrivateSession::PrivateSession(const std::vector<std::string>& programs)
    : harness_(harnessCommand(programs), {.input = orders_.read.get(), .output = answers_.write.get()})
{
    orders_.read.close();
    answers_.write.close();
    for (;;) {
        const std::string line = readLine(answers_.read, pending_);
        if (line == "ready") return;
        const auto equals = line.find('=');
        if (equals == std::string::npos) {
            unavailable_ = line.empty() ? "the services did not start" : line;
            return;
        }
        variables_.emplace_back(line.substr(0, equals), line.substr(equals + 1));
    }
}

void PrivateSession::raise(const std::string& program, int signal)
{
    command("raise " + program + " " + std::to_string(signal));
}

void PrivateSession::offer(const std::string& busName, const std::string& program)
{
    command("offer " + busName + " " + program);
}

bool PrivateSession::command(const std::string& line)
{
    const std::string order = line + "\n";
    return write(orders_.write.get(), order.data(), order.size()) >= 0 &&
           readLine(answers_.read, pending_) == "done";
}

}
