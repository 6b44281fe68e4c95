// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace chimewell::test::mac {

/// What a fake does when a test ends.
struct TestEnd {
    /// Says what an adapter should have taken back and did not; empty when all is well.
    std::function<std::string()> leftover;
    std::function<void()> reset;
};

inline std::vector<TestEnd>& testEnds()
{
    static std::vector<TestEnd> all;
    return all;
}

/// The state of a fake, which begins anew with each test. It may say what is `leftover()` of the last one.
template<typename State>
class PerTest {
public:
    PerTest()
    {
        testEnds().push_back({[this] { return leftover(state_); }, [this] { state_ = State(); }});
    }
    PerTest(const PerTest&) = delete;
    PerTest& operator=(const PerTest&) = delete;

    State& operator*() { return state_; }
    State* operator->() { return &state_; }

private:
    static std::string leftover(const State& state)
    {
        if constexpr (requires { state.leftover(); }) return state.leftover();
        return {};
    }

    State state_;
};

}
