// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

/// Opens the page of the running desktop's settings that is about banners: GNOME, KDE Plasma and Xfce have
/// one. Does nothing elsewhere, or where that program is not installed.
void openDesktopNotificationSettings();

}
