# SPDX-License-Identifier: MIT
"""The banners that pass on the session bus, as the notification server gets them."""
import dataclasses

from bus_watch import BusWatch

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
