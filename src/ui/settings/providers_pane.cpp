// SPDX-License-Identifier: MIT
#include "ui/controls/accessibility.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/confirm_dialog.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/controls/text_label.h"
#include "ui/look/chimewell_style.h"
#include "ui/settings/pane.h"
#include "values/texts.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QMoveEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace chimewell {

namespace {

constexpr double besideName = 8, betweenNotes = 10, aboveButtons = 14;

void showNote(Note& note, std::string_view icon, Tone tone, const QString& text)
{
    const bool isNews = note.isHidden() || note.label()->accessibleName() != text;
    note.setNote(icon, tone, text);
    note.label()->setTone(tone == Tone::secondary ? Tone::secondary : Tone::neutral);
    note.show();
    if (isNews) announce(*note.label());
}

Tone toneOf(StatusPill::Kind kind)
{
    switch (kind) {
    case StatusPill::Kind::installed:
        return Tone::green;
    case StatusPill::Kind::setupNeeded:
        return Tone::orange;
    case StatusPill::Kind::notInstalled:
    case StatusPill::Kind::neutral:
        break;
    }
    return Tone::secondary;
}

/// One agent: the state of its file, notes about it, and what can be done.
class ProviderCardView final : public QWidget {
public:
    /// `card` outlives this. `used` is called before something the user did here changes its height.
    ProviderCardView(Services& services, ProviderCard& card, std::function<void(QWidget&)> used);

private:
    QHBoxLayout* makeHeader();
    QWidget* makeNotes();
    QWidget* makeButtons();
    QPushButton* makeButton(const Text& text, const Text& name, PendingAction action);
    void showCard();
    void showNotes();
    void showButtons();
    void ask(PendingAction action);
    void reveal();
    QString named(const Text& text) const;

    Services& services_;
    const Words words_;
    ProviderCard& card_;
    const std::function<void(QWidget&)> used_;
    CapsuleLabel* pill_ = nullptr;
    Note* agentNote_ = nullptr;
    Note* notice_ = nullptr;
    Note* info_ = nullptr;
    Note* error_ = nullptr;
    QPushButton* update_ = nullptr;
    QPushButton* install_ = nullptr;
    QPushButton* uninstall_ = nullptr;
    QPushButton* restore_ = nullptr;
    QPushButton* reveal_ = nullptr;
    QPushButton* clicked_ = nullptr; ///< While a click has to wait.
    Subscription cardChange_;
};

ProviderCardView::ProviderCardView(Services& services, ProviderCard& card, std::function<void(QWidget&)> used)
    : services_(services),
      words_(services.ports.translator),
      card_(card),
      used_(std::move(used))
{
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(qString(card_.displayName()));
    auto* path = new TextLabel(TextStyle::caption, Tone::secondary, qString(card_.shownFile()));
    path->makeSelectable();
    // The text of the last button ends at the edge, so all else has its padding as a margin.
    const QMargins text = directed(0, 0, scaled(flatPadding), 0);
    QHBoxLayout* header = makeHeader();
    header->setContentsMargins(text);
    path->setContentsMargins(text);
    QWidget* notes = makeNotes();
    notes->setContentsMargins(text);

    auto* content = new QWidget;
    auto* column = makeColumn(content);
    column->setContentsMargins(
        directed(inRow(cardEdge), inRow(cardEdge), inRow(cardEdge - flatPadding), inRow(cardEdge)));
    column->addLayout(header);
    column->addSpacing(scaled(4));
    column->addWidget(path);
    column->addWidget(notes);
    if (card_.isAvailable()) column->addWidget(makeButtons());
    auto* frame = new Card;
    frame->addRow(content);
    makeColumn(this)->addWidget(frame);

    cardChange_ = card_.onChange([this] { showCard(); });
    showCard();
}

QString ProviderCardView::named(const Text& text) const
{
    return words_({text, {std::string(card_.displayName())}});
}

QHBoxLayout* ProviderCardView::makeHeader()
{
    pill_ = new CapsuleLabel(TextStyle::caption);
    auto* line = makeLine(nullptr, besideName);
    line->addWidget(new TextLabel(TextStyle::headline, Tone::neutral, qString(card_.displayName())));
    if (card_.isBeta()) line->addWidget(makeBetaBadge(words_));
    line->addStretch(1);
    line->addWidget(pill_);
    return line;
}

QWidget* ProviderCardView::makeNotes()
{
    agentNote_ = new Note(TextStyle::subheadline, Tone::secondary);
    notice_ = new Note(TextStyle::subheadline);
    info_ = new Note(TextStyle::subheadline);
    error_ = new Note(TextStyle::subheadline);
    auto* notes = new QWidget;
    auto* column = makeColumn(notes);
    for (Note* note : {agentNote_, notice_, info_, error_}) {
        note->setContentsMargins(0, scaled(betweenNotes), 0, 0);
        column->addWidget(note);
    }
    return notes;
}

QWidget* ProviderCardView::makeButtons()
{
    update_ = makeButton(texts::updateHooks, texts::updateOf, PendingAction::update);
    ChimewellStyle::setPrimary(update_, true);
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
    auto* holder = makeColumn(buttons);
    holder->setContentsMargins(0, scaled(aboveButtons), 0, 0);
    holder->addLayout(line);
    return buttons;
}

QPushButton* ProviderCardView::makeButton(const Text& text, const Text& name, PendingAction action)
{
    auto* button = new QPushButton(words_(text));
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
    pill_->show(words_(pill.text), toneOf(pill.kind));
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
        // Keeps the focus in this card when its button is hidden.
        if (window()->focusWidget() == button && !isOffered) reveal_->setFocus();
        ChimewellStyle::setDelayed(button, card_.isPausing());
        button->setVisible(isOffered);
        if (clicked_ == button && !isOffered) clicked_ = nullptr;
    }
    if (clicked_ && !card_.isPausing()) std::exchange(clicked_, nullptr)->click();
}

void ProviderCardView::ask(PendingAction action)
{
    auto* question = new ConfirmDialog(card_.confirmation(action), words_, window());
    connect(question, &QDialog::accepted, this, [this, action] {
        used_(*this);
        card_.perform(action);
    });
    question->open();
}

void ProviderCardView::reveal()
{
    used_(*this);
    if (const auto file = card_.fileToReveal()) services_.ports.workspace.reveal(*file);
}

/// The agents. The card that was used last keeps its place on the screen when those above it change their
/// height.
class ProvidersPane final : public PaneColumn {
public:
    explicit ProvidersPane(Services& services);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void scrollBy(int pixels);

    QWidget* used_ = nullptr;
};

ProvidersPane::ProvidersPane(Services& services)
{
    addIntro(Words(services.ports.translator)(texts::providersIntro));
    for (const auto& card : services.cards.all()) {
        auto* view = new ProviderCardView(services, *card, [this](QWidget& used) { used_ = &used; });
        view->installEventFilter(this);
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
    // The scroll bar gets the new range after the cards move, and both happen before anything is painted.
    QMetaObject::invokeMethod(
        area, [bar = area->verticalScrollBar(), pixels] { bar->setValue(bar->value() + pixels); },
        Qt::QueuedConnection);
}

}

PaneColumn* makeProvidersPane(Services& services)
{
    return new ProvidersPane(services);
}

}
