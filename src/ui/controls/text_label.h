// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"
#include "ui/look/metrics.h"

#include <QLabel>

namespace chimewell {

/// A text in one of the design's styles. Follows the desktop's font and colours.
class TextLabel : public QLabel {
    Q_OBJECT
public:
    explicit TextLabel(TextStyle style, Tone tone = Tone::neutral, const QString& text = {});

    /// Keeps a dash or an arrow on the line of the word before it.
    void setText(const QString& text);
    /// The same with **bold** parts.
    void setMarkedText(const QString& text);
    void setTone(Tone tone);
    /// By mouse and by keyboard, to be copied.
    void makeSelectable();
    void setCentred();
    QSize minimumSizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void setParagraph(const QString& html);
    void applyStyle();

    TextStyle style_;
    Tone tone_;
    QString paragraph_; ///< Of a label with several lines; empty for others.
    bool isCentred_ = false;
    bool isApplying_ = false; ///< Applying changes the palette and font, which calls changeEvent.
};

/// A label that breaks its text into as many lines as it takes.
TextLabel* makeParagraph(TextStyle style, Tone tone = Tone::neutral, const QString& text = {});

/// A centred text whose lines are about equally long: as narrow as it can be without another line.
class BalancedLabel final : public TextLabel {
    Q_OBJECT
public:
    /// No line is longer than `widest`, in pixels.
    BalancedLabel(TextStyle style, Tone tone, int widest);

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

/// One line that ends in "…" where there is no room. Its tooltip then has the whole text.
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
