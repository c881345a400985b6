#pragma once

#include <QString>
#include <QStringList>

/// Finding texts as people type them: in any case, with or without accents, words in any order.
namespace SearchText {

/// The form in which texts are compared.
[[nodiscard]] QString folded(const QString &text);
/// What is looked for, in that form.
[[nodiscard]] QStringList words(const QString &wanted);
/// Those words that a folded text does not hold.
[[nodiscard]] QStringList missing(const QString &foldedText, const QStringList &words);
/// Whether a folded text holds all words; true for none.
[[nodiscard]] bool holdsAll(const QString &foldedText, const QStringList &words);

} // namespace SearchText
