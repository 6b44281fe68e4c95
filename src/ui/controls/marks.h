// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/text_label.h"
#include "ui/look/words.h"

#include <QWidget>

#include <string>
#include <string_view>

namespace chimewell {

/// A symbol that is no control.
class SymbolLabel final : public QWidget {
    Q_OBJECT
public:
    /// `size` is a design length.
    SymbolLabel(std::string_view name, double size, Tone tone = Tone::secondary);

    void setSymbol(std::string_view name, Tone tone);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string name_;
    double size_;
    Tone tone_;
};

/// A short word on a capsule of its own colour.
class CapsuleLabel final : public QWidget {
    Q_OBJECT
public:
    explicit CapsuleLabel(TextStyle style);

    void show(const QString& text, Tone tone);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextStyle style_;
    QString text_;
    Tone tone_ = Tone::secondary;
};

/// Marks an integration as newer than the others.
CapsuleLabel* makeBetaBadge(const Words& words);

/// A mark and a text of as many lines as it takes, which can be copied. The colour is the mark's alone.
class Note final : public QWidget {
    Q_OBJECT
public:
    explicit Note(TextStyle style = TextStyle::caption, Tone textTone = Tone::neutral);

    void setNote(std::string_view symbol, Tone tone, const QString& text);
    /// Hides the note where `message` is empty.
    void showError(const QString& message);
    TextLabel* label() const { return text_; }

private:
    SymbolLabel* mark_;
    TextLabel* text_;
};

}
