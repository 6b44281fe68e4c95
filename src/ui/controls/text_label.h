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

/// A centred text whose lines are about equally long: as narrow as it can be without another line.
class BalancedLabel final : public TextLabel {
    Q_OBJECT
public:
    /// No line is longer than `widest`, in pixels.
    BalancedLabel(TextStyle style, Ink ink, int widest, QWidget* parent = nullptr);

    void setText(const QString& text);
    void setMarkedText(const QString& text);
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void balance();

    int widest_;
};

/// One line that ends in "…" where there is no room; the whole stands in its tooltip.
class ElidedLabel final : public TextLabel {
    Q_OBJECT
public:
    using TextLabel::TextLabel;

    void setFullText(const QString& text);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString full_;
};

}
