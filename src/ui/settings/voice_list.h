// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "ui/windows.h"
#include "ui/words.h"

#include <QObject>

#include <vector>

namespace chimewell {

/// The voices that can be chosen. The speech service is asked once, when somebody first wants to know.
class VoiceList final : public QObject {
    Q_OBJECT
public:
    explicit VoiceList(Services& services, QObject* parent = nullptr);

    void ask();
    /// None before the service answered.
    const std::vector<Voice>& voices() const { return voices_; }

Q_SIGNALS:
    void changed();

private:
    Services& services_;
    std::vector<Voice> voices_;
    bool isAsked_ = false;
};

}
