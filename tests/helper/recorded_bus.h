// SPDX-License-Identifier: MIT
#pragma once

#include "harness/private_session.h"
#include "support/temporary_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace chimewell::test {

/// A session bus whose recorder (open_recorder.cpp) takes the place of the application.
class RecordedBus : public PrivateSession {
public:
    RecordedBus();

    /// What a hook needs to find this bus, and a home folder of its own.
    Environment environment() const;
    /// The command that starts the recorder, for `offer`.
    std::string recorder() const;
    /// Starts the recorder and waits until it owns the application's bus name.
    std::unique_ptr<ChildProcess> startRecorder();
    /// What the recorder tells next: a URL that was opened, or "ready"; empty after thirty seconds.
    std::string nextRecord() { return readLine(records_, pending_); }
    /// Whether the recorder has told something that was not read yet.
    bool hasRecord() const;

    const TemporaryFolder folder;

private:
    FileDescriptor records_;
    std::string pending_;
};

/// Runs the helper as an agent does, without any variables but those given.
Finished runHook(std::vector<std::string> arguments, const Environment& environment, const Input& input = {});

}
