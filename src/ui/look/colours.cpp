// SPDX-License-Identifier: MIT
#include "ui/look/colours.h"

#include <QGuiApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace chimewell {

namespace {

constexpr double textContrast = 4.5;
constexpr double markContrast = 3.0;
constexpr double highContrast = 20; // of black on white, which only themes for that purpose have

double luminance(const QColor& colour)
{
    const auto linear = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// A background on which a colour has to be read; the colour itself may tint it.
using Background = std::function<QColor(const QColor&)>;

/// The colour, moved towards `pole` in small steps until it reads on every background.
QColor readable(const QColor& colour, const QColor& pole, double contrast,
                const std::vector<Background>& backgrounds)
{
    for (int step = 0; step <= 50; ++step) {
        const QColor moved = Colours::mixed(pole, colour, step * 0.02);
        if (std::ranges::all_of(backgrounds, [&](const Background& background) {
                return Colours::contrast(moved, background(moved)) >= contrast;
            }))
            return moved;
    }
    return pole;
}

/// Colours with a meaning, on neutral light and dark backgrounds.
struct Reference {
    QRgb green, orange, red, greenMark, orangeMark, redMark, outline;
};
constexpr Reference onLight = {0x136A35, 0x8A4700, 0xAD231B, 0x24964A, 0xC96700, 0xD23B32, 0x84848B};
constexpr Reference onDark = {0x5FCB81, 0xF2AE4E, 0xFF8C82, 0x4DBE71, 0xEFA23A, 0xFF7469, 0x787880};

}

Colours Colours::from(const QPalette& palette)
{
    Colours c;
    c.window = palette.color(QPalette::Active, QPalette::Window);
    c.text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    c.isDark = luminance(c.window) < luminance(c.text);
    c.sidebar = mixed(c.text, c.window, 0.04);
    c.card = luminance(base) >= luminance(c.window) ? base : mixed(c.text, c.window, 0.06);

    std::vector<Background> plain;
    std::vector<Background> capsules;
    std::vector<Background> hovered;
    for (const QColor& background : {c.window, c.sidebar, c.card}) {
        plain.emplace_back([background](const QColor&) { return background; });
        capsules.emplace_back(
            [background](const QColor& colour) { return mixed(colour, background, capsule); });
        hovered.emplace_back([tinted = mixed(c.text, background, hover)](const QColor&) { return tinted; });
    }
    const auto with = [&](std::initializer_list<const std::vector<Background>*> more) {
        std::vector<Background> all = plain;
        for (const auto* backgrounds : more)
            all.insert(all.end(), backgrounds->begin(), backgrounds->end());
        return all;
    };

    const QColor pole = c.isDark ? Qt::white : Qt::black;
    const Reference& reference = c.isDark ? onDark : onLight;
    c.secondary = readable(mixed(c.text, c.window, 0.68), c.text, textContrast, with({&capsules, &hovered}));
    c.green = readable(QColor::fromRgb(reference.green), pole, textContrast, with({&capsules}));
    c.orange = readable(QColor::fromRgb(reference.orange), pole, textContrast, with({&capsules}));
    c.red = readable(QColor::fromRgb(reference.red), pole, textContrast, plain);
    c.greenMark = readable(QColor::fromRgb(reference.greenMark), pole, markContrast, plain);
    c.orangeMark = readable(QColor::fromRgb(reference.orangeMark), pole, markContrast, plain);
    c.redMark = readable(QColor::fromRgb(reference.redMark), pole, markContrast, plain);
    c.outline = readable(QColor::fromRgb(reference.outline), pole, markContrast, plain);
    c.accentText =
        readable(palette.color(QPalette::Active, QPalette::Link), pole, textContrast, with({&hovered}));

    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    const QColor onHighlight = palette.color(QPalette::Active, QPalette::HighlightedText);
    const auto isVisible = [&](const QColor& fill) {
        return std::ranges::all_of(plain, [&](const Background& background) {
            return contrast(fill, background({})) >= markContrast;
        });
    };
    if (isVisible(highlight) && contrast(highlight, onHighlight) >= textContrast) {
        c.accent = highlight;
        c.onAccent = onHighlight;
        return c;
    }
    const QColor underWhite =
        readable(highlight, Qt::black, textContrast, {[](const QColor&) { return QColor(Qt::white); }});
    // Darkened for white text it could be too close to a grey background: then it stays bright, with black
    // text.
    const bool isDarkEnough = isVisible(underWhite);
    c.accent = isDarkEnough ? underWhite : readable(highlight, pole, markContrast, plain);
    const bool isWhite = isDarkEnough || contrast(Qt::white, c.accent) > contrast(Qt::black, c.accent);
    c.onAccent = isWhite ? Qt::white : Qt::black;
    return c;
}

QColor Colours::cardBorder() const
{
    const bool isHighContrast = contrast(window, text) >= highContrast;
    return isHighContrast ? outline : faint(text, 0.10);
}

QColor Colours::knobOff() const
{
    return contrast(Qt::white, outline) >= markContrast ? Qt::white : Qt::black;
}

QColor Colours::textColour(Tone tone) const
{
    switch (tone) {
    case Tone::neutral:
        return text;
    case Tone::secondary:
        return secondary;
    case Tone::accent:
        return accentText;
    case Tone::green:
        return green;
    case Tone::orange:
        return orange;
    case Tone::red:
        break;
    }
    return red;
}

QColor Colours::markColour(Tone tone) const
{
    switch (tone) {
    case Tone::green:
        return greenMark;
    case Tone::orange:
        return orangeMark;
    case Tone::red:
        return redMark;
    default:
        return textColour(tone);
    }
}

QColor Colours::faint(QColor colour, double opacity)
{
    colour.setAlphaF(static_cast<float>(opacity));
    return colour;
}

double Colours::contrast(const QColor& a, const QColor& b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

QColor Colours::mixed(const QColor& over, const QColor& background, double opacity)
{
    const auto channel = [&](int o, int g) {
        return static_cast<int>(std::lround(o * opacity + g * (1 - opacity)));
    };
    return {channel(over.red(), background.red()), channel(over.green(), background.green()),
            channel(over.blue(), background.blue())};
}

const Colours& colours()
{
    static qint64 key = 0;
    static Colours current;
    const QPalette palette = QGuiApplication::palette();
    if (key != palette.cacheKey()) {
        key = palette.cacheKey();
        current = Colours::from(palette);
    }
    return current;
}

QPalette referencePalette(bool dark)
{
    const QColor window = QColor::fromRgb(dark ? 0x1E1E20 : 0xF4F4F6);
    const QColor base = QColor::fromRgb(dark ? 0x2A2A2D : 0xFFFFFF);
    const QColor text = QColor::fromRgb(dark ? 0xF2F2F4 : 0x1C1C1F);
    QPalette palette(text, window, Colours::mixed(Qt::white, window, 0.5),
                     Colours::mixed(Qt::black, window, 0.5), Colours::mixed(Qt::black, window, 0.25), text,
                     base);
    palette.setColor(QPalette::Button, Colours::mixed(text, window, Colours::buttonRest));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(dark ? 0x2D71DF : 0x1F68D6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor::fromRgb(dark ? 0x7DB0FF : 0x1A5DC2));
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::PlaceholderText, Colours::mixed(text, window, 0.68));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Colours::mixed(text, window, Colours::disabled));
    return palette;
}

}
