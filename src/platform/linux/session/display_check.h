// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

/// Whether Qt can open one of the displays it would use: those that QT_QPA_PLATFORM names, or the session's
/// own. Without one, QApplication aborts the process.
bool canOpenDisplay();

}
