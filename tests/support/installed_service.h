// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace chimewell::test {

/// The program that the machine's D-Bus service file of that name starts; empty when it is not installed.
QString installedService(const QString& file);

}
