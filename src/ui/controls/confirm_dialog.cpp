// SPDX-License-Identifier: MIT
#include "ui/controls/confirm_dialog.h"

#include "presentation/provider_card.h"
#include "ui/controls/disclosure.h"
#include "ui/controls/layouts.h"
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
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace chimewell {

namespace {

constexpr double dialogWidth = 480, dialogPadding = 24, besideMark = 16;
constexpr double markSide = 40, markSymbol = 22;
constexpr double highestBox = 200;
constexpr double boxCorner = 3, aroundLines = 9;

/// What the dialog is about, at its leading edge: a symbol on a background of its own.
class DialogMark final : public QWidget {
public:
    DialogMark() { setFixedSize(scaled(markSide), scaled(markSide)); }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QColor colour = colours().accentText;
        fillRounded(painter, rect(), scaled(metrics::cardRadius), Colours::faint(colour, Colours::capsule));
        paintSymbol(painter, "puzzlepiece.extension", rect(), scaled(markSymbol), colour, layoutDirection());
    }
};

/// Lines of a file in a monospaced font, not wrapped, to be read and copied.
class TextBox final : public QPlainTextEdit {
public:
    TextBox(const QString& name, const QString& text)
    {
        setAccessibleName(name);
        setReadOnly(true);
        setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        setTabChangesFocus(true);
        setLineWrapMode(QPlainTextEdit::NoWrap);
        setLayoutDirection(Qt::LeftToRight);
        setFont(fontFor(TextStyle::monospace));
        // A frame that is not drawn keeps the scroll bars within the round corners.
        const int corner = scaled(boxCorner);
        setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Plain));
        setLineWidth(corner);
        setViewportMargins(scaled(aroundLines) - corner, scaled(aroundLines) - corner, 0, 0);
        viewport()->setAutoFillBackground(false);
        document()->setDocumentMargin(0);
        setPlainText(text);
        const int allLines = document()->blockCount() * fontMetrics().lineSpacing() +
                             2 * scaled(aroundLines) + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        setFixedHeight(std::min(allLines, scaled(highestBox)));
    }

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::Paint: // around the viewport
            paintBackground();
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

private:
    void paintBackground()
    {
        QPainter painter(this);
        const int radius = scaled(metrics::controlRadius);
        fillRounded(painter, rect(), radius, colours().card);
        if (ChimewellStyle::showsFocus(this))
            paintFocusRing(painter, rect(), radius);
        else
            strokeRounded(painter, rect(), radius, colours().cardBorder());
    }
};

}

ConfirmDialog::ConfirmDialog(const Confirmation& question, const Words& words, QWidget* parent)
    : QDialog(parent)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // Shows the focus ring if the window behind does.
    setAttribute(Qt::WA_KeyboardFocusChange,
                 parent && parent->window()->testAttribute(Qt::WA_KeyboardFocusChange));
    const QString title = words(question.title);
    setWindowTitle(title);
    setAccessibleDescription(words(question.message));

    auto* message = makeParagraph(TextStyle::body, Tone::neutral, words(question.message));
    message->makeSelectable();
    auto* column = makeColumn(nullptr);
    column->addWidget(makeParagraph(TextStyle::headline, Tone::neutral, title));
    column->addSpacing(scaled(8));
    column->addWidget(message);
    addChanges(question, words, *column);

    auto* top = makeLine(nullptr, besideMark);
    top->addWidget(new DialogMark, 0, Qt::AlignTop);
    top->addLayout(column, 1);
    auto* layout = makeColumn(this);
    const int padding = scaled(dialogPadding);
    layout->setContentsMargins(padding, padding, padding, padding);
    layout->addLayout(top);
    layout->addSpacing(scaled(20));
    addButtons(question, words, *layout);
    fit();
}

void ConfirmDialog::addChanges(const Confirmation& question, const Words& words, QVBoxLayout& layout)
{
    if (!question.changesTitle) return;
    const QString name = words(*question.changesTitle);
    auto* button = new DisclosureButton(name);
    auto* box = new TextBox(name, question.changes.empty() ? words(texts::nothingToChange)
                                                           : qString(changesText(question.changes)));
    auto* disclosure = new Disclosure(padded(box, {0, scaled(8), 0, 0}));
    connect(button, &QAbstractButton::toggled, disclosure, &Disclosure::setOpen);
    layout.addSpacing(scaled(16));
    layout.addWidget(button, 0, Qt::AlignLeft);
    layout.addWidget(disclosure);
}

void ConfirmDialog::addButtons(const Confirmation& question, const Words& words, QVBoxLayout& layout)
{
    auto* buttons = new QDialogButtonBox;
    layout.addWidget(buttons); // first: a button can only be the default of a dialog that it is in
    QPushButton* cancel = buttons->addButton(words(texts::cancel), QDialogButtonBox::RejectRole);
    QPushButton* confirm = buttons->addButton(words(question.confirm), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    setMnemonics({confirm, cancel});
    underlineMnemonicsWithAlt(*this);
    for (QPushButton* button : {cancel, confirm}) {
        button->setMinimumWidth(scaled(metrics::smallestButton));
        button->setAutoDefault(true);
    }
    if (question.losesChanges) ChimewellStyle::setDestructive(confirm);
    if (!question.isDestructive) ChimewellStyle::setPrimary(confirm, true);
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
