#include "client/panels/SearchText.h"

#include <algorithm>

namespace SearchText {

QString folded(const QString &text)
{
    QString result = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    result.removeIf([](QChar each) { return each.category() == QChar::Mark_NonSpacing; });
    return result;
}

QStringList words(const QString &wanted)
{
    return folded(wanted).simplified().split(u' ', Qt::SkipEmptyParts);
}

QStringList missing(const QString &foldedText, const QStringList &words)
{
    QStringList left;
    std::copy_if(words.begin(), words.end(), std::back_inserter(left),
        [&foldedText](const QString &word) { return !foldedText.contains(word); });
    return left;
}

bool holdsAll(const QString &foldedText, const QStringList &words)
{
    return std::all_of(words.begin(), words.end(),
        [&foldedText](const QString &word) { return foldedText.contains(word); });
}

} // namespace SearchText
