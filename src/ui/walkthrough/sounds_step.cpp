// SPDX-License-Identifier: MIT
#include "ui/walkthrough/sounds_step.h"

#include "presentation/event_looks.h"
#include "ui/controls/card.h"
#include "ui/controls/note.h"
#include "ui/look/metrics.h"
#include "ui/walkthrough/launch_at_login_row.h"
#include "ui/walkthrough/sound_chooser_row.h"
#include "values/texts.h"

#include <QVBoxLayout>

#include <algorithm>
#include <vector>

namespace chimewell {

SoundsStep::SoundsStep(Services& services, QWidget* parent) : QWidget(parent)
{
    auto* login = new Card;
    login->addRow(new LaunchAtLoginRow(services));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(12));
    layout->addWidget(makeSounds(services));
    layout->addWidget(login);
    layout->addWidget(makeClosingNote(Words(services.ports.translator)));
}

QWidget* SoundsStep::makeSounds(Services& services)
{
    auto* sounds = new Card;
    std::vector<SoundChooserRow*> rows;
    int width = 0;
    for (const CanonicalEvent event : quickEvents) {
        rows.push_back(new SoundChooserRow(services, event));
        sounds->addRow(rows.back(), 16);
        width = std::max(width, rows.back()->name()->sizeHint().width());
    }
    for (SoundChooserRow* row : rows)
        row->name()->setMinimumWidth(width);
    return sounds;
}

QWidget* SoundsStep::makeClosingNote(const Words& words)
{
    auto* note = new Note(TextStyle::subheadline, Ink::secondary);
    note->setNote("bell.badge", Tone::accent, {});
    note->label()->setMarkedText(words(texts::closingNote));
    note->setContentsMargins(scaled(16), 0, scaled(16), 0); // as the text in the cards
    return note;
}

}
