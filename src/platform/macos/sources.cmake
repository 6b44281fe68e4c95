# SPDX-License-Identifier: MIT
# The tests compile the same files on other systems.
set(CHIMEWELL_MACOS_SOURCES
  appkit_activation.mm
  appkit_system_sounds.mm
  appkit_workspace.mm
  apple_events.mm
  avf_speech_synthesizer.mm
  bundle_resources.mm
  foundation_user_folders.mm
  foundation_user_locale.mm
  main_queue.mm
  notification_observer.mm
  run_loop_timers.mm
  service_management_login_item.mm
  status_item.mm
  system_symbols.mm
  text.mm
  user_notification_center.mm
)
