// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"
#include "presentation/panel_model.h"
#include "ui/look/words.h"

#include <QWidget>

#include <functional>
#include <string_view>

namespace chimewell {

class ElidedLabel;
class IconButton;
class SwitchButton;
class SymbolLabel;
class TextLabel;

/// A filled circle of eight pixels.
class StatusDot final : public QWidget {
    Q_OBJECT
public:
    StatusDot() { setFixedSize(8, 8); }

    void setTone(Tone tone);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Tone tone_ = Tone::orange;
};

/// A symbol, a name and a switch, which a click on any of them presses.
class QuickRow final : public QWidget {
    Q_OBJECT
public:
    explicit QuickRow(const QString& name);

    SwitchButton* toggle() const { return switch_; }
    void setSymbol(std::string_view symbol, Tone tone);
    /// A few words before the switch, which also describe it; none where it is empty.
    void setDetail(const QString& detail);
    /// Puts a button before the switch.
    IconButton* addButton(std::string_view symbol, const QString& name);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    SymbolLabel* icon_;
    TextLabel* detail_;
    SwitchButton* switch_;
};

/// One past alert in the panel: what it was, when, and a button that opens its session.
class RecentPanelRow final : public QWidget {
    Q_OBJECT
public:
    RecentPanelRow(const Words& words, std::function<void(const RecentRow&)> openSession);

    void show(const RecentRow& row);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const Words words_;
    std::function<void(const RecentRow&)> openSession_;
    RecentRow row_;
    SymbolLabel* icon_;
    ElidedLabel* title_;
    TextLabel* time_;
    ElidedLabel* message_;
    IconButton* open_;
};

}
