// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/text_label.h"

namespace chimewell {

/// A centred text whose lines are about equally long: as narrow as it can be without another line.
class BalancedLabel final : public TextLabel {
    Q_OBJECT
public:
    /// No line is longer than `widest`, in pixels.
    BalancedLabel(TextStyle style, Ink ink, int widest, QWidget* parent = nullptr);

    void setText(const QString& text);
    void setMarkedText(const QString& text);
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void balance();

    int widest_;
};

}
