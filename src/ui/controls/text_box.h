// SPDX-License-Identifier: MIT
#pragma once

#include <QPlainTextEdit>

namespace chimewell {

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

}
