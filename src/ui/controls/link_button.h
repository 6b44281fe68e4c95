// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace chimewell {

/// A button without a ground, whose words have the colour of links.
class LinkButton final : public QPushButton {
    Q_OBJECT
public:
    explicit LinkButton(const QString& text, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void follow();

    bool isFollowing_ = false;
};

}
