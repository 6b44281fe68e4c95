// SPDX-License-Identifier: MIT
#pragma once

#include "ui/words.h"

#include <QWidget>

namespace chimewell {

/// What the walkthrough is about, and that it may be left at once.
class WelcomeStep final : public QWidget {
    Q_OBJECT
public:
    explicit WelcomeStep(const Words& words, QWidget* parent = nullptr);
};

}
