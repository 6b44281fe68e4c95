// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/settings/pane_column.h"
#include "ui/windows.h"
#include "ui/words.h"

namespace chimewell {

class ProviderCardView;

/// The agents that can tell us something. The card that was used last stays where it is on the screen while
/// others become higher or lower.
class ProvidersPane final : public PaneColumn {
    Q_OBJECT
public:
    explicit ProvidersPane(Services& services, QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void scrollBy(int pixels);

    QWidget* used_ = nullptr;
};

}
