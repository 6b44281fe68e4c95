// SPDX-License-Identifier: MIT
#pragma once

#include "support/child_process.h"

#include <QProcessEnvironment>
#include <QString>

#include <memory>
#include <string>

namespace chimewell::test {

/// An X server without a screen, and if wanted a window manager (openbox) on it.
class PrivateDisplay {
public:
    enum class WindowManager { none, openbox };

    explicit PrivateDisplay(WindowManager manager);

    /// What is missing; empty when the display can be used. The test then skips with this reason.
    const std::string& unavailable() const { return unavailable_; }
    /// For DISPLAY, for example ":99".
    const QString& name() const { return name_; }
    /// The test's environment with this display in it.
    QProcessEnvironment environment() const;
    /// What a client program such as xprop prints; it must end by itself.
    QString output(const QString& program, const QStringList& arguments) const;

private:
    bool managerIsReady() const;

    std::string unavailable_;
    QString name_;
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<ChildProcess> manager_;
};

}
