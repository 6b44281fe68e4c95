// SPDX-License-Identifier: MIT
#include "agent_inputs.h"

#include <array>
#include <string_view>

namespace chimewell::benchmarks {

std::string settingsText(std::size_t atLeast)
{
    static constexpr std::array<std::string_view, 4> prompts{
        R"(Please look at the failing test in `tests/router_test.cpp` and tell me why it only fails when the machine is under load. Don't change anything yet.)",
        R"(Add a \"--dry-run\" flag to the importer.\n\nRequirements:\n- print what would be written\n- exit with status 0\n\tand leave the files alone\n- mention it in docs\/usage.md)",
        R"(Übersetze die Fehlermeldungen ins Französische: « Le fichier n’a pas pu être lu » statt \"could not read\" — danke! 🎉)",
        R"(C:\\Users\\dev\\project\\build\\out.log shows \u001b[31merror\u001b[0m: undefined reference to `main'. caf\u00e9 \ud83d\ude00)",
    };
    static constexpr std::array<std::string_view, 8> numbers{
        "0", "600", "1.50", "-0", "1E3", "1.25e-3", "1763850000123", "12345678901234567890123"};
    std::string text;
    text.reserve(atLeast + 4096);
    text += "{\n  \"version\": 1.10,\n  \"includeCoAuthoredBy\": false,\n  \"projects\": {";
    for (std::size_t i = 0; i == 0 || text.size() < atLeast; ++i) {
        const std::string id = std::to_string(i);
        text += i == 0 ? "\n" : ",\n";
        text += "    \"/home/dev/src/project-" + id + "\": {\n";
        text += "      \"hooks\": {\n        \"Stop\": [\n          {\n            \"matcher\": \"\",\n"
                "            \"hooks\": [\n              {\n                \"type\": \"command\",\n"
                "                \"command\": \"\\\"/opt/tools/notify-" +
                id +
                "\\\" --event finished || true\",\n"
                "                \"timeout\": ";
        text += numbers[i % numbers.size()];
        text += "\n              }\n            ]\n          }\n        ]\n      },\n";
        text += "      \"permissions\": {\n        \"allow\": [\n          \"Bash(npm run test:*)\",\n"
                "          \"Bash(git diff:*)\",\n          \"Read(//home/dev/**)\"\n        ],\n"
                "        \"deny\": []\n      },\n";
        text += "      \"history\": [\n";
        for (std::size_t entry = 0; entry < 3; ++entry) {
            text += "        {\n          \"display\": \"";
            text += prompts[(i + entry) % prompts.size()];
            text +=
                "\",\n          \"pastedContents\": {},\n          \"timestamp\": 17638" + id + "\n        }";
            text += entry == 2 ? "\n" : ",\n";
        }
        text += "      ],\n      \"lastCost\": ";
        text += numbers[(i + 3) % numbers.size()];
        text += ",\n      \"lastSessionId\": \"3f0c2b6e-9d41-4c55-8a37-0b7d5e1f" + id + "\",\n";
        text += "      \"hasTrustDialogAccepted\": true,\n      \"mcpServers\": null\n    }";
    }
    text += "\n  }\n}\n";
    return text;
}

std::string eventUrl(std::string_view type, std::size_t session)
{
    std::string url = "chimewell://event?type=" + std::string(type) +
                      "&provider=claude&session=5eed0000-0000-4000-8000-" +
                      std::to_string(session + 100'000'000'000) +
                      "&cwd=%2Fhome%2Fdev%2Fsrc%2Fproject&term=xterm&ts=1763850000&v=1&message=";
    constexpr std::string_view sentence = "All%20tests%20pass.%20";
    while (url.size() + sentence.size() <= 600)
        url += sentence;
    url.resize(600, '.');
    return url;
}

}
