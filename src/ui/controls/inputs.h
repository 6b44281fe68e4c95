// SPDX-License-Identifier: MIT
#pragma once

#include "ui/look/words.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>

#include <string>
#include <string_view>

namespace chimewell {

/// A line of text to be edited. `editingFinished` also comes when the field is hidden during editing.
class Field final : public QLineEdit {
    Q_OBJECT
public:
    explicit Field(const QString& name);

    /// Does nothing while the user is writing.
    void showText(const QString& text);

protected:
    void hideEvent(QHideEvent* event) override;
};

/// A choice of one among several. The mouse wheel scrolls the pane and does not change the choice.
class Picker : public QComboBox {
    Q_OBJECT
public:
    /// `name` says what is chosen.
    explicit Picker(const QString& name);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// A choice among all sounds and silence.
class SoundPicker final : public Picker {
    Q_OBJECT
public:
    SoundPicker(const Words& words, const QString& name);

    /// Shows no choice where there is no such sound. Emits no signal.
    void show(std::string_view soundId);

Q_SIGNALS:
    /// The user chose it.
    void soundChosen(const std::string& soundId);
};

/// Changes a whole number by one: two halves with a hairline between them. The row's text shows the number.
class Stepper final : public QSpinBox {
    Q_OBJECT
public:
    explicit Stepper(const QString& name);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    /// -1 for the minus half, 1 for the plus half.
    int halfAt(const QPoint& position) const;
    void repeatAfter(int milliseconds);

    int pressed_ = 0;
    int timer_ = 0;
};

}
