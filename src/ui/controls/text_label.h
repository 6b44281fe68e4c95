// SPDX-License-Identifier: MIT
#pragma once

#include "ui/look/metrics.h"

#include <QLabel>

#include <cstdint>

namespace chimewell {

/// What a text's colour tells.
enum class Ink : std::uint8_t { text, secondary, accent, green, orange, red };

/// A text in one of the design's styles. Follows the desktop's font and colours.
class TextLabel : public QLabel {
    Q_OBJECT
public:
    explicit TextLabel(TextStyle style, Ink ink = Ink::text, QWidget* parent = nullptr);

    /// No line begins with a dash or an arrow.
    void setText(const QString& text);
    /// The same with **bold** parts.
    void setMarkedText(const QString& text);
    void setInk(Ink ink);
    /// Lines are broken; as many as it takes.
    void setWrapping(bool wraps);
    /// By mouse and by keyboard, to be copied.
    void setSelectable(bool isSelectable);
    void setCentred(bool isCentred);
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void follow();

    TextStyle style_;
    Ink ink_;
    bool isCentred_ = false;
    bool isFollowing_ = false;
};

}
