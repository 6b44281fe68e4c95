// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace chimewell {

class Card;
class TextLabel;

/// One part of the settings: a column of cards with headings, in the middle where there is more room than it
/// takes.
class PaneColumn : public QWidget {
    Q_OBJECT
protected:
    explicit PaneColumn(QWidget* parent = nullptr);

    /// A line above the first card, with a control at its end if need be.
    void addIntro(const QString& text, QWidget* trailing = nullptr);
    void addHeading(const QString& text);
    /// Cards follow one another with room between them; the one after a heading belongs to it.
    Card* addCard();
    void addSection(QWidget* section);
    /// The rest stays empty.
    void finish();
    QVBoxLayout* column() const { return column_; }

    void resizeEvent(QResizeEvent* event) override;

private:
    void centre();

    QVBoxLayout* column_;
    bool isAfterCard_ = false;
};

}
