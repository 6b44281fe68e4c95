// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QCoreApplication;

namespace chimewell {

/// Makes the application speak the first of these languages that it knows, English among them; Qt's own words
/// too, where they are installed. Once, before the first window, with QLocale's uiLanguages().
void installTranslation(QCoreApplication& application, const QStringList& languages);

}
