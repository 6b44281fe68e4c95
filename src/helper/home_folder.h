// SPDX-License-Identifier: MIT
#pragma once

#include "helper/environment.h"

#include <string>

namespace chimewell {

/// The folder that the application takes for the user's home, too: HOME, else what the file `users` says of
/// the user, else "/". The file is read as it is, because the system's own functions load shared libraries: a
/// user that only a directory service knows is not found.
std::string homeFolder(const Environment& environment, unsigned int userId,
                       const char* users = "/etc/passwd");

}
