// SPDX-License-Identifier: MIT
#include "ui/look/symbol.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>
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

constexpr int large = 40; // from here on the lines of a symbol would look coarse

QByteArray ourDrawing(const QString& name, int devicePixels, int size)
{
    const QString folder = QStringLiteral(":/symbols/");
    // A few have a drawing of their own for exactly 16 pixels, where a stem in the middle would blur.
    QFile file(folder + QStringLiteral("16/") + name + QStringLiteral(".svg"));
    if (devicePixels != 16 || !file.exists()) file.setFileName(folder + name + QStringLiteral(".svg"));
    QByteArray svg = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

}
