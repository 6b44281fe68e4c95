// SPDX-License-Identifier: MIT
#include "ui/settings/providers_pane.h"

#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "values/texts.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QMoveEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace chimewell {

namespace {

constexpr double besideName = 8, betweenNotes = 10, aboveButtons = 14;

/// Says it to those who do not see that it appears.
void announce(QWidget& note)
{
    QAccessibleEvent event(&note, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void showNote(Note& note, std::string_view icon, Tone tone, const QString& text)
{
    const bool isNews = note.isHidden() || note.label()->accessibleName() != text;
    note.setNote(icon, tone, text);
    note.label()->setInk(tone == Tone::secondary ? Ink::secondary : Ink::text);
    note.show();
    if (isNews) announce(*note.label());
}

}

ProviderCardView::ProviderCardView(Services& services, ProviderCard& card, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      card_(card)
{
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(qString(card_.displayName()));
    auto* path = new TextLabel(TextStyle::caption, Ink::secondary);
    path->setText(qString(card_.shownFile()));
    path->setSelectable(true);
    // The words of the last button end at the edge, so everything else keeps away from its padding.
    const QMargins text = directed(0, 0, scaled(flatPadding), 0);
    QHBoxLayout* header = makeHeader();
    header->setContentsMargins(text);
    path->setContentsMargins(text);
    QWidget* notes = makeNotes();
    notes->setContentsMargins(text);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(
        directed(inRow(cardEdge), inRow(cardEdge), inRow(cardEdge - flatPadding), inRow(cardEdge)));
    column->setSpacing(0);
    column->addLayout(header);
    column->addSpacing(scaled(4));
    column->addWidget(path);
    column->addWidget(notes);
    if (card_.isAvailable()) column->addWidget(makeButtons());
    auto* frame = new Card;
    frame->addRow(content);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);

    cardChange_ = card_.onChange([this] { showCard(); });
    showCard();
}

QString ProviderCardView::named(Text text) const
{
    return words_({text, {std::string(card_.displayName())}});
}

QHBoxLayout* ProviderCardView::makeHeader()
{
    auto* name = new TextLabel(TextStyle::headline);
    name->setText(qString(card_.displayName()));
    pill_ = new StatusPillLabel;
    auto* line = new QHBoxLayout;
    line->setSpacing(scaled(besideName));
    line->addWidget(name);
    if (card_.isBeta()) line->addWidget(new BetaBadge(words_(texts::beta), words_(texts::betaTooltip)));
    line->addStretch(1);
    line->addWidget(pill_);
    return line;
}

QWidget* ProviderCardView::makeNotes()
{
    agentNote_ = new Note(TextStyle::subheadline, Ink::secondary);
    notice_ = new Note(TextStyle::subheadline);
    info_ = new Note(TextStyle::subheadline);
    error_ = new Note(TextStyle::subheadline);
    auto* notes = new QWidget;
    auto* column = new QVBoxLayout(notes);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    for (Note* note : {agentNote_, notice_, info_, error_}) {
        note->setContentsMargins(0, scaled(betweenNotes), 0, 0);
        column->addWidget(note);
    }
    return notes;
}

QWidget* ProviderCardView::makeButtons()
{
    update_ = makeButton(texts::updateHooks, texts::updateOf, PendingAction::update);
    ChimewellStyle::setDue(update_, true);
    install_ = makeButton(texts::install, texts::installOf, PendingAction::install);
    uninstall_ = makeButton(texts::uninstall, texts::uninstallOf, PendingAction::uninstall);
    restore_ = makeButton(texts::restoreOriginal, texts::restoreOf, PendingAction::restore);
    reveal_ = new LinkButton(words_(texts::reveal));
    reveal_->setAccessibleName(named(texts::revealOf));
    connect(reveal_, &QPushButton::clicked, this, [this] { reveal(); });
    auto* line = new FlowLayout(scaled(8), FlowLayout::Last::trails);
    for (QPushButton* button : {update_, install_, uninstall_, restore_, reveal_})
        line->addWidget(button);
    auto* buttons = new QWidget;
    auto* holder = new QVBoxLayout(buttons);
    holder->setContentsMargins(0, scaled(aboveButtons), 0, 0);
    holder->addLayout(line);
    return buttons;
}

QPushButton* ProviderCardView::makeButton(Text text, Text name, PendingAction action)
{
    auto* button = new QPushButton(words_(text));
    button->setAutoDefault(false);
    button->setAccessibleName(named(name));
    connect(button, &QPushButton::clicked, this, [this, button, action] {
        if (card_.isPausing())
            clicked_ = button;
        else
            ask(action);
    });
    return button;
}

void ProviderCardView::showCard()
{
    const StatusPill pill = card_.pill();
    pill_->setPill(pill.kind, words_(pill.text));
    showNotes();
    if (card_.isAvailable()) showButtons();
}

void ProviderCardView::showNotes()
{
    const std::optional<Text> about =
        card_.isAvailable() ? card_.agentNote() : std::optional(texts::comingSoonLine);
    agentNote_->setVisible(about.has_value());
    if (about) agentNote_->setNote("info.circle", Tone::secondary, words_(*about));
    const auto notice = card_.notice();
    if (notice)
        showNote(*notice_, notice->icon, notice->tone, words_(notice->text));
    else
        notice_->hide();
    if (const auto& info = card_.infoMessage())
        showNote(*info_, "checkmark.circle", Tone::green, words_(*info));
    else
        info_->hide();
    if (const auto error = card_.errorMessage())
        showNote(*error_, "exclamationmark.triangle", Tone::red, words_(*error));
    else
        error_->hide();
}

void ProviderCardView::showButtons()
{
    struct Offer {
        QPushButton* button;
        bool isOffered;
    };
    for (const auto& [button, isOffered] :
         {Offer{update_, card_.isUpdateDue()}, Offer{install_, card_.canInstall()},
          Offer{uninstall_, card_.canUninstall()}, Offer{restore_, card_.canRestore()}}) {
        // The keyboard stays in this card when its button goes.
        if (window()->focusWidget() == button && !isOffered) reveal_->setFocus();
        ChimewellStyle::setHeld(button, card_.isPausing());
        button->setVisible(isOffered);
        if (clicked_ == button && !isOffered) clicked_ = nullptr;
    }
    if (clicked_ && !card_.isPausing()) std::exchange(clicked_, nullptr)->click();
}

void ProviderCardView::ask(PendingAction action)
{
    auto* question = new ConfirmDialog(card_.confirmation(action), words_, window());
    connect(question, &QDialog::accepted, this, [this, action] {
        Q_EMIT used();
        card_.perform(action);
    });
    question->open();
}

void ProviderCardView::reveal()
{
    Q_EMIT used();
    if (const auto file = card_.fileToReveal()) services_.ports.workspace.reveal(*file);
}

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
