// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QWidget>

namespace chimewell {

/// What the two most important events sound like, and how we go on from here.
class SoundsStep final : public QWidget {
    Q_OBJECT
public:
    explicit SoundsStep(Services& services, QWidget* parent = nullptr);

private:
    QWidget* makeSounds(Services& services);
    QWidget* makeClosingNote(const Words& words);
};

}
