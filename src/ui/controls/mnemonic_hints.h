// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace chimewell {

/// Underlines the letters that press a button with Alt, while Alt is held in the window and only then.
/// Belongs to the window.
class MnemonicHints final : public QObject {
    Q_OBJECT
public:
    explicit MnemonicHints(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window_;
};

}
