// SPDX-License-Identifier: MIT
#pragma once

#include "harness/wait_until.h"
#include "support/environment_variable.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace chimewell::test {

/// Programs that are found before those of the system, and tell how they were started.
class ProgramFolder {
public:
    /// Notes its activation token, its working folder and its arguments, a line each.
    std::string add(const std::string& program)
    {
        return add(program,
                   "exec > \"$0.part\"\necho \"token=$XDG_ACTIVATION_TOKEN startup=$DESKTOP_STARTUP_ID\"\n"
                   "pwd\nprintf '%s\\n' \"$@\"\nmv \"$0.part\" \"$0.log\"\n");
    }
    std::string add(const std::string& program, const std::string& commands)
    {
        const auto file = folder_.write(program, "#!/bin/sh\n" + commands);
        ::chmod(file.c_str(), 0755);
        return file;
    }
    bool hasRun(const std::string& program) const
    {
        return std::filesystem::exists(folder_.path() / (program + ".log"));
    }
    /// What the program noted; it may run again.
    std::string report(const std::string& program) const
    {
        EXPECT_TRUE(waitUntil([&] { return hasRun(program); })) << program;
        std::string log = folder_.read(program + ".log");
        std::filesystem::remove(folder_.path() / (program + ".log"));
        return log;
    }
    std::string read(const std::string& file) const { return folder_.read(file); }

private:
    const TemporaryFolder folder_;
    const EnvironmentVariable path_{"PATH", folder_.path().string() + ":/usr/bin:/bin"};
};

}
