// SPDX-License-Identifier: MIT
#include "ui/walkthrough/how_it_works_step.h"

#include "ui/look/metrics.h"
#include "ui/walkthrough/flow_diagram.h"

#include <QVBoxLayout>

namespace chimewell {

HowItWorksStep::HowItWorksStep(const Words& words, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, scaled(20), 0, 0);
    layout->addWidget(new FlowDiagram(words), 0, Qt::AlignHCenter);
}

}
