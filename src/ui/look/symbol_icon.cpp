// SPDX-License-Identifier: MIT
#include "ui/look/symbol_icon.h"

#include "ui/look/colours.h"
#include "ui/look/symbol.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>

#include <algorithm>
#include <string>
#include <utility>

namespace chimewell {

namespace {

class SymbolIconEngine : public QIconEngine {
public:
    SymbolIconEngine(std::string name, Tone tone) : name_(std::move(name)), tone_(tone) {}

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override
    {
        paintSymbol(*painter, name_, area, std::min(area.width(), area.height()), colour(mode),
                    QGuiApplication::layoutDirection());
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& pixels, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        QPixmap picture(pixels);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect(QPoint(), pixels / scale), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new SymbolIconEngine(name_, tone_); }

private:
    virtual QColor colour(QIcon::Mode mode) const
    {
        const QColor full = colours().mark(tone_);
        return mode == QIcon::Disabled ? Colours::faint(full, Colours::disabled) : full;
    }

    std::string name_;
    Tone tone_;
};

/// Stands in for an icon of the desktop's theme.
class StandInEngine final : public SymbolIconEngine {
public:
    StandInEngine(QString themeName, std::string symbol)
        : SymbolIconEngine(std::move(symbol), Tone::neutral),
          themeName_(std::move(themeName))
    {
    }

    QString iconName() override { return themeName_; }
    QIconEngine* clone() const override { return new StandInEngine(*this); }

private:
    QColor colour(QIcon::Mode) const override { return {0x80, 0x80, 0x80}; }

    QString themeName_;
};

}

QIcon symbolIcon(std::string_view name, Tone tone)
{
    return QIcon(new SymbolIconEngine(std::string(name), tone)); // the icon owns it
}

QIcon themedIcon(const QString& name, std::string_view symbol)
{
    return QIcon::fromTheme(name, QIcon(new StandInEngine(name, std::string(symbol))));
}

}
