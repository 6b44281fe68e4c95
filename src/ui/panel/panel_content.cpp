// SPDX-License-Identifier: MIT
#include "ui/panel/panel_content.h"

#include "presentation/event_looks.h"
#include "presentation/panel_model.h"
#include "ui/controls/buttons.h"
#include "ui/controls/card.h"
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
/// Text edges of what stands outside the cards are those of what stands in them.
constexpr double textInset = 12;

/// A line over the whole width of the panel.
class FullHairline final : public QWidget {
public:
    FullHairline() { setFixedHeight(1); }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), colours().cardBorder()); }
};

QVBoxLayout* column(QWidget* of, double top, double bottom, double spacing)
{
    auto* layout = new QVBoxLayout(of);
    layout->setContentsMargins(scaled(12), scaled(top), scaled(12), scaled(bottom));
    layout->setSpacing(scaled(spacing));
    return layout;
}

TextLabel* inset(TextLabel* label)
{
    label->setContentsMargins(scaled(textInset), 0, scaled(textInset), 0);
    return label;
}

}

PanelContent::PanelContent(Services& services, const Windows& windows, QWidget* parent)
    : QWidget(parent),
      services_(services),
      words_(services.ports.translator),
      windows_(windows)
{
    auto* middle = new QWidget;
    auto* middleLayout = column(middle, 0, 10, 6);
    middleLayout->addWidget(makeRecent());
    middleLayout->addSpacing(scaled(8));
    middleLayout->addWidget(makeQuickControls());

    // With too little height, what is between the header and the actions scrolls.
    auto* scroll = new FittingScrollArea(middle);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(scroll, 1);
    layout->addWidget(new FullHairline);
    layout->addWidget(makeActions());

    clock_.setInterval(timesAreRightFor);
    connect(&clock_, &QTimer::timeout, this, [this] { showHistory(); });
    storeChange_ = services_.store.onChange([this] { showSettings(); });
    historyChange_ = services_.history.onChange([this] { showHistory(); });
    showSettings();
    showHistory();
}

QWidget* PanelContent::makeHeader()
{
    auto* header = new QWidget;
    auto* layout = column(header, 14, 10, 8);
    auto* name = new TextLabel(TextStyle::headline);
    name->setText(words_(texts::panelName));
    dot_ = new StatusDot;
    status_ = new TextLabel(TextStyle::subheadline, Ink::secondary);
    finishSetup_ = new QPushButton(words_(texts::finishSetup));
    ChimewellStyle::setDue(finishSetup_, true);
    connect(finishSetup_, &QPushButton::clicked, this, [this] {
        Q_EMIT done();
        windows_.openWalkthrough();
    });

    auto* line = new QHBoxLayout;
    line->setSpacing(scaled(6));
    line->addWidget(dot_);
    line->addWidget(status_, 1);
    auto* grid = new QGridLayout;
    grid->setContentsMargins(scaled(textInset), 0, scaled(textInset), 0);
    grid->setVerticalSpacing(scaled(2));
    grid->addWidget(name, 0, 0);
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
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(6));

    auto* heading = new TextLabel(TextStyle::subheadlineSemibold, Ink::secondary);
    heading->setText(words_(texts::recent));
    clear_ = new LinkButton(words_(texts::clear));
    connect(clear_, &QPushButton::clicked, this, [this] { services_.actions.clearHistory(); });
    auto* line = new QHBoxLayout;
    line->setContentsMargins(scaled(textInset), 0, scaled(textInset - 8), 0); // its text is on the edge
    line->addWidget(heading, 1);
    line->addWidget(clear_);
    layout->addLayout(line);

    auto* card = new Card;
    empty_ = new TextLabel(TextStyle::subheadline, Ink::secondary);
    empty_->setText(words_(texts::noRecentActivity));
    empty_->setCentred(true);
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
    more_ = inset(new TextLabel(TextStyle::caption, Ink::secondary));
    layout->addWidget(more_);
    return part;
}

QWidget* PanelContent::makeQuickControls()
{
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(6));

    auto* card = new Card;
    mute_ = new QuickRow(words_(texts::muteAll));
    connect(mute_->toggle(), &QAbstractButton::toggled, this,
            [this](bool muted) { services_.actions.setMuted(muted); });
    card->addRow(mute_, 36);
    for (const CanonicalEvent event : quickEvents) {
        const QString name = words_(displayName(event));
        auto* row = new QuickRow(name);
        row->setSymbol(iconName(event), Tone::secondary);
        auto* preview = row->addButton("play.circle", words_({texts::previewOf, {name.toStdString()}}));
        connect(preview, &QAbstractButton::clicked, this,
                [this, event] { services_.actions.preview(event); });
        connect(row->toggle(), &QAbstractButton::toggled, this, [this, event](bool isOn) {
            services_.actions.changeEvent(event, [&](EventSetting& setting) { setting.enabled = isOn; });
        });
        quick_.push_back({event, row, preview});
        card->addRow(row, 36);
    }
    layout->addWidget(card);
    auto* others = inset(new TextLabel(TextStyle::caption, Ink::secondary));
    others->setText(words_(texts::otherEvents));
    layout->addWidget(others);
    return part;
}

QWidget* PanelContent::makeActions()
{
    auto* part = new QWidget;
    auto* layout = column(part, 6, 8, 0);
    const auto add = [&](std::string_view symbol, const Text& text, std::function<void()> action) {
        auto* row = new ActionRow(symbol, words_(text));
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
    if (error) warning_->setNote("exclamationmark.triangle", Tone::red, words_(*error));
    warningCard_->setVisible(error.has_value());

    mute_->toggle()->show(settings.globalMuted);
    mute_->setSymbol(muteIcon(settings.globalMuted), settings.globalMuted ? Tone::orange : Tone::secondary);
    for (const Quick& quick : quick_) {
        const EventSetting* setting = settings.setting(quick.event);
        quick.row->setEnabled(setting != nullptr);
        quick.row->toggle()->show(setting && setting->enabled);
        quick.preview->setEnabled(setting && canPreview(*setting));
    }
    Q_EMIT heightChanged();
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
