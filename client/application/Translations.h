#pragma once

#include "platform/properties/KxProperty.h"

#include <QString>
#include <QStringList>

/// The language of the user interface. GUI thread only.
namespace Translations {

/// The codes of the languages that there are texts in.
QStringList languages();
/// The setting "UI.Language": one of languages(), or empty for the system's language. It counts
/// from the next start on.
KxProperty<QString> &languageProperty();
/// Puts the texts of a language in force, in place of those put before.
/// @param language e.g. "de"; empty for the setting or, where that is empty, the system's language.
/// A language that there is no translation for gives English.
void install(const QString &language);
/// The language in force, e.g. "en".
QString current();

} // namespace Translations
