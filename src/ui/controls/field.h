// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace chimewell {

/// A line of text to be edited. What is being edited is left alone, and counts when the editing is over.
class Field final : public QLineEdit {
    Q_OBJECT
public:
    explicit Field(const QString& name, QWidget* parent = nullptr);

    /// Shows what is stored, unless the user is writing something else.
    void showText(const QString& text);

protected:
    void hideEvent(QHideEvent* event) override;
};

}
