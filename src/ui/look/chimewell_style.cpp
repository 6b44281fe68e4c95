// SPDX-License-Identifier: MIT
#include "ui/look/chimewell_style.h"

#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>

namespace chimewell {

namespace {

constexpr char primaryProperty[] = "isPrimary";
constexpr char destructiveProperty[] = "isDestructive";
constexpr char delayedProperty[] = "isDelayed";
constexpr char mnemonicsProperty[] = "underlinesMnemonics";
constexpr int fieldPadding = 8;
constexpr int buttonPadding = 12;
constexpr int scrollBarWidth = 10;
constexpr int ringMargin = 3; // the ring's two pixels and the gap
constexpr int besideIcon = 6;
constexpr int besideCheckBox = 6, besideCheckBoxWithIcon = 10;

/// The focus ring of fields and of filled buttons is around them, with a gap; in their colours it would be
/// lost.
bool isRingAround(const QWidget* widget)
{
    const auto* button = qobject_cast<const QPushButton*>(widget);
    return (button && !button->isFlat()) || qobject_cast<const QComboBox*>(widget) ||
           qobject_cast<const QLineEdit*>(widget);
}

double fillOf(const QStyleOption& option)
{
    if (!(option.state & QStyle::State_Enabled)) return Colours::disabledFill;
    if (option.state & (QStyle::State_Sunken | QStyle::State_On)) return Colours::buttonPressed;
    return option.state & QStyle::State_MouseOver ? Colours::buttonHover : Colours::buttonRest;
}

bool isPrimary(const QWidget* widget)
{
    return widget && widget->property(primaryProperty).toBool();
}

QColor primaryFill(const QStyleOption& option)
{
    const Colours& c = colours();
    const bool isTextBright =
        Colours::contrast(c.onAccent, Qt::black) > Colours::contrast(c.onAccent, Qt::white);
    const QColor overlay = isTextBright ? Qt::black : Qt::white;
    if (option.state & QStyle::State_Sunken) return Colours::mixed(overlay, c.accent, 0.16);
    return option.state & QStyle::State_MouseOver ? Colours::mixed(overlay, c.accent, 0.08) : c.accent;
}

void paintButton(QPainter& painter, const QStyleOption& option, const QWidget* widget)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const int radius = scaled(metrics::controlRadius);
    const auto* button = qobject_cast<const QPushButton*>(widget);
    const QRectF area = option.rect;
    if (isPrimary(widget) && enabled)
        fillRounded(painter, area, radius, primaryFill(option));
    else if (button && button->isFlat()) {
        const bool sunken = option.state & QStyle::State_Sunken;
        if (enabled && (sunken || option.state & QStyle::State_MouseOver))
            fillRounded(painter, area, radius, colours().overlay(sunken ? Colours::pressed : Colours::hover));
    } else
        fillRounded(painter, area, radius, colours().overlay(fillOf(option)));
    if (ChimewellStyle::showsFocus(widget) && !isRingAround(widget)) paintFocusRing(painter, area, radius);
}

/// Keeps both together, on that side of the area or in its middle.
void paintIconAndText(const QStyle& style, QPainter& painter, const QStyleOptionButton& option,
                      Qt::Alignment side, QPalette::ColorRole role)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    const QSize icon = option.iconSize;
    const int start = icon.width() + scaled(besideIcon);
    const QSize both(start + option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width(),
                     option.rect.height());
    const QRect line = QStyle::alignedRect(option.direction, side | Qt::AlignVCenter, both, option.rect);
    const QRect picture(line.left(), line.top() + (line.height() - icon.height()) / 2, icon.width(),
                        icon.height());
    option.icon.paint(&painter, QStyle::visualRect(option.direction, line, picture), Qt::AlignCenter,
                      enabled ? QIcon::Normal : QIcon::Disabled);
    const Qt::Alignment leading = QStyle::visualAlignment(option.direction, Qt::AlignLeft);
    style.drawItemText(&painter, QStyle::visualRect(option.direction, line, line.adjusted(start, 0, 0, 0)),
                       static_cast<int>(leading | Qt::AlignVCenter) | Qt::TextShowMnemonic, option.palette,
                       enabled, option.text, role);
}

bool hasIconAndText(const QStyleOptionButton& option)
{
    return !option.icon.isNull() && !option.text.isEmpty();
}

int besideIndicator(const QStyleOptionButton& option)
{
    return scaled(hasIconAndText(option) ? besideCheckBoxWithIcon : besideCheckBox);
}

void paintCheckBox(QPainter& painter, const QStyleOption& option)
{
    const Colours& c = colours();
    const double opacity = option.state & QStyle::State_Enabled ? 1 : Colours::disabled;
    const QRectF box = option.rect;
    const int radius = scaled(metrics::checkRadius);
    painter.setOpacity(opacity);
    if (option.state & QStyle::State_On) {
        fillRounded(painter, box, radius, c.accent);
        paintSymbol(painter, "checkmark", box, scaled(12), c.onAccent);
    } else {
        fillRounded(painter, box, radius, c.card);
        strokeRounded(painter, box, radius, c.outline, 1.25);
    }
    painter.setOpacity(1);
}

void paintPicker(QPainter& painter, const QStyleOptionComboBox& option)
{
    const bool enabled = option.state & QStyle::State_Enabled;
    QStyleOption state = option;
    state.state &= ~QStyle::State_On;
    const QRectF area = option.rect;
    fillRounded(painter, area, scaled(metrics::controlRadius), colours().overlay(fillOf(state)));
    const bool leftwards = option.direction == Qt::RightToLeft;
    const int side = scaled(22);
    const QRectF arrows(leftwards ? area.left() + scaled(4) : area.right() - side - scaled(2), area.top(),
                        side, area.height());
    QColor colour = colours().secondary;
    if (!enabled) colour = Colours::faint(colour, Colours::disabled);
    const int size = scaled(11);
    paintSymbol(painter, "chevron.up", arrows.translated(0, -scaled(3.5)), size, colour);
    paintSymbol(painter, "chevron.down", arrows.translated(0, scaled(3.5)), size, colour);
}

void paintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& slider)
{
    if (option.minimum == option.maximum) return;
    QRectF handle = slider;
    handle =
        option.orientation == Qt::Vertical ? handle.adjusted(2, 1, -2, -1) : handle.adjusted(1, 2, -1, -2);
    const bool active = option.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    fillRounded(painter, handle, std::min(handle.width(), handle.height()) / 2,
                Colours::faint(colours().text, active ? 0.45 : 0.3));
}

}

ChimewellStyle::ChimewellStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ChimewellStyle::setPrimary(QWidget* button, bool isPrimary)
{
    button->setProperty(primaryProperty, isPrimary);
    button->update();
}

void ChimewellStyle::setDestructive(QWidget* button)
{
    button->setProperty(destructiveProperty, true);
    button->update();
}

void ChimewellStyle::setDelayed(QWidget* button, bool isDelayed)
{
    button->setProperty(delayedProperty, isDelayed);
    button->update();
}

void ChimewellStyle::setUnderlinesMnemonics(QWidget* window, bool underlines)
{
    if (window->property(mnemonicsProperty).toBool() == underlines) return;
    window->setProperty(mnemonicsProperty, underlines);
    for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
        button->update();
}

bool ChimewellStyle::showsFocus(const QWidget* widget)
{
    return widget && widget->hasFocus() && widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void ChimewellStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const
{
    painter->save();
    switch (element) {
    case PE_PanelButtonCommand:
        paintButton(*painter, *option, widget);
        break;
    case PE_FrameDefaultButton:
    case PE_FrameFocusRect: // drawn with the control
        break;
    case PE_IndicatorCheckBox:
        paintCheckBox(*painter, *option);
        break;
    case PE_PanelLineEdit: {
        const QRectF area = option->rect;
        const int radius = scaled(metrics::controlRadius);
        fillRounded(*painter, area, radius, colours().card);
        strokeRounded(*painter, area, radius, colours().outline);
        break;
    }
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    painter->restore();
}

void ChimewellStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    if (element == CE_PushButton && widget && widget->property(delayedProperty).toBool()) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QStyleOptionButton delayed = *button;
            delayed.state &= ~State_Enabled;
            QProxyStyle::drawControl(element, &delayed, painter, widget);
            return;
        }
    }
    if (const auto* frame = qobject_cast<const QFocusFrame*>(widget); frame && element == CE_FocusFrame) {
        if (showsFocus(frame->widget()) || qobject_cast<const QLineEdit*>(frame->widget())) {
            painter->save();
            paintFocusRing(*painter, option->rect, scaled(metrics::controlRadius) + ringMargin);
            painter->restore();
        }
        return;
    }
    if (element == CE_PushButtonLabel) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QStyleOptionButton changed = *button;
            const bool enabled = option->state & State_Enabled;
            QColor colour = isPrimary(widget) && enabled ? colours().onAccent : colours().text;
            if (button->features & QStyleOptionButton::Flat && enabled)
                colour = widget->palette().color(QPalette::ButtonText);
            if (widget && widget->property(destructiveProperty).toBool()) colour = colours().red;
            if (!enabled) colour = Colours::faint(colour, Colours::disabled);
            changed.palette.setColor(QPalette::ButtonText, colour);
            changed.state &= ~State_On; // Fusion would move the text
            if (hasIconAndText(changed))
                paintIconAndText(*this, *painter, changed, Qt::AlignHCenter, QPalette::ButtonText);
            else
                QProxyStyle::drawControl(element, &changed, painter, widget);
            return;
        }
    }
    if (element == CE_PushButtonBevel) {
        // Fusion omits the background of a flat button, and with it the hover tint and the focus ring.
        drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
        return;
    }
    if (element == CE_CheckBoxLabel) {
        const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (box && hasIconAndText(*box))
            return paintIconAndText(*this, *painter, *box, Qt::AlignLeft, QPalette::WindowText);
    }
    if (const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
        box && element == CE_CheckBox) {
        // Fusion would place the text as it does for its own indicator.
        QStyleOptionButton part = *box;
        part.rect = subElementRect(SE_CheckBoxIndicator, box, widget);
        drawPrimitive(PE_IndicatorCheckBox, &part, painter, widget);
        part.rect = subElementRect(SE_CheckBoxContents, box, widget);
        drawControl(CE_CheckBoxLabel, &part, painter, widget);
        if (showsFocus(widget)) {
            painter->save();
            paintFocusRing(*painter, QRectF(option->rect), scaled(metrics::checkRadius));
            painter->restore();
        }
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ChimewellStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                        QPainter* painter, const QWidget* widget) const
{
    painter->save();
    if (const auto* picker = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        picker && control == CC_ComboBox)
        paintPicker(*painter, *picker);
    else if (const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
             slider && control == CC_ScrollBar)
        paintScrollBar(*painter, *slider, subControlRect(CC_ScrollBar, slider, SC_ScrollBarSlider, widget));
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->restore();
}

QSize ChimewellStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                       const QWidget* widget) const
{
    const auto height = [&](int text) { return std::max(scaled(metrics::controlHeight), text + scaled(8)); };
    const int line = option ? option->fontMetrics.height() : 0;
    switch (type) {
    case CT_PushButton: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool flat = button && button->features & QStyleOptionButton::Flat;
        const int words = size.width() + (button && hasIconAndText(*button) ? scaled(besideIcon) - 4 : 0);
        return {words + 2 * scaled(flat ? fieldPadding : buttonPadding), height(line)};
    }
    case CT_ComboBox: {
        const QSize plain = QProxyStyle::sizeFromContents(type, option, size, widget);
        return {plain.width() + scaled(14), height(line)};
    }
    case CT_LineEdit:
        return {size.width(), height(line)};
    case CT_CheckBox: {
        const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
        int width = scaled(metrics::checkBox);
        if (box && hasIconAndText(*box)) width += box->iconSize.width() + scaled(besideIcon);
        if (box && !box->text.isEmpty())
            width +=
                besideIndicator(*box) + option->fontMetrics.size(Qt::TextShowMnemonic, box->text).width();
        return {width + scaled(4), std::max(scaled(24), line + scaled(4))};
    }
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

QRect ChimewellStyle::subElementRect(SubElement element, const QStyleOption* option,
                                     const QWidget* widget) const
{
    if (element == SE_CheckBoxIndicator || element == SE_CheckBoxContents) {
        const int side = scaled(metrics::checkBox);
        const QRect all = option->rect.adjusted(scaled(2), 0, -scaled(2), 0);
        QRect part(all.left(), all.top() + (all.height() - side) / 2, side, side);
        const auto* box = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (element == SE_CheckBoxContents && box) part = all.adjusted(side + besideIndicator(*box), 0, 0, 0);
        return visualRect(option->direction, option->rect, part);
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect ChimewellStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                     SubControl part, const QWidget* widget) const
{
    if (control == CC_ComboBox && part == SC_ComboBoxEditField)
        return visualRect(option->direction, option->rect,
                          option->rect.adjusted(scaled(fieldPadding), 0, -scaled(26), 0));
    if (control == CC_ScrollBar && (part == SC_ScrollBarAddLine || part == SC_ScrollBarSubLine)) return {};
    if (control == CC_ScrollBar && (part == SC_ScrollBarGroove)) return option->rect;
    if (control == CC_ScrollBar) {
        const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (!bar) return QProxyStyle::subControlRect(control, option, part, widget);
        const bool vertical = bar->orientation == Qt::Vertical;
        const int length = vertical ? bar->rect.height() : bar->rect.width();
        const int range = bar->maximum - bar->minimum + bar->pageStep;
        const int handle = std::clamp(range > 0 ? length * bar->pageStep / range : length,
                                      std::min(scaled(28), length), length);
        const int at = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition,
                                               length - handle, bar->upsideDown);
        const auto along = [&](int from, int size) {
            return vertical ? QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), size)
                            : QRect(bar->rect.left() + from, bar->rect.top(), size, bar->rect.height());
        };
        if (part == SC_ScrollBarSlider) return along(at, handle);
        if (part == SC_ScrollBarSubPage) return along(0, at);
        if (part == SC_ScrollBarAddPage) return along(at + handle, length - at - handle);
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

int ChimewellStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_ScrollView_ScrollBarOverlap:
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return ringMargin;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return scaled(metrics::checkBox);
    case PM_CheckBoxLabelSpacing:
        return scaled(6);
    case PM_ScrollBarExtent:
        return scaled(scrollBarWidth);
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
        return scaled(metrics::rowIcon);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ChimewellStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* data) const
{
    if (hint == SH_UnderlineShortcut) return widget && widget->window()->property(mnemonicsProperty).toBool();
    if (hint == SH_FocusFrame_AboveWidget) return 1; // otherwise a tight layout would cut the ring
    if (hint == SH_ComboBox_Popup || hint == SH_EtchDisabledText) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void ChimewellStyle::polish(QApplication* application)
{
    QProxyStyle::polish(application);
    connect(application, &QApplication::focusChanged, this, [this](QWidget*, QWidget* focused) {
        QWidget* const widget = isRingAround(focused) ? focused : nullptr;
        if (!ring_ && widget) ring_ = new QFocusFrame; // the focused window becomes its parent
        if (ring_) ring_->setWidget(widget);
    });
}

void ChimewellStyle::polish(QWidget* widget)
{
    if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget))
        widget->setAttribute(Qt::WA_Hover);
    QProxyStyle::polish(widget);
}

void ChimewellStyle::polish(QPalette& palette)
{
    QProxyStyle::polish(palette);
    // The default is half transparent and unreadable.
    palette.setColor(QPalette::PlaceholderText, Colours::from(palette).secondary);
}

}
