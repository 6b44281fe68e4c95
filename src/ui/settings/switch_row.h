// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

namespace chimewell {

class Note;
class SwitchButton;
class TextLabel;

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
