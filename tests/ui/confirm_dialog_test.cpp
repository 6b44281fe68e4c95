// SPDX-License-Identifier: MIT
#include "support/windows_on_fakes.h"
#include "ui/controls/confirm_dialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <string>

namespace chimewell::test {
namespace {

class ConfirmDialogTest : public ::testing::Test {
protected:
    ~ConfirmDialogTest() override { delete dialog; }

    void ask(PendingAction action)
    {
        delete dialog;
        dialog =
            new ConfirmDialog(fakes.services.cards.all().front()->confirmation(action), fakes.words, nullptr);
        QObject::connect(dialog, &QDialog::accepted, dialog, [this] { ++yes; });
        QObject::connect(dialog, &QDialog::rejected, dialog, [this] { ++no; });
        dialog->open();
        QApplication::processEvents();
    }
    QAbstractButton* fold()
    {
        for (auto* button : dialog->findChildren<QAbstractButton*>())
            if (button->isCheckable()) return button;
        return nullptr;
    }

    WindowsOnFakes fakes;
    QPointer<ConfirmDialog> dialog;
    int yes = 0;
    int no = 0;
};

TEST_F(ConfirmDialogTest, ReturnIsYesOnlyWhereNothingIsTakenAway)
{
    ask(PendingAction::install);
    QTest::keyClick(dialog, Qt::Key_Return);
    EXPECT_EQ(yes, 1);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(dialog);
    for (const PendingAction action : {PendingAction::uninstall, PendingAction::restore}) {
        ask(action);
        QTest::keyClick(dialog, Qt::Key_Return);
    }
    ask(PendingAction::update);
    QTest::keyClick(dialog, Qt::Key_Escape);
    EXPECT_EQ(yes, 1);
    EXPECT_EQ(no, 3);
}

TEST_F(ConfirmDialogTest, ShowsTheEntriesOnDemandWhereTheyAreKnown)
{
    ask(PendingAction::install);
    auto* entries = dialog->findChild<QPlainTextEdit*>();
    ASSERT_TRUE(entries);
    EXPECT_FALSE(entries->isVisible());
    const int height = dialog->height();
    fold()->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog->height() > height + entries->height(); }))
        << dialog->height() << " " << height << " " << entries->height();
    EXPECT_TRUE(entries->isVisible());
    EXPECT_EQ(entries->toPlainText().toStdString().find("\"Stop\": [\n  {\n"), 0U);
    EXPECT_TRUE(entries->isReadOnly());

    ask(PendingAction::uninstall); // there are none
    EXPECT_EQ(dialog->findChild<QPlainTextEdit*>()->toPlainText(),
              QStringLiteral("The file holds these entries already."));
    fakes.system.files.contents["/home/me/.claude/settings.json"] = "{";
    ask(PendingAction::install);
    EXPECT_FALSE(fold());
}

}
}
