// SPDX-License-Identifier: MIT
#include "ui/look/metrics.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>
#include <cmath>

namespace chimewell {

namespace {

constexpr double designFontPixels = 13;
constexpr int smallestFontPixels = 9;

double unit()
{
    return std::max(1.0, QFontInfo(QApplication::font()).pixelSize() / designFontPixels);
}

}

int scaled(double length)
{
    return static_cast<int>(std::lround(length * unit()));
}

QFont fontFor(TextStyle style)
{
    struct Form {
        double factor;
        QFont::Weight weight;
    };
    const auto form = [style]() -> Form {
        switch (style) {
        case TextStyle::title:
            return {1.54, QFont::DemiBold};
        case TextStyle::headline:
            return {1.15, QFont::DemiBold};
        case TextStyle::body:
            return {1.0, QFont::Normal};
        case TextStyle::bodyMedium:
            return {1.0, QFont::Medium};
        case TextStyle::subheadline:
            return {0.92, QFont::Normal};
        case TextStyle::subheadlineSemibold:
            return {0.92, QFont::DemiBold};
        case TextStyle::caption:
            return {0.85, QFont::Normal};
        case TextStyle::badge:
            return {0.77, QFont::DemiBold};
        case TextStyle::monospace:
            break;
        }
        return {0.88, QFont::Normal};
    }();
    QFont font = style == TextStyle::monospace ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                                               : QApplication::font();
    // Of the real size of the system font, but at least the size that the design is drawn for.
    const double base = designFontPixels * unit();
    font.setPixelSize(std::max(smallestFontPixels, static_cast<int>(std::lround(base * form.factor))));
    font.setWeight(form.weight);
    if (style == TextStyle::badge) font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4);
    return font;
}

}
