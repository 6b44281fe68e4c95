// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

/// Gives the open file `to` the owner, group, mode, access control list and extended attributes of
/// the open file `from`. False with errno set when one of them cannot be carried over, because a
/// replacement without it could be readable by others than the original was. Labels that only the
/// system may set (security.*, trusted.*) are left to the system.
bool copyFileAttributes(int from, int to);

}
