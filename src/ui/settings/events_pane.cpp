// SPDX-License-Identifier: MIT
#include "ui/settings/events_pane.h"

#include "presentation/event_looks.h"
#include "ui/controls/card.h"
#include "ui/controls/edges.h"
#include "ui/settings/event_row.h"
#include "ui/settings/reminders_section.h"
#include "ui/settings/voice_list.h"
#include "values/texts.h"

namespace chimewell {

EventsPane::EventsPane(Services& services, QWidget* parent) : PaneColumn(parent)
{
    addIntro(Words(services.ports.translator)(texts::eventsIntro));
    auto* voices = new VoiceList(services, this);
    Card* card = addCard();
    for (const CanonicalEvent event : configurableEvents)
        card->addRow(new EventRow(services, event, *voices), afterSymbol);
    addHeading(Words(services.ports.translator)(texts::reminders));
    addSection(new RemindersSection(services));
    finish();
}

}
