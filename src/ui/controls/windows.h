// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <initializer_list>

class QAbstractButton;
class QWidget;

namespace chimewell {

/// Opens another window, or brings it forward: there is one of each.
struct Windows {
    std::function<void()> openSettings;
    std::function<void()> openOnboarding;
};

/// The keys of every window: Ctrl+W closes it, Ctrl+comma opens the settings, Ctrl+Q quits, Alt underlines
/// the letters that press buttons.
void addWindowKeys(QWidget& window, const std::function<void()>& openSettings,
                   const std::function<void()>& quit);
/// While Alt is held, underlines the letters that press the window's buttons.
void underlineMnemonicsWithAlt(QWidget& window);

/// Lets Alt and a letter press each button: the first letter of its text that no button before it has. Call
/// it again after changing a text.
void setMnemonics(std::initializer_list<QAbstractButton*> buttons);
/// The text without the mark of its letter.
QString withoutMnemonic(QString text);

}
