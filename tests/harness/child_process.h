// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

#include <string>
#include <vector>

namespace chimewell::test {

/// A program beside the test, which ends with this object.
class ChildProcess : public QProcess {
public:
    /// `command` begins with the program, which is looked for as a shell does.
    explicit ChildProcess(const std::vector<std::string>& command,
                          ProcessChannelMode channels = ForwardedChannels);
    /// Asks it to end, and kills it after ten seconds.
    ~ChildProcess() override;

    void raise(int signal) const;
};

struct Finished {
    int status = -1;    ///< -1 if it did not end by itself within thirty seconds.
    std::string output; ///< On both streams.
};

/// Runs a program to its end.
Finished run(const std::vector<std::string>& command);

}
