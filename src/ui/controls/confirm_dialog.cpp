// SPDX-License-Identifier: MIT
#include "ui/controls/confirm_dialog.h"

#include "presentation/provider_card.h"
#include "ui/controls/disclosure.h"
#include "ui/controls/text_label.h"
#include "ui/controls/windows.h"
#include "ui/look/chimewell_style.h"
#include "ui/look/colours.h"
#include "ui/look/metrics.h"
#include "ui/look/paint.h"
#include "ui/look/symbol.h"
#include "values/texts.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double side = 40, symbolSide = 22;

constexpr double insideCorner = 3, aroundLines = 9;

constexpr double dialogWidth = 480, dialogPadding = 24, besideMark = 16;
constexpr double smallestButton = 84, highestBox = 200;

}

DialogMark::DialogMark(std::string_view symbol, QWidget* parent) : QWidget(parent), symbol_(symbol)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize DialogMark::sizeHint() const
{
    return {scaled(side), scaled(side)};
}

void DialogMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor ink = colours().accentText;
    fillRounded(painter, rect(), scaled(metrics::cardRadius), Colours::faint(ink, Colours::capsule));
    paintSymbol(painter, symbol_, rect(), scaled(symbolSide), ink, layoutDirection());
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

ConfirmDialog::ConfirmDialog(const Confirmation& question, const Words& words, QWidget* parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // Somebody who came here by keyboard goes on with it.
    setAttribute(Qt::WA_KeyboardFocusChange,
                 parent && parent->window()->testAttribute(Qt::WA_KeyboardFocusChange));
    const QString title = words(question.title);
    setWindowTitle(title);
    setAccessibleDescription(words(question.message));

    auto* mark = new DialogMark("puzzlepiece.extension");
    auto* headline = new TextLabel(TextStyle::headline);
    headline->setText(title);
    headline->setWrapping(true);
    auto* message = new TextLabel(TextStyle::body);
    message->setText(words(question.message));
    message->setWrapping(true);
    message->setSelectable(true);

    auto* column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(headline);
    column->addSpacing(scaled(8));
    column->addWidget(message);
    addChanges(question, words, *column);

    auto* top = new QHBoxLayout;
    top->setSpacing(scaled(besideMark));
    top->addWidget(mark, 0, Qt::AlignTop);
    top->addLayout(column, 1);
    auto* layout = new QVBoxLayout(this);
    const int padding = scaled(dialogPadding);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addSpacing(scaled(20));
    addButtons(question, words, *layout);
    fit();
}

void ConfirmDialog::addChanges(const Confirmation& question, const Words& words, QVBoxLayout& layout)
{
    if (!question.changesTitle) return;
    const QString name = words(*question.changesTitle);
    auto* arrow = new FoldButton(name);
    auto* box = new TextBox(name);
    box->setPlainText(question.changes.empty() ? words(texts::nothingToChange)
                                               : qString(changesText(question.changes)));
    box->setFixedHeight(std::min(box->wantedHeight(), scaled(highestBox)));
    auto* holder = new QWidget;
    auto* inside = new QVBoxLayout(holder);
    inside->setContentsMargins(0, scaled(8), 0, 0);
    inside->addWidget(box);
    auto* fold = new Fold(holder);
    connect(arrow, &QAbstractButton::toggled, fold, &Fold::setOpen);
    layout.addSpacing(scaled(16));
    layout.addWidget(arrow, 0, Qt::AlignLeft);
    layout.addWidget(fold);
}

void ConfirmDialog::addButtons(const Confirmation& question, const Words& words, QVBoxLayout& layout)
{
    auto* buttons = new QDialogButtonBox;
    layout.addWidget(buttons); // a button is the default of the dialog that it is in
    QPushButton* cancel = buttons->addButton(words(texts::cancel), QDialogButtonBox::RejectRole);
    QPushButton* confirm = buttons->addButton(words(question.confirm), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    setMnemonics({confirm, cancel});
    new MnemonicHints(this);
    for (QPushButton* button : {cancel, confirm}) {
        button->setMinimumWidth(scaled(smallestButton));
        button->setAutoDefault(true);
    }
    if (question.losesChanges) ChimewellStyle::setGrave(confirm);
    if (!question.isDestructive) ChimewellStyle::setDue(confirm, true);
    QPushButton* answer = question.isDestructive ? cancel : confirm;
    answer->setDefault(true);
    answer->setFocus();
}

bool ConfirmDialog::event(QEvent* event)
{
    const bool isDone = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest) fit();
    return isDone;
}

void ConfirmDialog::fit()
{
    const int width = scaled(dialogWidth);
    setFixedSize(width, layout()->totalHeightForWidth(width));
}

}
