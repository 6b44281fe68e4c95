// SPDX-License-Identifier: MIT
#include "events/session_focus.h"

#include "support/fake_system.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace chimewell::test {

using Asked = std::vector<std::string>;

class SessionFocusTest : public ::testing::Test {
protected:
    SessionFocusTest() { workspace.paths = {{"/proj", FileKind::folder}, {"/proj/file", FileKind::regular}}; }
    Asked focus(const std::optional<std::string>& term, const std::optional<std::string>& cwd)
    {
        workspace.asked.clear();
        SessionFocus(workspace).focusSession(term, cwd);
        return workspace.asked;
    }

    RecordingWorkspace workspace;
};

TEST_F(SessionFocusTest, PrefersTheTerminalAndElseShowsTheFolder)
{
    workspace.installed = {"com.googlecode.iterm2"};
    workspace.running = {"net.kovidgoyal.kitty"};
    EXPECT_EQ(focus("iTerm.app", "/proj"), (Asked{"open com.googlecode.iterm2"}));
    EXPECT_EQ(focus("kitty", "/proj"), (Asked{"activate net.kovidgoyal.kitty"}));
    EXPECT_EQ(focus("Hyper", "/proj"), (Asked{"activate co.zeit.hyper", "folder /proj"}));
    EXPECT_EQ(focus("iterm.app", "/proj"), (Asked{"folder /proj"})); // names are exact
    EXPECT_EQ(focus("xterm-256color", "/proj"), (Asked{"folder /proj"}));
    EXPECT_EQ(focus(std::nullopt, "/proj"), (Asked{"folder /proj"}));
}

TEST_F(SessionFocusTest, NeverOpensWhatIsNoFolder)
{
    EXPECT_EQ(focus(std::nullopt, "/proj/file"), (Asked{"reveal /proj/file"}));
    EXPECT_EQ(focus(std::nullopt, "/gone"), Asked{});
    EXPECT_EQ(focus(std::nullopt, "proj"), Asked{});
    EXPECT_EQ(focus(std::nullopt, std::string("/proj\0", 6)), Asked{});
    EXPECT_EQ(focus(std::nullopt, std::nullopt), Asked{});
    workspace.fileManager = false;
    EXPECT_EQ(focus(std::nullopt, "/proj"), (Asked{"reveal /proj"}));
}

}
