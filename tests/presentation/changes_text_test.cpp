// SPDX-License-Identifier: MIT
#include "presentation/provider_card.h"

#include <gtest/gtest.h>

namespace chimewell::test {
namespace {

TEST(ChangesText, MarksTheLinesOnlyWhereSomeGoAndOthersCome)
{
    using Kind = HookChange::Kind;
    EXPECT_EQ(changesText({{Kind::added, "a: [\n]"}, {Kind::added, "b"}}), "a: [\n]\nb");
    EXPECT_EQ(changesText({{Kind::removed, "a: [\n]"}, {Kind::added, "b"}}), "- a: [\n- ]\n+ b");
    EXPECT_EQ(changesText({}), "");
}

}
}
