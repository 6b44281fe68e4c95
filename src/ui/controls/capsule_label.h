// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"
#include "presentation/provider_card.h"

#include <QWidget>

namespace chimewell {

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

}
