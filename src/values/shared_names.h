// SPDX-License-Identifier: MIT
#pragma once

namespace chimewell {

// The names by which `chimewell` and `chimewell-hook` find each other. Both programs take them from here, and
// the build reads the first two for the files that it installs (cmake/shared_names.cmake).

/// The bus name that the application owns on Linux, and there also the name of its desktop entry and icon.
inline constexpr char applicationId[] = "app.chimewell.Chimewell";
/// The helper's program; a command in an agent's file that contains it is ours.
inline constexpr char helperName[] = "chimewell-hook";

/// Where the application answers on the bus (freedesktop.org, Desktop Entry 1.5, "D-Bus Activation").
inline constexpr char applicationObjectPath[] = "/app/chimewell/Chimewell";
inline constexpr char applicationInterface[] = "org.freedesktop.Application";
inline constexpr char openMethod[] = "Open";

/// The helper's first argument when Codex runs it, which knows one event only.
inline constexpr char codexNotifyCommand[] = "codex-notify";

/// The folder of the settings, below the user's folder for the data of applications.
inline constexpr char applicationFolderName[] = "Chimewell";
/// That folder for data on macOS, below the user's home.
inline constexpr char macApplicationSupport[] = "Library/Application Support";
/// Files in the application's folder. The first exists from when the user quits the application until the
/// user starts it again; the second is locked while the application runs (macOS).
inline constexpr char dormantMarkerName[] = "dormant";
inline constexpr char runningLockName[] = "running";

}
