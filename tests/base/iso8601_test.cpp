// SPDX-License-Identifier: MIT
#include "base/date_time.h"

#include <gtest/gtest.h>

#include <chrono>
#include <optional>
#include <string>

namespace chimewell::test {

using namespace std::chrono;
using namespace std::chrono_literals;

TEST(Iso8601Test, ReadsOffsetsAndFractionsAndWritesWholeSecondsInUtc)
{
    const Date noon = sys_days{2026y / March / 1} + 12h;
    const struct {
        std::string text;
        std::optional<Date> date;
    } cases[] = {
        {"2026-03-01T12:00:00Z", noon},
        {"2026-03-01T12:00:00.25Z", noon + 250ms},
        {"2026-03-01T12:00:00.1234567Z", noon + 123456us},
        {"2026-03-01T14:00:00+02:00", noon},
        {"2026-03-01T14:00:00+0200", noon},
        {"2026-03-01T06:30:00-05:30", noon},
        {"2024-02-29T00:00:00Z", Date(sys_days{2024y / February / 29})},
        {"2025-02-29T00:00:00Z", std::nullopt},
        {"2026-03-01T12:00:00", std::nullopt},
        {"2026-03-01 12:00:00Z", std::nullopt},
        {"2026-03-01T24:00:00Z", std::nullopt},
        {"2026-03-01T12:00:00.Z", std::nullopt},
        {"2026-03-01T12:00:00Zx", std::nullopt},
        {"+026-03-01T12:00:00Z", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseIso8601(c.text), c.date) << c.text;

    EXPECT_EQ(iso8601(noon + 999ms), "2026-03-01T12:00:00Z");
    EXPECT_EQ(iso8601(Date(-1us)), "1969-12-31T23:59:59Z");
}

}
