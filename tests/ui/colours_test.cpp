// SPDX-License-Identifier: MIT
#include "ui/look/colours.h"

#include "ui/look/symbol.h"

#include <gtest/gtest.h>

#include <string>

namespace chimewell::test {
namespace {

constexpr double textContrast = 4.5;
constexpr double markContrast = 3.0;

QPalette palette(QRgb window, QRgb base, QRgb words, QRgb highlight, QRgb link, QRgb onHighlight = 0xFFFFFF)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor::fromRgb(window));
    palette.setColor(QPalette::Base, QColor::fromRgb(base));
    palette.setColor(QPalette::WindowText, QColor::fromRgb(words));
    palette.setColor(QPalette::Highlight, QColor::fromRgb(highlight));
    palette.setColor(QPalette::HighlightedText, QColor::fromRgb(onHighlight));
    palette.setColor(QPalette::Link, QColor::fromRgb(link));
    return palette;
}

/// What desktops hand out, from bright to awkward.
struct Desktop {
    std::string name;
    QPalette palette;
    bool isDark;
};
const Desktop desktops[] = {
    {"ours, light", referencePalette(false), false},
    {"ours, dark", referencePalette(true), true},
    {"neutral light", palette(0xEFEFEF, 0xFFFFFF, 0x000000, 0x308CC6, 0x0000FF), false},
    {"blue-grey light", palette(0xEFF0F1, 0xFFFFFF, 0x232629, 0x3DAEE9, 0x2980B9), false},
    {"blue-grey dark", palette(0x2A2E32, 0x1B1E20, 0xFCFCFC, 0x3DAEE9, 0x1D99F3), true},
    {"grey dark", palette(0x353535, 0x2D2D2D, 0xEEEEEC, 0x15539E, 0x3584E4), true},
    {"white, high contrast", palette(0xFFFFFF, 0xFFFFFF, 0x000000, 0x37006E, 0x00009F), false},
    {"black, high contrast", palette(0x000000, 0x000000, 0xFFFFFF, 0x1AEBFF, 0xFFFF00, 0x000000), true},
    {"yellow accent", palette(0xF4F4F6, 0xFFFFFF, 0x1C1C1F, 0xF6D32D, 0x1A5DC2), false},
};

TEST(Colours, ReadOnEveryBackgroundOfEveryDesktop)
{
    for (const Desktop& desktop : desktops) {
        const Colours c = Colours::from(desktop.palette);
        EXPECT_EQ(c.isDark, desktop.isDark) << desktop.name;
        const auto reads = [&](const char* what, const QColor& colour, const QColor& background,
                               double least) {
            EXPECT_GE(Colours::contrast(colour, background), least)
                << desktop.name << ": " << what << " " << colour.name().toStdString() << " on "
                << background.name().toStdString();
        };
        for (const QColor& background : {c.window, c.sidebar, c.card}) {
            const auto tinted = [&](double opacity) { return Colours::mixed(c.text, background, opacity); };
            for (const double opacity : {0.0, Colours::hover, Colours::pressed, Colours::selected,
                                         Colours::buttonRest, Colours::buttonHover, Colours::buttonPressed})
                reads("text", c.text, tinted(opacity), textContrast);
            for (const double opacity : {0.0, Colours::hover}) {
                reads("secondary", c.secondary, tinted(opacity), textContrast);
                reads("link", c.accentText, tinted(opacity), textContrast);
            }
            for (const QColor& colour : {c.green, c.orange, c.red})
                reads("meaning", colour, background, textContrast);
            for (const QColor& colour : {c.green, c.orange, c.secondary})
                reads("capsule", colour, Colours::mixed(colour, background, Colours::capsule), textContrast);
            for (const QColor& colour : {c.greenMark, c.orangeMark, c.redMark, c.outline, c.accent})
                reads("mark", colour, background, markContrast);
        }
        reads("the primary button", c.onAccent, c.accent, textContrast);
        reads("the knob", c.knobOff(), c.outline, markContrast);
        const QColor border = Colours::mixed(c.cardBorder(), c.window, c.cardBorder().alphaF());
        if (desktop.name.ends_with("high contrast"))
            reads("the card's border", border, c.window, markContrast);
    }
    const Colours own = Colours::from(palette(0x000000, 0x000000, 0xFFFFFF, 0x1AEBFF, 0xFFFF00, 0x000000));
    EXPECT_EQ(own.accent, QColor::fromRgb(0x1AEBFF)); // a pair that reads stays as it is
    EXPECT_EQ(own.onAccent, QColor(Qt::black));
}

TEST(ThemedIcon, IsDrawnUnderItsNameInAReadableColourWhereNoThemeHasIt)
{
    const auto shown = [](const QIcon& icon) { return icon.pixmap(24, 24).toImage().pixelColor(12, 17); };
    EXPECT_EQ(shown(themedIcon(QString(), "app.chimewell.Chimewell")).alpha(), 255);
    for (const char* symbol : {"bell", "bell.badge"}) {
        const QIcon icon = themedIcon(QStringLiteral("in-no-theme"), symbol);
        EXPECT_EQ(icon.name(), QStringLiteral("in-no-theme"));
        EXPECT_EQ(shown(icon).alpha(), 255) << symbol;
        for (const QColor& panel : {QColor(Qt::white), QColor(0x2A2E32)})
            EXPECT_GE(Colours::contrast(shown(icon), panel), markContrast) << symbol;
    }
}

}
}
