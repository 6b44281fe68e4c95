// SPDX-License-Identifier: MIT
#pragma once

#include "ui/interface_services.h"

#include <QWidget>

namespace chimewell {

/// What the two most important events sound like, and how we go on from here.
class SoundsStep final : public QWidget {
    Q_OBJECT
public:
    explicit SoundsStep(const InterfaceServices& services, QWidget* parent = nullptr);

private:
    QWidget* makeSounds(const InterfaceServices& services);
    QWidget* makeClosingNote(const Words& words);
};

}
