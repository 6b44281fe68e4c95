// SPDX-License-Identifier: MIT
#include "ui/controls/text_box.h"

#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace chimewell {

namespace {

constexpr double insideCorner = 3, aroundLines = 9;

}

TextBox::TextBox(const QString& name, QWidget* parent) : QPlainTextEdit(parent)
{
    setAccessibleName(name);
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setLayoutDirection(Qt::LeftToRight);
    setFont(fontFor(TextStyle::monospace));
    // A frame that is not drawn keeps the scroll bars within the round corners.
    const int corner = scaled(insideCorner);
    setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Plain));
    setLineWidth(corner);
    setViewportMargins(scaled(aroundLines) - corner, scaled(aroundLines) - corner, 0, 0);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
}

int TextBox::wantedHeight() const
{
    return document()->blockCount() * fontMetrics().lineSpacing() + 2 * scaled(aroundLines) +
           style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

bool TextBox::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Paint: // of what is around the lines
        paintGround();
        return true;
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        update();
        break;
    case QEvent::ApplicationFontChange:
        setFont(fontFor(TextStyle::monospace));
        break;
    default:
        break;
    }
    return QPlainTextEdit::event(event);
}

void TextBox::paintGround()
{
    QPainter painter(this);
    const int radius = scaled(metrics::controlRadius);
    fillRounded(painter, rect(), radius, colours().card);
    if (ChimewellStyle::showsFocus(this))
        paintFocusRing(painter, rect(), radius);
    else
        strokeRounded(painter, rect(), radius, colours().cardBorder());
}

}
