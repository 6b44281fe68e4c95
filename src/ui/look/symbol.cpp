// SPDX-License-Identifier: MIT
#include "ui/look/symbol.h"

#include <QFile>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>

namespace chimewell {

namespace {

constexpr std::array<std::string_view, 5> pointingAlongTheLine = {
    "arrow.right", "arrow.up.forward.app", "arrow.uturn.backward", "chevron.left", "chevron.right",
};

constexpr int large = 40; // from here on the lines of a symbol would look coarse

QByteArray drawing(const QString& name, int devicePixels)
{
    const QString folder = QStringLiteral(":/symbols/");
    // A few have a drawing of their own for exactly 16 pixels, where a stem in the middle would blur.
    QFile file(folder + QStringLiteral("16/") + name + QStringLiteral(".svg"));
    if (devicePixels != 16 || !file.exists()) file.setFileName(folder + name + QStringLiteral(".svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}

QPixmap symbol(std::string_view name, int size, const QColor& colour, qreal devicePixelRatio)
{
    const QString file = QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    const int pixels = static_cast<int>(std::lround(size * devicePixelRatio));
    const QString key =
        QStringLiteral("symbol/%1/%2/%3/%4").arg(file).arg(pixels).arg(size >= large).arg(colour.rgba());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;

    QColor opaque = colour;
    opaque.setAlpha(255);
    QByteArray svg = drawing(file, pixels);
    svg.replace("currentColor", opaque.name(QColor::HexRgb).toLatin1());
    if (size >= large) svg.replace("stroke-width=\"1.75\"", "stroke-width=\"1.4\"");
    QSvgRenderer renderer(svg);
    pixmap = QPixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    {
        QPainter painter(&pixmap);
        // Strokes overlap in some drawings: the whole is faded, not its parts.
        painter.setOpacity(colour.alphaF());
        renderer.render(&painter);
    }
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
