// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/panel_model.h"
#include "ui/words.h"

#include <QWidget>

#include <string>

class QPushButton;

namespace chimewell {

class SymbolLabel;
class TextLabel;

/// One alert of the past in the settings.
class RecentRowView final : public QWidget {
    Q_OBJECT
public:
    /// `id` is the entry's.
    RecentRowView(const Words& words, std::string id, QWidget* parent = nullptr);

    const std::string& id() const { return id_; }
    /// Comes after `previous` when the keyboard goes through the window; returns what is to come next.
    QWidget* follow(QWidget* previous);
    void show(const RecentRow& row);

Q_SIGNALS:
    void openSession();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    const Words words_;
    std::string id_;
    SymbolLabel* icon_;
    TextLabel* title_;
    TextLabel* message_;
    TextLabel* time_;
    QPushButton* open_;
};

}
