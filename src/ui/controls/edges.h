// SPDX-License-Identifier: MIT
#pragma once

#include "ui/look/metrics.h"

#include <QGuiApplication>
#include <QMargins>

namespace chimewell {

/// How far from a card's edge its texts begin and its controls end, as a design length; so do the texts
/// outside the cards.
inline constexpr double cardEdge = 16;
/// The same after a column of symbols.
inline constexpr double afterSymbol = 40;
/// What a button without a ground has around its words, which are to end at the edge.
inline constexpr double flatPadding = 8;
/// The pixels around a switch for its focus ring; the switch itself ends at the edge.
inline constexpr int ringRoom = 3;
/// The same beside a check box.
inline constexpr int aroundCheckBox = 2;

/// In a row, which lies inside the card's border.
inline int inRow(double fromCardEdge)
{
    return scaled(fromCardEdge) - 1;
}

/// Margins by the direction of the text, which layouts do not mirror.
inline QMargins directed(int leading, int top, int trailing, int bottom)
{
    const bool leftwards = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    return {leftwards ? trailing : leading, top, leftwards ? leading : trailing, bottom};
}

}
