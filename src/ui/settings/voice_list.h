// SPDX-License-Identifier: MIT
#pragma once

#include "ui/interface_services.h"

#include <QObject>

#include <vector>

namespace chimewell {

/// The voices that can be chosen. The speech service is asked once, when somebody first wants to know.
class VoiceList final : public QObject {
    Q_OBJECT
public:
    explicit VoiceList(const InterfaceServices& services, QObject* parent = nullptr);

    void ask();
    /// None before the service answered.
    const std::vector<Voice>& voices() const { return voices_; }

Q_SIGNALS:
    void changed();

private:
    const InterfaceServices& services_;
    std::vector<Voice> voices_;
    bool isAsked_ = false;
};

}
