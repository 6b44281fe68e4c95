// SPDX-License-Identifier: MIT
#include "ui/settings/providers_pane.h"

#include "ui/settings/provider_card_view.h"
#include "values/texts.h"

#include <QMoveEvent>
#include <QScrollArea>
#include <QScrollBar>

namespace chimewell {

ProvidersPane::ProvidersPane(Services& services, QWidget* parent) : PaneColumn(parent)
{
    addIntro(Words(services.ports.translator)(texts::providersIntro));
    for (const auto& card : services.cards.all()) {
        auto* view = new ProviderCardView(services, *card);
        view->installEventFilter(this);
        connect(view, &ProviderCardView::used, this, [this, view] { used_ = view; });
        addSection(view);
    }
    finish();
}

bool ProvidersPane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move && watched == used_ && !used_->visibleRegion().isEmpty()) {
        const auto* move = static_cast<QMoveEvent*>(event);
        scrollBy(move->pos().y() - move->oldPos().y());
    }
    return PaneColumn::eventFilter(watched, event);
}

void ProvidersPane::scrollBy(int pixels)
{
    auto* area = qobject_cast<QScrollArea*>(parentWidget()->parentWidget());
    if (!area) return;
    // The bar learns of the new height after the cards, and both before anything is painted.
    QMetaObject::invokeMethod(
        area, [bar = area->verticalScrollBar(), pixels] { bar->setValue(bar->value() + pixels); },
        Qt::QueuedConnection);
}

}
