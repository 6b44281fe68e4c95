// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace chimewell {

class TextLabel;

/// A label with a control at the end of its line.
class SettingRow final : public QWidget {
    Q_OBJECT
public:
    SettingRow(const QString& label, QWidget* control, QWidget* parent = nullptr);

    TextLabel* label() const { return label_; }

private:
    TextLabel* label_;
};

}
