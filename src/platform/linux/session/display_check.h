// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

/// Whether one of the displays that Qt would show windows on can be opened: those that QT_QPA_PLATFORM names,
/// or the session's own. Qt itself aborts the process where none can.
bool canOpenDisplay();

}
