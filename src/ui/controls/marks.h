// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"
#include "presentation/provider_card.h"
#include "ui/controls/text_label.h"

#include <QWidget>

#include <string>
#include <string_view>

namespace chimewell {

/// A symbol that is no control.
class SymbolLabel final : public QWidget {
    Q_OBJECT
public:
    /// `size` is a design length.
    SymbolLabel(std::string_view name, double size, Tone tone, QWidget* parent = nullptr);

    void setSymbol(std::string_view name, Tone tone);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string name_;
    double size_;
    Tone tone_;
};

/// A filled circle of eight pixels.
class StatusDot final : public QWidget {
    Q_OBJECT
public:
    explicit StatusDot(QWidget* parent = nullptr);

    void setTone(Tone tone);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Tone tone_ = Tone::orange;
};

/// A short word on a capsule of its own colour.
class CapsuleLabel : public QWidget {
    Q_OBJECT
public:
    QSize sizeHint() const override;

protected:
    using QWidget::QWidget;
    void show(const QString& text, Tone tone);
    void paintEvent(QPaintEvent* event) override;
    virtual QFont capsuleFont() const = 0;

private:
    QString text_;
    Tone tone_ = Tone::secondary;
};

/// What an agent's file says about our hooks.
class StatusPillLabel final : public CapsuleLabel {
    Q_OBJECT
public:
    explicit StatusPillLabel(QWidget* parent = nullptr);
    void setPill(StatusPill::Kind kind, const QString& text);

private:
    QFont capsuleFont() const override;
};

/// Marks an integration as newer than the others.
class BetaBadge final : public CapsuleLabel {
    Q_OBJECT
public:
    BetaBadge(const QString& text, const QString& tooltip, QWidget* parent = nullptr);

private:
    QFont capsuleFont() const override;
};

/// A mark and a text of as many lines as it takes, which can be copied. The colour is the mark's alone.
class Note final : public QWidget {
    Q_OBJECT
public:
    explicit Note(TextStyle style = TextStyle::caption, Ink ink = Ink::text, QWidget* parent = nullptr);

    void setNote(std::string_view symbol, Tone tone, const QString& text);
    TextLabel* label() const { return text_; }

private:
    SymbolLabel* mark_;
    TextLabel* text_;
};

}
