// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <initializer_list>

class QAbstractButton;
class QWidget;

namespace chimewell {

/// Opens another window, or brings it forward: there is one of each.
struct Windows {
    std::function<void()> openSettings;
    std::function<void()> openWalkthrough;
};

/// Alt and a letter of its own then press each button: the first letter of its text that no button before it
/// has. Texts that are set later lose it.
void setMnemonics(std::initializer_list<QAbstractButton*> buttons);
/// The text as it is read.
QString withoutMnemonic(QString text);

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

/// The keys of every window: Ctrl+W closes it, Ctrl+comma opens the settings, Ctrl+Q quits; Alt and an
/// underlined letter press a button.
struct WindowKeys {
    std::function<void()> openSettings;
    std::function<void()> quit;

    void addTo(QWidget* window) const;
};

}
