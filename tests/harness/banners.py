# SPDX-License-Identifier: MIT
"""The banners that pass on the session bus, as the notification server gets them."""
import dataclasses

from bus_watch import BusWatch
from waiting import until

NAME = "org.freedesktop.Notifications"


@dataclasses.dataclass
class Banner:
    title: str
    body: str
    actions: dict  # identifier -> label
    is_answered: bool  # the server took it


class BannerWatch(BusWatch):
    def __init__(self):
        super().__init__(NAME, "Notify")

    def banners(self):
        found = []
        for call in self.calls():
            _, _, _, title, body, actions, _, _ = call.arguments
            found.append(Banner(title, body, dict(zip(actions[::2], actions[1::2])), call.answer is not None))
        return found

    def titles(self):
        return [banner.title for banner in self.banners()]

    def count(self, title):
        return self.titles().count(title)

    def until_shown(self, title, seconds=15):
        """The first banner with this title."""
        return until(lambda: next((b for b in self.banners() if b.title == title), None),
                     f"a banner {title!r}", seconds)

    def until_shown_again(self, title, times):
        """Waits for so many more of them than there are now."""
        wanted = self.count(title) + times
        until(lambda: self.count(title) >= wanted, f"{times} more banners {title!r}", 20)
