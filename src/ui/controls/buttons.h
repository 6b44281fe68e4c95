// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QPushButton>
#include <QVariantAnimation>

#include <string>
#include <string_view>

namespace chimewell {

/// A borderless button that shows a symbol alone.
class IconButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is its accessible name and, unless another one is set, its tooltip.
    IconButton(std::string_view symbol, const QString& name, QWidget* parent = nullptr);

    void setSymbol(std::string_view symbol);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

/// A button without a ground, whose words have the colour of links.
class LinkButton final : public QPushButton {
    Q_OBJECT
public:
    explicit LinkButton(const QString& text, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void follow();

    bool isFollowing_ = false;
};

/// Turns a whole thing on or off.
class SwitchButton final : public QAbstractButton {
    Q_OBJECT
public:
    /// `name` is what those hear who do not see the row.
    explicit SwitchButton(const QString& name, QWidget* parent = nullptr);

    /// Without the sliding and without telling anybody.
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

/// A line of a menu: a symbol and what it does.
class ActionRow final : public QAbstractButton {
    Q_OBJECT
public:
    ActionRow(std::string_view symbol, const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

/// A whole row that leads somewhere: what it is and an arrow.
class ActivatableRow final : public QAbstractButton {
    Q_OBJECT
public:
    explicit ActivatableRow(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
