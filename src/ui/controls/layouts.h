// SPDX-License-Identifier: MIT
#pragma once

#include "ui/look/metrics.h"

#include <QGuiApplication>
#include <QLayout>
#include <QList>
#include <QMargins>
#include <QScrollArea>

#include <memory>
#include <vector>

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

/// Puts its items beside one another and goes on below when the line is full. The last item may stand at the
/// trailing edge of its line.
class FlowLayout final : public QLayout {
    Q_OBJECT
public:
    enum class Last { follows, trails };

    explicit FlowLayout(int spacing, Last last = Last::follows, QWidget* parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return {}; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return arrange(QRect(0, 0, width, 0), false); }
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    /// Returns the height that it takes.
    int arrange(const QRect& outer, bool places) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
    Last last_;
};

/// A label and, at the end of the line, its control: the two items in the order in which they were added. A
/// control that would leave the label too little room stands below it.
class RowLayout final : public QLayout {
    Q_OBJECT
public:
    explicit RowLayout(QWidget* parent = nullptr);
    RowLayout(QWidget* label, QWidget* control, QWidget* parent = nullptr);
    ~RowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

private:
    /// Where the shown items go; relative to the layout's own corner, as if the line ran rightwards.
    struct Places {
        QRect label;
        QRect control;
        int height = 0;
    };
    Places places(int width) const;
    const QLayoutItem* shown(std::size_t index) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

/// A column that scrolls up and down only when there is less height than it would like to have.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT
public:
    explicit FittingScrollArea(QWidget* content, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}
