// SPDX-License-Identifier: MIT
#pragma once

#include "core/services.h"
#include "support/fake_system.h"
#include "ui/controls/windows.h"
#include "ui/look/words.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace chimewell::test {

/// What windows need, on a system of fakes.
struct WindowsOnFakes {
    FakeSystem system;
    QtTranslator translator{Wording::linuxDesktop, "en"};
    Words words{translator};
    Services services{system.ports(translator)};
};

/// A window on fakes, and what a user does with it.
class WindowTest : public ::testing::Test {
protected:
    ~WindowTest() override { delete window; }

    void open(QWidget* opened)
    {
        delete window;
        window = opened;
        window->show();
        window->activateWindow();
        settle();
    }
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// The visible widget with that accessible name; null if there is none.
    template<class T = QAbstractButton>
    T* find(const std::string& name)
    {
        for (auto* widget : window->findChildren<T*>()) {
            const auto* button = qobject_cast<const QAbstractButton*>(widget);
            const QString said = button && widget->accessibleName().isEmpty()
                                     ? withoutMnemonic(button->text())
                                     : widget->accessibleName();
            if (widget->isVisible() && said.toStdString() == name) return widget;
        }
        return nullptr;
    }
    template<class T = QAbstractButton>
    T& at(const std::string& name)
    {
        T* found = find<T>(name);
        if (!found) throw std::out_of_range("no visible widget is called " + name);
        return *found;
    }
    /// Whether `text` is in the accessible name of something visible.
    bool shows(const std::string& text)
    {
        return std::ranges::any_of(window->findChildren<QWidget*>(), [&](const QWidget* widget) {
            return widget->isVisible() &&
                   widget->accessibleName().toStdString().find(text) != std::string::npos;
        });
    }
    std::string focused() { return window->focusWidget()->accessibleName().toStdString(); }
    void click(const std::string& name)
    {
        QAbstractButton& button = at(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, button.rect().center());
        settle();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* focus = window->focusWidget();
        QTest::keyClick(focus ? focus : window.data(), key, modifiers);
        settle();
    }
    void pick(const std::string& picker, const std::string& entry)
    {
        auto* box = &at<QComboBox>(picker);
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = box->findText(QString::fromStdString(entry)); i > 0; --i)
            QTest::keyClick(box, Qt::Key_Down);
        ASSERT_EQ(box->currentText().toStdString(), entry);
    }
    bool asks() { return window->findChild<QDialog*>(); }
    void answer(QDialogButtonBox::ButtonRole role)
    {
        auto* question = window->findChild<QDialog*>();
        ASSERT_TRUE(question && question->isVisible());
        auto* answers = question->findChild<QDialogButtonBox*>();
        for (QAbstractButton* button : answers->buttons())
            if (answers->buttonRole(button) == role) button->click();
        settle();
    }
    EventSetting setting(CanonicalEvent event) const { return *store.settings().setting(event); }

    WindowsOnFakes fakes;
    FakeSystem& system = fakes.system;
    SettingsStore& store = fakes.services.store;
    QPointer<QWidget> window;
};

}
