// SPDX-License-Identifier: MIT
#include "ui/panel/panel_content.h"

#include "presentation/event_looks.h"
#include "presentation/panel_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
#include "ui/controls/event_editor.h"
#include "ui/controls/layouts.h"
#include "ui/controls/marks.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/panel/panel_rows.h"
#include "values/texts.h"

#include <QGridLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <chrono>

namespace chimewell {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds timesAreRightFor = 30s;
/// Texts outside the cards are aligned with those inside.
constexpr double textInset = 12;

/// A line over the whole width of the panel.
class FullHairline final : public QWidget {
public:
    FullHairline() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), colours().cardBorder()); }
};

QVBoxLayout* makePaddedColumn(QWidget* holder, double top, double bottom, double spacing)
{
    QVBoxLayout* layout = makeColumn(holder, spacing);
    layout->setContentsMargins(scaled(12), scaled(top), scaled(12), scaled(bottom));
    return layout;
}

TextLabel* inset(TextLabel* label)
{
    label->setContentsMargins(scaled(textInset), 0, scaled(textInset), 0);
    return label;
}

}

PanelContent::PanelContent(Services& services, const Windows& windows)
    : services_(services),
      words_(services.ports.translator),
      windows_(windows)
{
    auto* middle = new QWidget;
    auto* middleLayout = makePaddedColumn(middle, 0, 10, 6);
    middleLayout->addWidget(makeRecent());
    middleLayout->addSpacing(scaled(8));
    middleLayout->addWidget(makeQuickControls());

    auto* layout = makeColumn(this);
    layout->addWidget(makeHeader());
    layout->addWidget(new FittingScrollArea(middle), 1); // header and actions stay in sight
    layout->addWidget(new FullHairline);
    layout->addWidget(makeActions());

    clock_.setInterval(timesAreRightFor);
    connect(&clock_, &QTimer::timeout, this, [this] { showHistory(); });
    storeChange_ = services_.store.onChange([this] { showSettings(); });
    muteChange_ = services_.muting.onChange([this] { showMute(); });
    historyChange_ = services_.history.onChange([this] { showHistory(); });
    showSettings();
    showMute();
    showHistory();
}

QWidget* PanelContent::makeHeader()
{
    auto* header = new QWidget;
    auto* layout = makePaddedColumn(header, 14, 10, 8);
    dot_ = new StatusDot;
    status_ = new TextLabel(TextStyle::subheadline, Tone::secondary);
    finishSetup_ = new QPushButton(words_(texts::finishSetup));
    ChimewellStyle::setPrimary(finishSetup_, true);
    connect(finishSetup_, &QPushButton::clicked, this, [this] {
        Q_EMIT done();
        windows_.openOnboarding();
    });

    auto* line = makeLine(nullptr, 6);
    line->addWidget(dot_);
    line->addWidget(status_, 1);
    auto* grid = new QGridLayout;
    grid->setContentsMargins(scaled(textInset), 0, scaled(textInset), 0);
    grid->setVerticalSpacing(scaled(2));
    grid->addWidget(new TextLabel(TextStyle::headline, Tone::neutral, words_(texts::panelName)), 0, 0);
    grid->addLayout(line, 1, 0);
    grid->addWidget(finishSetup_, 0, 1, 2, 1);
    grid->setColumnStretch(0, 1);
    layout->addLayout(grid);

    warningCard_ = new Card;
    warning_ = new Note;
    warningCard_->setContent(warning_, 10);
    layout->addWidget(warningCard_);
    return header;
}

QWidget* PanelContent::makeRecent()
{
    auto* part = new QWidget;
    auto* layout = makeColumn(part, 6);

    auto* heading = new TextLabel(TextStyle::subheadlineSemibold, Tone::secondary, words_(texts::recent));
    clear_ = new LinkButton(words_(texts::clear));
    connect(clear_, &QPushButton::clicked, this, [this] { services_.actions.clearHistory(); });
    auto* line = makeLine(nullptr);
    line->setContentsMargins(scaled(textInset), 0, scaled(textInset - 8), 0); // aligned by the button's text
    line->addWidget(heading, 1);
    line->addWidget(clear_);
    layout->addLayout(line);

    auto* card = new Card;
    empty_ = new TextLabel(TextStyle::subheadline, Tone::secondary, words_(texts::noRecentActivity));
    empty_->setCentred();
    empty_->setMinimumHeight(scaled(48));
    card->addRow(empty_);
    for (std::size_t i = 0; i < panelRecentRows; ++i) {
        rows_.push_back(new RecentPanelRow(words_, [this](const RecentRow& row) {
            Q_EMIT done();
            services_.actions.openSession(row.term, row.cwd);
        }));
        card->addRow(rows_.back(), 36);
    }
    layout->addWidget(card);
    more_ = inset(new TextLabel(TextStyle::caption, Tone::secondary));
    layout->addWidget(more_);
    return part;
}

QWidget* PanelContent::makeQuickControls()
{
    auto* part = new QWidget;
    auto* layout = makeColumn(part, 6);

    auto* card = new Card;
    mute_ = new QuickRow(words_(texts::muteAll));
    connect(mute_->toggle(), &QAbstractButton::toggled, this,
            [this](bool muted) { services_.actions.setMuted(muted); });
    card->addRow(mute_, 36);
    for (const CanonicalEvent event : quickEvents) {
        const EventEditor editor(services_, event);
        auto* row = new QuickRow(editor.eventName());
        row->setSymbol(iconName(event), Tone::secondary);
        IconButton* preview = row->addButton("play.circle", editor.named(texts::previewOf));
        editor.connectPreview(*preview);
        editor.connectToggle(*row->toggle(), &EventSetting::enabled);
        quick_.push_back({event, row, preview});
        card->addRow(row, 36);
    }
    layout->addWidget(card);
    layout->addWidget(inset(new TextLabel(TextStyle::caption, Tone::secondary, words_(texts::otherEvents))));
    return part;
}

QWidget* PanelContent::makeActions()
{
    auto* part = new QWidget;
    auto* layout = makePaddedColumn(part, 6, 8, 0);
    const auto add = [&](std::string_view symbol, const Text& text, std::function<void()> action) {
        auto* row = new RowButton(RowButton::Kind::menuLine, symbol, words_(text));
        connect(row, &QAbstractButton::clicked, this, std::move(action));
        layout->addWidget(row);
        return row;
    };
    add("speaker.wave.2", texts::playSample, [this] { services_.actions.playSample(); });
    add("gearshape", texts::openSettings, [this] {
        Q_EMIT done();
        windows_.openSettings();
    });
    add("power", texts::quit, [this] { services_.actions.quit(); })->setToolTip(words_(texts::quitTooltip));
    return part;
}

void PanelContent::showSettings()
{
    const AppSettings& settings = services_.store.settings();
    const PanelHeader header = panelHeader(settings);
    dot_->setTone(header.isListening ? Tone::green : Tone::orange);
    status_->setText(words_(header.status));
    finishSetup_->setVisible(!header.isListening);

    const auto& error = services_.store.lastError();
    warning_->showError(error ? words_(*error) : QString());
    warningCard_->setVisible(error.has_value());

    for (const Quick& quick : quick_) {
        const EventSetting* setting = settings.setting(quick.event);
        quick.row->setEnabled(setting != nullptr);
        quick.row->toggle()->show(setting && setting->enabled);
        quick.preview->setEnabled(setting && canPreview(*setting));
    }
    Q_EMIT heightChanged();
}

void PanelContent::showMute()
{
    const bool isMuted = services_.muting.isMuted();
    const auto end = muteEnd(services_.muting, services_.ports.locale);
    mute_->toggle()->show(isMuted);
    mute_->setSymbol(muteIcon(isMuted), isMuted ? Tone::orange : Tone::secondary);
    mute_->setDetail(end ? words_(*end) : QString());
}

void PanelContent::showHistory()
{
    const auto shown = panelRows(services_.history, services_.ports.locale, services_.ports.clock.now());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (i < shown.size()) rows_[i]->show(shown[i]);
        rows_[i]->setVisible(i < shown.size());
    }
    empty_->setVisible(shown.empty());
    clear_->setEnabled(!shown.empty());
    const auto more = panelMore(services_.history);
    if (more) more_->setText(words_(*more));
    more_->setVisible(more.has_value());
    Q_EMIT heightChanged();
}

void PanelContent::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    showHistory();
    clock_.start();
}

void PanelContent::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    clock_.stop();
}

}
