// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QVariantAnimation>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace chimewell {

/// A borderless button that shows a symbol alone.
class IconButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is its accessible name and, unless another one is set, its tooltip.
    IconButton(std::string_view symbol, const QString& name);

    void setSymbol(std::string_view symbol);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

/// Makes the button as wide as with the widest of the texts, so that nothing moves when they change.
void reserveWidth(QPushButton& button, std::initializer_list<QString> texts);

/// A button without a background, whose text has the colour of links or that of `tone`.
class LinkButton final : public QPushButton {
    Q_OBJECT
public:
    explicit LinkButton(const QString& text, Tone tone = Tone::accent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void applyColour();

    Tone tone_;
};

/// An on-off switch with a sliding knob.
class SwitchButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is the accessible name.
    explicit SwitchButton(const QString& name);

    /// Changes the state at once and emits no signal.
    void show(bool isOn);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }

private:
    void slide();

    QVariantAnimation knob_;
    qreal place_ = 0; ///< Of the knob: 0 off, 1 on.
};

/// A whole row that is a button: a symbol and a text.
class RowButton final : public QAbstractButton {
    Q_OBJECT
public:
    enum class Kind : std::uint8_t {
        menuLine, ///< The symbol comes before the text.
        cardRow   ///< The symbol comes at the end of the line. Fills its card.
    };
    RowButton(Kind kind, std::string_view symbol, const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Kind kind_;
    std::string symbol_;
};

}
