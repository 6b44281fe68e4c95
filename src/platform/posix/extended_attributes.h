// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

/// Gives the open file `to` the access control list and the extended attributes of the open file `from`, and
/// no other list than that. True where the file system knows no such thing; false with errno set when one of
/// them cannot be carried over.
bool copyExtendedAttributes(int from, int to);

}
