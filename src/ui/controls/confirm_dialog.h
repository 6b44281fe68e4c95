// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/provider_card.h"
#include "ui/look/words.h"

#include <QDialog>
#include <QPlainTextEdit>
#include <QWidget>

#include <string>
#include <string_view>

class QVBoxLayout;

namespace chimewell {

/// What a dialog is about, at its leading edge: a symbol on a ground of its own.
class DialogMark final : public QWidget {
    Q_OBJECT
public:
    explicit DialogMark(std::string_view symbol, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string symbol_;
};

/// Lines to be read and copied as they stand in a file: unbroken, in a font of equal widths.
class TextBox final : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit TextBox(const QString& name, QWidget* parent = nullptr);

    /// At which every line is seen.
    int wantedHeight() const;

protected:
    bool event(QEvent* event) override;

private:
    void paintGround();
};

/// Asks before an agent's file is changed, and shows which entries would change. To be shown with open(); it
/// is window-modal, and deleted once it was answered. Only `accepted` means yes.
class ConfirmDialog final : public QDialog {
    Q_OBJECT
public:
    ConfirmDialog(const Confirmation& question, const Words& words, QWidget* parent);

protected:
    bool event(QEvent* event) override;

private:
    void addChanges(const Confirmation& question, const Words& words, QVBoxLayout& layout);
    void addButtons(const Confirmation& question, const Words& words, QVBoxLayout& layout);
    /// As high as its content.
    void fit();
};

}
