// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/text_label.h"

namespace chimewell {

/// One line that ends in "…" where there is no room; the whole stands in its tooltip.
class ElidedLabel final : public TextLabel {
    Q_OBJECT
public:
    using TextLabel::TextLabel;

    void setFullText(const QString& text);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QString full_;
};

}
