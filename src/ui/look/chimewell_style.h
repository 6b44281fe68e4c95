// SPDX-License-Identifier: MIT
#pragma once

#include <QFocusFrame>
#include <QPointer>
#include <QProxyStyle>

namespace chimewell {

/// Draws the ordinary controls of our windows over Fusion, in the desktop's colours.
class ChimewellStyle final : public QProxyStyle {
    Q_OBJECT
public:
    ChimewellStyle();

    /// Marks the primary button of a window, which is filled with the accent colour.
    static void setPrimary(QWidget* button, bool isPrimary);
    /// Marks a button whose action cannot be undone: its text is red.
    static void setDestructive(QWidget* button);
    /// Marks a button whose click will have to wait a moment: it is drawn as disabled.
    static void setDelayed(QWidget* button, bool isDelayed);
    /// A focus ring is drawn only for somebody who moves by keyboard.
    static bool showsFocus(const QWidget* widget);
    /// Whether the letters that press a button with Alt are underlined in the window.
    static void setUnderlinesMnemonics(QWidget* window, bool underlines);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void polish(QApplication* application) override;
    void polish(QWidget* widget) override;
    void polish(QPalette& palette) override;
    using QProxyStyle::polish;

private:
    QPointer<QFocusFrame> ring_; ///< Around the focused control; its window owns it.
};

}
