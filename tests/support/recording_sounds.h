// SPDX-License-Identifier: MIT
#pragma once

#include "ports/system_sounds.h"

#include <cstddef>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace chimewell::test {

/// Remembers which sounds were played, in order, and which of them were stopped.
class RecordingSounds : public SystemSounds {
public:
    struct Played {
        std::string name;
        bool playing = false;
        bool stopped = false;
    };

    std::unique_ptr<chimewell::Sound> named(std::string_view name) override
    {
        if (missing.contains(std::string(name))) return nullptr;
        return std::make_unique<Recorded>(std::string(name), *this);
    }
    void finishAll()
    {
        for (const auto& sound : played)
            sound->playing = false;
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> list;
        for (const auto& sound : played)
            list.push_back(sound->name);
        return list;
    }

    std::vector<std::shared_ptr<Played>> played;
    std::set<std::string> missing;

private:
    class Recorded : public chimewell::Sound {
    public:
        Recorded(std::string name, RecordingSounds& sounds)
            : state_(std::make_shared<Played>(std::move(name))),
              sounds_(sounds)
        {
        }
        void play() override
        {
            state_->playing = true;
            sounds_.played.push_back(state_);
        }
        void stop() override
        {
            state_->playing = false;
            state_->stopped = true;
        }
        bool isPlaying() const override { return state_->playing; }

    private:
        std::shared_ptr<Played> state_;
        RecordingSounds& sounds_;
    };
};

}
