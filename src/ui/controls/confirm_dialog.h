// SPDX-License-Identifier: MIT
#pragma once

#include "presentation/provider_card.h"
#include "ui/look/words.h"

#include <QDialog>

class QVBoxLayout;

namespace chimewell {

/// Asks before agents' files are changed, and shows which entries would change. Show it with open(): it is
/// window-modal, and deletes itself once it was answered. Only `accepted` means yes.
class ConfirmDialog final : public QDialog {
    Q_OBJECT
public:
    ConfirmDialog(const Confirmation& question, const Words& words, QWidget* parent);

protected:
    bool event(QEvent* event) override;

private:
    void addChanges(const Confirmation& question, const Words& words, QVBoxLayout& layout);
    void addButtons(const Confirmation& question, const Words& words, QVBoxLayout& layout);
    void fit();
};

}
