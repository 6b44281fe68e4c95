// SPDX-License-Identifier: MIT
#include "ui/controls/confirm_dialog.h"

#include "window_test.h"

namespace chimewell::test {
namespace {

class ConfirmDialogTest : public WindowTest {
protected:
    void ask(PendingAction action)
    {
        const ProviderCard& card = *fakes.services.cards.all().front();
        auto* dialog = new ConfirmDialog(card.confirmation(action), fakes.words, nullptr);
        QObject::connect(dialog, &QDialog::finished, dialog, [this](int result) { answered = result; });
        open(dialog);
    }

    int answered = -1;
};

TEST_F(ConfirmDialogTest, ReturnIsYesOnlyWhereNothingIsTakenAway)
{
    struct Case {
        PendingAction action;
        Qt::Key key;
        QDialog::DialogCode answer;
    };
    for (const auto& [action, key, answer] :
         {Case{PendingAction::install, Qt::Key_Return, QDialog::Accepted},
          Case{PendingAction::uninstall, Qt::Key_Return, QDialog::Rejected},
          Case{PendingAction::restore, Qt::Key_Return, QDialog::Rejected},
          Case{PendingAction::update, Qt::Key_Escape, QDialog::Rejected}}) {
        ask(action);
        press(key);
        EXPECT_EQ(answered, answer) << static_cast<int>(action);
        EXPECT_FALSE(window);
    }
}

}
}
