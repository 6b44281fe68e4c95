// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "ui/words.h"

#include <QWidget>

#include <string_view>

class QGridLayout;

namespace chimewell {

/// Agent, hook and Chimewell, joined by arrows.
class FlowDiagram final : public QWidget {
    Q_OBJECT
public:
    explicit FlowDiagram(const Words& words, QWidget* parent = nullptr);

private:
    void addNode(QGridLayout& grid, std::string_view symbol, const QString& name);
};

}
