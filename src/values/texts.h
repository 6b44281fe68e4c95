// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"

/// Every text that is shown or spoken. What is not among them is somebody else's: the user's, an agent's, the
/// system's.
namespace chimewell::texts {

// Everywhere
inline constexpr auto cancel = Text("Cancel");
inline constexpr auto clear = Text("Clear");
inline constexpr auto install = Text("Install");
inline constexpr auto installed = Text("Installed");
inline constexpr auto noRecentActivity = Text("No recent activity yet");
inline constexpr auto openSystemSettings = Text("Open System Settings").onLinux("Open Notification Settings");
inline constexpr auto playSample = Text("Play a sample alert");
inline constexpr auto preview = Text("Preview");
inline constexpr auto previewOf = Text("Preview the %1 alert");

// Events: their names, what is spoken, what they mean
inline constexpr auto finished = Text("Finished");
inline constexpr auto finishedPhrase = Text("The agent has finished");
inline constexpr auto finishedBody = Text("The agent finished responding and is idle.");
inline constexpr auto waitingInput = Text("Waiting for input");
inline constexpr auto waitingInputPhrase = Text("The agent is waiting for your input");
inline constexpr auto waitingInputBody =
    Text("The agent is waiting for your input or a permission decision.");
inline constexpr auto subagentFinished = Text("Subagent finished");
inline constexpr auto subagentFinishedPhrase = Text("A subagent finished");
inline constexpr auto subagentFinishedBody = Text("A subagent completed its task.");
inline constexpr auto error = Text("Error");
inline constexpr auto errorPhrase = Text("The agent reported an error");
inline constexpr auto errorBody = Text("The agent reported an error.");
inline constexpr auto toolUse = Text("Tool use");
inline constexpr auto toolUsePhrase = Text("The agent is using a tool");
inline constexpr auto toolUseBody = Text("The agent is about to use a tool.");
inline constexpr auto longRunningStart = Text("Long-running task started");
inline constexpr auto longRunningStartPhrase = Text("A long task has started");
inline constexpr auto longRunningStartBody = Text("A long-running task has begun.");
inline constexpr auto sessionStart = Text("Session started");
inline constexpr auto sessionStartPhrase = Text("A new session started");
inline constexpr auto sessionStartBody = Text("A new agent session started.");
inline constexpr auto userActed = Text("User responded");
inline constexpr auto userActedBody = Text("You responded to the agent.");

// Alerts: an event and its project (Chimewell and its state too), the same again, the same in the list of
// recent alerts
inline constexpr auto titleAndDetail = Text("%1 — %2");
inline constexpr auto stillWaiting = Text("Still waiting — %1");
inline constexpr auto reminderTitle = Text("%1 (reminder)");
inline constexpr auto bannerTest = Text("Banners are working. This is a test.");
inline constexpr auto silent = Text("Silent");

// What failed; the last argument is the system's own sentence
inline constexpr auto couldNotRead = Text("Could not read %1: %2");
inline constexpr auto couldNotWrite = Text("Could not write %1: %2");
inline constexpr auto couldNotBackUp = Text("Could not create backup: %1");
inline constexpr auto couldNotRestore = Text("Could not restore from backup: %1");
inline constexpr auto couldNotSerialize = Text("Could not serialize settings.");
inline constexpr auto couldNotEncodeToml = Text("Could not encode config.toml.");
inline constexpr auto notJson =
    Text("The existing settings file at %1 is not valid JSON. Refusing to modify it to avoid data loss. "
         "Please fix or remove it, then try again.");
inline constexpr auto helperMissing =
    Text("The bundled chimewell-hook helper could not be found inside the app bundle.")
        .onLinux("The chimewell-hook helper could not be found. Please install Chimewell again.");
inline constexpr auto moveToApplications = Text(
    "Chimewell runs from a disk image or from where it was downloaded. Move it to the Applications folder, "
    "open it there and try again.");
inline constexpr auto helperPathHasLineBreak =
    Text("The chimewell-hook helper lies in a folder with a line break in its name, where no agent can call "
         "it. Please move Chimewell to another folder.");
inline constexpr auto noBackup = Text("No Chimewell backup was found to restore from.");
inline constexpr auto notifyIsTaken =
    Text("Codex supports only a single `notify` program, and ~/.codex/config.toml already has one "
         "configured. Remove it (or chain Chimewell into it) first, then install again.");
inline constexpr auto notifyIsChain = Text(
    "Codex calls Chimewell through a `notify` chain of your own in ~/.codex/config.toml, which Chimewell "
    "leaves as it is. To disconnect Codex, take chimewell-hook out of that chain yourself.");
inline constexpr auto couldNotSave = Text("Failed to save settings: %1");
inline constexpr auto couldNotLaunchAtLogin = Text("Launch at login could not be changed: %1");
inline constexpr auto notUtf8 = Text("The file is not valid UTF-8.");
inline constexpr auto notARegularFile = Text("Not a regular file");
inline constexpr auto beingWritten = Text("Another program is writing into the file");
inline constexpr auto linkLeadsNowhere = Text("A symbolic link leads to %1, which does not exist");
inline constexpr auto changedByAnother = Text("The file was changed by another program");
inline constexpr auto changedAndKept = Text("The file was changed by another program, and is kept as %1");

// What a row's control is called for those who do not see the row
inline constexpr auto soundOf = Text("Sound for %1");
inline constexpr auto enabledOf = Text("Enable %1");
inline constexpr auto bannerOf = Text("Show banner for %1");
inline constexpr auto speakOf = Text("Speak for %1");
inline constexpr auto phraseOf = Text("Phrase for %1");
inline constexpr auto voiceOf = Text("Voice for %1");
inline constexpr auto readAloudOf = Text("Read aloud for %1");
inline constexpr auto optionsOf = Text("Options for %1");
inline constexpr auto openSessionOf = Text("Open the agent's session: %1");
inline constexpr auto rowAtTime = Text("%1, %2");
inline constexpr auto installOf = Text("Install %1");
inline constexpr auto installedOf = Text("Installed: %1");
inline constexpr auto updateOf = Text("Update %1 hooks");
inline constexpr auto uninstallOf = Text("Uninstall %1");
inline constexpr auto restoreOf = Text("Restore the original settings of %1");
inline constexpr auto revealOf = Text("Reveal %1 in Finder").onLinux("Show %1 in the file manager");
inline constexpr auto stepOf = Text("Step %1 of %2");

// Icon and panel
inline constexpr auto panelName = Text("Chimewell");
inline constexpr auto listening = Text("Listening");
inline constexpr auto setupNeeded = Text("Setup needed");
inline constexpr auto finishSetup = Text("Finish setup");
inline constexpr auto recent = Text("Recent");
inline constexpr auto moreInSettings = Text("%n more in Settings ▸ Recent");
inline constexpr auto muteAll = Text("Mute all");
inline constexpr auto muteForAnHour = Text("Mute for an hour");
inline constexpr auto until = Text("Until %1");
inline constexpr auto otherEvents = Text("Other events in Settings.");
inline constexpr auto openSettings = Text("Open Settings…");
inline constexpr auto openPanel = Text("Open Chimewell");
inline constexpr auto quit = Text("Quit");
inline constexpr auto quitTooltip = Text("Quit — Chimewell stays closed until you open it again");
inline constexpr auto openSessionTooltip = Text("Open the agent's session");

// BETA
inline constexpr auto beta = Text("BETA");
inline constexpr auto betaTooltip = Text("This integration is newer and less tested than Claude Code.");

// Settings
inline constexpr auto settingsTitle = Text("Chimewell Settings");
inline constexpr auto settingsSections = Text("Sections");
inline constexpr auto events = Text("Events");
inline constexpr auto providers = Text("Providers");
inline constexpr auto general = Text("General");

// Settings: events
inline constexpr auto eventsIntro = Text("Choose which agent state changes notify you, and how.");
inline constexpr auto enabled = Text("Enabled");
inline constexpr auto sound = Text("Sound");
inline constexpr auto showBanner = Text("Show banner");
inline constexpr auto speak = Text("Speak");
inline constexpr auto speakTooltip = Text(
    "Announce this event with a spoken voice (off by default). Turn it on to choose the phrase and voice.");
inline constexpr auto phraseHelp =
    Text("Spoken aloud when this event fires. Leave the text blank for the default; use Preview to hear the "
         "voice. Add "
         "more voices in System Settings ▸ Accessibility ▸ Spoken Content.")
        .onLinux("Spoken aloud when this event fires. Leave the text blank for the default; use Preview to "
                 "hear the "
                 "voice. Add more voices by installing them for Speech Dispatcher.");
inline constexpr auto voice = Text("Voice");
inline constexpr auto systemDefault = Text("System default");

// Settings: reminders
inline constexpr auto reminders = Text("Reminders");
inline constexpr auto keepReminding = Text("Keep reminding me while the agent waits");
inline constexpr auto keepRemindingCaption = Text("If you miss the first alert, Chimewell re-alerts until "
                                                  "you respond in the session (detected automatically) "
                                                  "or the limit is reached.");
inline constexpr auto repeatEvery = Text("Repeat every");
inline constexpr auto custom = Text("Custom…");
inline constexpr auto thirtySeconds = Text("30 seconds");
inline constexpr auto oneMinute = Text("1 minute");
inline constexpr auto twoMinutes = Text("2 minutes");
inline constexpr auto threeMinutes = Text("3 minutes");
inline constexpr auto fiveMinutes = Text("5 minutes");
inline constexpr auto everyMinutes = Text("Every %n minute").many("chimewell::texts", "Every %n minutes");
inline constexpr auto upToReminders =
    Text("Up to %n reminder").many("chimewell::texts", "Up to %n reminders");

// Settings: providers
inline constexpr auto providersIntro =
    Text("Install hooks so your agent tells Chimewell when its state changes.");
inline constexpr auto notInstalled = Text("Not installed");
inline constexpr auto updateAvailable = Text("Update available");
inline constexpr auto comingSoon = Text("Coming soon");
inline constexpr auto comingSoonLine = Text("This provider is coming soon.");
inline constexpr auto codexNote = Text(
    "Codex alerts you when a turn completes (no ‘waiting for input’ signal). Codex allows only one notify "
    "program — if you already use one, remove it first or Install will stop to avoid overwriting it.");
inline constexpr auto cursorNote = Text("Cursor alerts you when the agent finishes. A ‘waiting for input’ "
                                        "signal isn’t available in Cursor’s hooks "
                                        "yet.");
inline constexpr auto updateNotice = Text(
    "An update adds the hook that powers ‘keep reminding me’. Click Update Hooks, then restart your agent "
    "session.");
inline constexpr auto otherHelperNotice =
    Text("These hooks call a chimewell-hook at another place, which may be gone: alerts can get lost. Click "
         "Update Hooks, then restart your agent session.");
inline constexpr auto hooksMissing = Text("Hooks are missing from this file. Install them again.");
inline constexpr auto updateHooks = Text("Update Hooks");
inline constexpr auto uninstall = Text("Uninstall");
inline constexpr auto restoreOriginal = Text("Restore Original");
inline constexpr auto reveal = Text("Reveal in Finder").onLinux("Show in File Manager");
inline constexpr auto nothingToReveal =
    Text("Nothing to reveal yet — %1 doesn’t exist. It’s created when you Install (%2 may not be set up on "
         "this "
         "Mac).")
        .onLinux(
            "Nothing to show yet — %1 doesn’t exist. It’s created when you Install (%2 may not be set up on "
            "this computer).");
inline constexpr auto installedInfo = Text("Installed. Restart your agent session to pick up the hooks.");
inline constexpr auto uninstalledInfo = Text("Uninstalled. Your other hooks were left untouched.");
inline constexpr auto restoredInfo = Text("Restored the original settings from backup.");

// What is asked before an agent's file is changed
inline constexpr auto installTitle = Text("Install %1 hooks?");
inline constexpr auto installMessage = Text("Chimewell will add its hooks to %1. A timestamped backup of the "
                                            "file is written first, and only Chimewell's "
                                            "own entries are added.");
inline constexpr auto updateTitle = Text("Update hooks?");
inline constexpr auto updateMessage =
    Text("Chimewell will update its hooks in %1. A timestamped backup of the file is written first, and only "
         "Chimewell's own entries are changed.");
inline constexpr auto update = Text("Update");
inline constexpr auto uninstallTitle = Text("Uninstall hooks?");
inline constexpr auto uninstallMessage = Text(
    "Chimewell will remove only its own hooks from %1. A timestamped backup of the file is written first.");
inline constexpr auto restoreTitle = Text("Restore original settings?");
inline constexpr auto restoreMessage = Text("This replaces %1 with the backup taken before Chimewell first "
                                            "modified it. Any changes to that file since "
                                            "then will be lost.");
inline constexpr auto restore = Text("Restore");
inline constexpr auto disconnectAllTitle = Text("Disconnect all agents?");
inline constexpr auto disconnectAllMessage =
    Text("Chimewell will remove only its own hooks, and write a timestamped backup of each file first: %1");
inline constexpr auto disconnectAllButton = Text("Disconnect All");
inline constexpr auto entriesToBeAdded = Text("Entries to be added");
inline constexpr auto entriesToBeRemoved = Text("Entries to be removed");
inline constexpr auto entriesToBeChanged = Text("Entries to be changed");
inline constexpr auto nothingToChange = Text("The file holds these entries already.");

// Settings: recent
inline constexpr auto recentIntro =
    Text("The most recent events Chimewell alerted you about (this session).");
inline constexpr auto recentEmpty = Text("Alerts from your agents will show up here.");
inline constexpr auto openSession = Text("Open Session");
inline constexpr auto jumpToTerminal = Text("Jump to the agent's terminal (or reveal its folder)");

// Settings: general
inline constexpr auto notifications = Text("Notifications");
inline constexpr auto muteAllNotifications = Text("Mute all notifications");
inline constexpr auto launchAtLogin = Text("Launch at login");
inline constexpr auto permission = Text("Permission");
inline constexpr auto diagnostics = Text("Diagnostics");
inline constexpr auto diagnosticsCaption =
    Text("Checks that macOS will show Chimewell banners.")
        .onLinux("Checks that your desktop will show Chimewell banners.");
inline constexpr auto testBanner = Text("Test banner permission");
inline constexpr auto bannersOff =
    Text("Banners are turned off in System Settings — sound and voice still work.")
        .onLinux("Banners are turned off in your desktop's settings — sound and voice still work.");
inline constexpr auto testBannerNotShown =
    Text("The test banner could not be shown: banners are unavailable in this build.")
        .onLinux("The test banner could not be shown: no notification service is running.");
inline constexpr auto sampleTooltip = Text("Runs a real ‘finished’ event through sound, voice, and banner — "
                                           "respects your Events settings and Mute All.");
inline constexpr auto setup = Text("Setup");
inline constexpr auto showWalkthrough = Text("Show setup walkthrough…");
inline constexpr auto showWalkthroughTooltip = Text("Replay the guided setup — allow notifications, connect "
                                                    "Claude Code, and pick your sounds. You can skip any "
                                                    "step.");
inline constexpr auto disconnectAllCaption =
    Text("Takes Chimewell's hooks out of the files of all your agents, for example before you remove "
         "Chimewell.");
inline constexpr auto disconnectAll = Text("Disconnect All…");
inline constexpr auto support = Text("Support");
inline constexpr auto supportText =
    Text("Chimewell is free. If it's earned a place in your toolkit, toss a coin to its developer to keep it "
         "maintained, updated, and ad-free.");
inline constexpr auto supportButton = Text("Support Chimewell");
inline constexpr auto about = Text("About");
inline constexpr auto version = Text("Version %1");
inline constexpr auto website = Text("Website");
inline constexpr auto privacyPolicy = Text("Privacy Policy");
inline constexpr auto terms = Text("Terms");

// Whether banners may be shown
inline constexpr auto allowed = Text("Allowed");
inline constexpr auto allowedProvisional = Text("Allowed (provisional)");
inline constexpr auto denied = Text("Denied — sound will still play");
inline constexpr auto notRequested = Text("Not requested yet");
inline constexpr auto unavailable =
    Text("Unavailable in this build").onLinux("Unavailable — no notification service is running");

// Walkthrough
inline constexpr auto walkthroughTitle = Text("Welcome");
inline constexpr auto skipSetup = Text("Skip setup");
inline constexpr auto back = Text("Back");
inline constexpr auto continueButton = Text("Continue");
inline constexpr auto done = Text("Done");
inline constexpr auto welcomeTitle = Text("Welcome to Chimewell");
inline constexpr auto welcomeSubtitle = Text("Know the moment your AI coding agent finishes or needs you — "
                                             "with a sound, an optional spoken alert, and a "
                                             "native banner.");
inline constexpr auto welcomeBody = Text("Want a quick ~1-minute setup? We'll allow notifications, connect "
                                         "Claude Code, and pick your sounds. Prefer "
                                         "to explore on your own? Hit **Skip setup** any time — you can "
                                         "replay this later from Settings ▸ General.");
inline constexpr auto exampleProject = Text("my-project");
inline constexpr auto howItWorksTitle = Text("How it works");
inline constexpr auto howItWorksSubtitle = Text(
    "A tiny hook in your agent pings Chimewell whenever the agent changes state. No polling, no network.");
inline constexpr auto yourAgent = Text("Your agent");
inline constexpr auto hook = Text("Hook");
inline constexpr auto chimewell = Text("Chimewell");
inline constexpr auto hearIt = Text("Hear it");
inline constexpr auto hearItCaption = Text("This is what you hear when the agent needs you.");
inline constexpr auto notificationsTitle = Text("Allow notifications");
inline constexpr auto notificationsSubtitle = Text("Banners let you jump straight back to the session. Sound "
                                                   "and voice work either way, so this is optional.");
inline constexpr auto status = Text("Status:");
inline constexpr auto allowNotifications = Text("Allow Notifications");
inline constexpr auto deniedNote =
    Text("No problem — sound and voice still work. You can enable banners later in System Settings.")
        .onLinux("No problem — sound and voice still work. You can enable banners later in your desktop's "
                 "settings.");
inline constexpr auto tryIt = Text("Try it");
inline constexpr auto tryItCaption = Text("Show a banner now, to see where it appears.");
inline constexpr auto agentsTitle = Text("Connect your agents");
inline constexpr auto agentsSubtitle = Text("Install hooks so your coding agents tell Chimewell when they "
                                            "finish or need you. Install only the ones you "
                                            "use — you can change this anytime in Settings.");
inline constexpr auto soundsTitle = Text("Sounds & voice");
inline constexpr auto soundsSubtitle = Text("Choose distinct sounds so you can tell — without looking — "
                                            "whether the agent finished or is waiting. Prefer "
                                            "a spoken announcement? Turn on “Read aloud” for either event.");
inline constexpr auto readAloud = Text("Read aloud");
inline constexpr auto readAloudHelp = Text(
    "Also announce this event in a spoken voice (off by default). Fine-tune the phrase and voice later in "
    "Settings ▸ Events.");
inline constexpr auto startAtLogin = Text("Start Chimewell when I log in");
inline constexpr auto startAtLoginCaption = Text("Keeps Chimewell in your menu bar after a restart. You can "
                                                 "change this any time in Settings ▸ General.")
                                                .onLinux("Keeps Chimewell in your panel after a restart. You "
                                                         "can change this any time in Settings ▸ General.");
inline constexpr auto closingNote = Text("That's it! Chimewell lives in your menu bar. Click the **bell "
                                         "icon** at the top of your screen any time to "
                                         "open status, quick controls, or this setup again.")
                                        .onLinux("That's it! Chimewell lives in your panel. Click the **bell "
                                                 "icon** any time to open status, quick "
                                                 "controls, or this setup again.");

}
