// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QVariantAnimation>
#include <QWidget>

namespace chimewell {

/// Shows its content or takes no room; slides from one to the other where the desktop wants things to move.
class Fold final : public QWidget {
    Q_OBJECT
public:
    explicit Fold(QWidget* content, QWidget* parent = nullptr);

    bool isOpen() const { return isOpen_; }
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

/// Opens and closes what is below it: an arrow and what that is.
class FoldButton final : public QAbstractButton {
    Q_OBJECT
public:
    explicit FoldButton(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}
