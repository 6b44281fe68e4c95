// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/symbol_label.h"
#include "ui/controls/text_label.h"

namespace chimewell {

/// A mark and a text of as many lines as it takes, which can be copied. The colour is the mark's alone.
class Note final : public QWidget {
    Q_OBJECT
public:
    explicit Note(TextStyle style = TextStyle::caption, Ink ink = Ink::text, QWidget* parent = nullptr);

    void setNote(std::string_view symbol, Tone tone, const QString& text);
    TextLabel* label() const { return text_; }

private:
    SymbolLabel* mark_;
    TextLabel* text_;
};

}
