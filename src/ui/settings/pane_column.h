// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

class QVBoxLayout;

namespace chimewell {

class Card;
class Note;
class SwitchButton;
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

/// A label with a control at the end of its line.
class SettingRow final : public QWidget {
    Q_OBJECT
public:
    SettingRow(const QString& label, QWidget* control, QWidget* parent = nullptr);

    TextLabel* label() const { return label_; }

private:
    TextLabel* label_;
};

/// A label with a switch at the end of its line; below, if need be, what it means and what went wrong.
class SwitchRow final : public QWidget {
    Q_OBJECT
public:
    explicit SwitchRow(const QString& label, const QString& caption = {}, QWidget* parent = nullptr);

    SwitchButton* control() const { return switch_; }
    void showError(const QString& message);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    TextLabel* label_;
    SwitchButton* switch_;
    Note* error_;
};

}
