// SPDX-License-Identifier: MIT
#pragma once

#include "ui/words.h"

#include <QWidget>

namespace chimewell {

/// How an alert comes about, as a picture.
class HowItWorksStep final : public QWidget {
    Q_OBJECT
public:
    explicit HowItWorksStep(const Words& words, QWidget* parent = nullptr);
};

}
