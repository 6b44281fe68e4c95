// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <string_view>

class QVBoxLayout;

namespace chimewell {

class Note;
class SwitchButton;
class TextLabel;

/// A framed container of rows, one below the other, with hairlines between those that are shown.
class Card final : public QWidget {
    Q_OBJECT
public:
    Card();

    /// For a card with one content and no rows. `padding` on all four sides is a design length.
    void setContent(QWidget* content, double padding);
    /// The hairline above the row begins `textStart`, a design length, from the card's leading edge.
    void addRow(QWidget* row, double textStart = 12);
    void insertRow(int index, QWidget* row, double textStart);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* layout_;
};

/// A label with a control at the end of its line.
class SettingRow final : public QWidget {
    Q_OBJECT
public:
    SettingRow(const QString& label, QWidget* control);

    TextLabel* label() const { return label_; }

private:
    TextLabel* label_;
};

/// A label with a switch at the end of its line. Below are its caption, if any, and an error.
class SwitchRow final : public QWidget {
    Q_OBJECT
public:
    /// With a symbol before the label, a click anywhere in the row presses the switch; without, one on the
    /// label does.
    explicit SwitchRow(const QString& label, const QString& caption = {}, std::string_view symbol = {});

    SwitchButton& control() const { return *switch_; }
    /// What is below the label, and describes the switch; nothing where it is empty.
    void setCaption(const QString& caption);
    /// Shows no error where `message` is empty.
    void showError(const QString& message);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    bool hasSymbol_;
    TextLabel* label_;
    SwitchButton* switch_;
    TextLabel* caption_;
    Note* error_;
};

}
