// SPDX-License-Identifier: MIT
#include "platform/macos/avf_speech_synthesizer.h"

#include "fakes/speech.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>
#include <vector>

namespace chimewell::test {

TEST(AvfSpeechSynthesizerTest, SpeaksWithTheVoiceThatIsThere)
{
    mac::speech().installed = {{"com.voice.anna", "Anna", "de-DE"}, {"com.voice.zoe", "Zoe", "en-US"}};
    AvfSpeechSynthesizer synthesizer;
    synthesizer.speak("fertig ✓", "com.voice.anna");
    synthesizer.speak("done", "com.voice.gone");
    synthesizer.speak("done", std::nullopt);
    synthesizer.speak("done", "Zoe"); // a name is no identifier
    const float rate = mac::defaultSpeechRate;
    EXPECT_EQ(mac::speech().spoken, (std::vector<mac::Utterance>{{"fertig ✓", "com.voice.anna", rate, 1},
                                                                 {"done", "", rate, 1},
                                                                 {"done", "", rate, 1},
                                                                 {"done", "", rate, 1}}));
}

TEST(AvfSpeechSynthesizerTest, ListsEveryVoice)
{
    AvfSpeechSynthesizer synthesizer;
    std::vector<std::vector<Voice>> answers;
    const auto list = [&] {
        synthesizer.listVoices([&](auto voices) { answers.push_back(std::move(voices)); });
    };
    list();
    const std::vector<Voice> installed = {{"a", "Élodie", "fr-FR"}, {"b", "Zoe", "en-US"}};
    mac::speech().installed = installed;
    list();
    EXPECT_EQ(answers, (std::vector<std::vector<Voice>>{{}, installed}));
}

}
