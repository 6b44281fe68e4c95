// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QWidget>

namespace chimewell {

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

}
