// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <string>

class QCoreApplication;

namespace chimewell {

/// Makes the application speak the first of these languages that it knows, English among them; Qt's own words
/// too, where they are installed. Once, before the first window, with QLocale's uiLanguages(). Returns the
/// tag of that language as it stands in the list, "en" where none is known.
std::string installTranslation(QCoreApplication& application, const QStringList& languages);

}
