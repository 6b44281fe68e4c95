// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>
#include <QWidget>

namespace chimewell {

/// Shows its content or takes no room. Slides from one to the other where the desktop wants animations.
class Disclosure final : public QWidget {
    Q_OBJECT
public:
    explicit Disclosure(QWidget* content);

    void setOpen(bool isOpen);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int contentHeight(int width) const;
    void place();
    void moveTo(qreal share);

    QWidget* content_;
    QVariantAnimation slide_;
    bool isOpen_ = false;
    qreal share_ = 0; ///< Of the content's height.
};

/// Opens and closes a disclosure: an arrow and the name of its content.
class DisclosureButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit DisclosureButton(const QString& text);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
