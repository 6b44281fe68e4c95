// SPDX-License-Identifier: MIT
#pragma once

#include "ui/look/metrics.h"

#include <QGuiApplication>
#include <QLayout>
#include <QMargins>
#include <QScrollArea>

#include <memory>
#include <vector>

class QHBoxLayout;
class QVBoxLayout;

namespace chimewell {

/// How far from a card's edge its texts begin and its controls end, as a design length. The texts outside the
/// cards are aligned with them.
inline constexpr double cardEdge = 16;
/// The same after a column of symbols.
inline constexpr double afterSymbol = 40;
/// The padding of a button without a background, whose text is to end at the edge.
inline constexpr double flatPadding = 8;
/// Pixels around a switch for its focus ring; the switch itself ends at the edge.
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

/// Layouts without margins; `spacing` is a design length.
QVBoxLayout* makeColumn(QWidget* holder, double spacing = 0);
QHBoxLayout* makeLine(QWidget* holder, double spacing = 0);
/// A holder with one widget inside `margins`.
QWidget* padded(QWidget* content, const QMargins& margins);

/// What the layouts below have in common: they own a list of items.
class ListLayout : public QLayout {
    Q_OBJECT
public:
    void addItem(QLayoutItem* item) override { items_.emplace_back(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    QSize sizeHint() const override;
    QSize minimumSize() const override;

protected:
    ListLayout(int spacing, QWidget* parent);
    std::vector<QLayoutItem*> shownItems() const;
    Qt::LayoutDirection direction() const;

private:
    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

/// Puts its items beside one another and continues on the next line when one is full. The last item may be at
/// the trailing edge of its line.
class FlowLayout final : public ListLayout {
    Q_OBJECT
public:
    enum class Last { follows, trails };

    explicit FlowLayout(int spacing, Last last = Last::follows, QWidget* parent = nullptr);

    Qt::Orientations expandingDirections() const override { return {}; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    void setGeometry(const QRect& area) override;

private:
    /// Returns the height that it takes.
    int arrange(const QRect& area, bool places) const;

    Last last_;
};

/// A label and, at the end of the line, its control. The control goes below the label where it would leave it
/// too little room.
class RowLayout final : public ListLayout {
    Q_OBJECT
public:
    RowLayout(QWidget* label, QWidget* control);

    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    int heightForWidth(int width) const override { return places(width).height; }
    void setGeometry(const QRect& area) override;

private:
    /// Relative to the layout's own corner, as if the line ran rightwards.
    struct Places {
        QRect label;
        QRect control;
        int height = 0;
    };
    Places places(int width) const;
    QLayoutItem* shown(int index) const;
};

/// Lets `area` scroll `content`, without a frame or background.
void setScrolledContent(QScrollArea& area, QWidget* content);

/// A column that scrolls up and down only when there is less height than its content needs.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit FittingScrollArea(QWidget* content);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}
