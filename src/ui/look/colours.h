// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/event_looks.h"

#include <QColor>
#include <QPalette>

namespace chimewell {

/// Every colour of the interface, derived from the desktop's palette. Text keeps a contrast of at least 4.5 :
/// 1 and marks one of 3 : 1 on each of the three backgrounds (WCAG 2.1, 1.4.3 and 1.4.11), whatever the
/// palette.
struct Colours {
    bool isDark = false;
    QColor window, sidebar, card;       ///< Backgrounds.
    QColor text, secondary, accentText; ///< Texts.
    QColor outline;                     ///< Of check boxes, fields and switches that are off.
    QColor accent, onAccent;            ///< The primary button, and its text: the desktop's pair if it reads.
    QColor green, orange, red;          ///< Texts with a meaning.
    QColor greenMark, orangeMark, redMark;

    static Colours from(const QPalette& palette);

    QColor cardBorder() const; ///< Faint, but a mark in a theme of high contrast.
    QColor separator() const { return faint(text, 0.08); }
    /// The text's colour, to be laid over any background.
    QColor overlay(double opacity) const { return faint(text, opacity); }
    QColor knobOff() const; ///< Of a switch that is off.
    QColor textColour(Tone tone) const;
    QColor markColour(Tone tone) const; ///< Of symbols and dots.

    /// Opacity of the text's colour over the background in each state.
    static constexpr double hover = 0.06, pressed = 0.12, selected = 0.09;
    static constexpr double buttonRest = 0.075, buttonHover = 0.115, buttonPressed = 0.165;
    static constexpr double disabled = 0.38, disabledFill = 0.04, capsule = 0.15;

    static QColor faint(QColor colour, double opacity);
    /// WCAG's contrast ratio, 1 to 21.
    static double contrast(const QColor& a, const QColor& b);
    /// `over` at `opacity` on `background`, without transparency.
    static QColor mixed(const QColor& over, const QColor& background, double opacity);
};

/// Those of the application's current palette. Read them in each paintEvent and store none: the palette may
/// change at any time.
const Colours& colours();

/// Our own palette, for desktops that have none.
QPalette referencePalette(bool dark);

}
