// SPDX-License-Identifier: MIT
#include "ui/look/symbol.h"

#include "ui/look/colours.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

namespace chimewell {

namespace {

constexpr std::array<std::string_view, 5> pointingAlongTheLine = {
    "arrow.right", "arrow.up.forward.app", "arrow.uturn.backward", "chevron.left", "chevron.right",
};

SymbolSource& symbolSource()
{
    static SymbolSource source;
    return source;
}

constexpr int large = 40; // from this size on, the lines of a symbol would look coarse

QByteArray ourDrawing(const QString& name, int devicePixels, int size)
{
    const QString folder = QStringLiteral(":/symbols/");
    // A few have a drawing of their own for exactly 16 pixels, where a stem in the middle would blur.
    QFile file(folder + QStringLiteral("16/") + name + QStringLiteral(".svg"));
    if (devicePixels != 16 || !file.exists()) file.setFileName(folder + name + QStringLiteral(".svg"));
    QByteArray svg = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    Q_ASSERT_X(!svg.isEmpty(), "symbol", qPrintable(name));
    if (size >= large) svg.replace("stroke-width=\"1.75\"", "stroke-width=\"1.4\"");
    return svg;
}

void draw(QPixmap& pixmap, QByteArray svg, const QColor& colour)
{
    svg.replace("currentColor", colour.name(QColor::HexRgb).toLatin1());
    QSvgRenderer renderer(svg);
    QPainter painter(&pixmap);
    // Strokes overlap in some drawings: the whole is faded, not its parts.
    painter.setOpacity(colour.alphaF());
    renderer.render(&painter);
}

void fill(QPixmap& pixmap, const QImage& mask, const QColor& colour)
{
    QPainter painter(&pixmap);
    painter.drawImage(0, 0, mask);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), colour);
}

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
        const QColor full = colours().markColour(tone_);
        return mode == QIcon::Disabled ? Colours::faint(full, Colours::disabled) : full;
    }

    std::string name_;
    Tone tone_;
};

/// Replaces an icon that the desktop's theme does not have.
class FallbackEngine final : public SymbolIconEngine {
public:
    FallbackEngine(QString themeName, std::string symbol)
        : SymbolIconEngine(std::move(symbol), Tone::neutral),
          themeName_(std::move(themeName))
    {
    }

    QString iconName() override { return themeName_; }
    QIconEngine* clone() const override { return new FallbackEngine(*this); }

private:
    QColor colour(QIcon::Mode) const override { return {0x80, 0x80, 0x80}; }

    QString themeName_;
};

}

void setSymbolSource(SymbolSource source)
{
    symbolSource() = std::move(source);
}

QPixmap symbol(std::string_view name, int size, const QColor& colour, qreal devicePixelRatio)
{
    const QString file = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    const int pixels = static_cast<int>(std::lround(size * devicePixelRatio));
    const QString key =
        QStringLiteral("symbol/%1/%2/%3/%4").arg(file).arg(pixels).arg(size >= large).arg(colour.rgba());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;

    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    const QImage mask = symbolSource() ? symbolSource()(name, pixels) : QImage();
    if (!mask.isNull())
        fill(pixmap, mask, colour);
    else
        draw(pixmap, ourDrawing(file, pixels, size), colour);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void paintSymbol(QPainter& painter, std::string_view name, const QRectF& area, int size, const QColor& colour,
                 Qt::LayoutDirection direction)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const auto aligned = [ratio](qreal position) { return std::round(position * ratio) / ratio; };
    const QPointF place(aligned(area.center().x() - size / 2.0), aligned(area.center().y() - size / 2.0));
    const bool isMirrored = direction == Qt::RightToLeft &&
                            std::ranges::find(pointingAlongTheLine, name) != pointingAlongTheLine.end();
    QPixmap picture = symbol(name, size, colour, ratio);
    if (isMirrored) picture = picture.transformed(QTransform::fromScale(-1, 1));
    painter.drawPixmap(place, picture);
}

QIcon symbolIcon(std::string_view name, Tone tone)
{
    return QIcon(new SymbolIconEngine(std::string(name), tone)); // the icon owns it
}

QIcon themedIcon(const QString& name, std::string_view symbol)
{
    return QIcon::fromTheme(name, QIcon(new FallbackEngine(name, std::string(symbol))));
}

}
