// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <initializer_list>

class QAbstractButton;

namespace chimewell {

/// Alt and a letter of its own then press each button: the first letter of its text that no button before it
/// has. Texts that are set later lose it.
void setMnemonics(std::initializer_list<QAbstractButton*> buttons);
/// The text as it is read.
QString withoutMnemonic(QString text);

}
