// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"

#include <QWidget>

#include <vector>

namespace chimewell {

/// The voices that can be chosen. The speech service is asked once, when they are first needed.
class VoiceList final : public QObject {
    Q_OBJECT
public:
    VoiceList(Services& services, QObject* parent);

    void ask();
    /// Empty before the service has answered.
    const std::vector<Voice>& voices() const { return voices_; }

Q_SIGNALS:
    void changed();

private:
    Services& services_;
    std::vector<Voice> voices_;
    bool isAsked_ = false;
};

/// One event in the settings: a header with its switch, and the options of its alert below. Follows the
/// stored settings. `voices` outlives it.
QWidget* makeEventRow(Services& services, CanonicalEvent event, VoiceList& voices);

}
