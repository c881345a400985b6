#include "framework/loading/PatientList.h"

#include "framework/dialogs/ExMessageBox.h"
#include "framework/loading/ImportTab.h"

namespace {

constexpr qsizetype mostLines = 20;

/// Some systems mark a name that was cut with full stops, as many as there is room for: they tell
/// nobody apart.
QString patientName(const std::string &name)
{
    QString text = QString::fromStdString(name).trimmed();
    while (text.endsWith(u'.')) {
        text.chop(1);
    }
    return text;
}

QString patientId(const std::string &id)
{
    const QString text = QString::fromStdString(id).trimmed();
    return text.isEmpty() ? ImportTab::tr("N/A") : text;
}

} // namespace

void PatientList::add(const std::string &name, const std::string &birthDate, const std::string &id)
{
    const QString shownName = patientName(name);
    const QString date = QString::fromStdString(birthDate);
    // Nothing else tells people without a name apart.
    const bool showsId = m_ids == Ids::Shown || shownName.isEmpty();
    // One arg() call: a name that holds "%2" stays as it is.
    const QString line = showsId
        ? ImportTab::tr("(Name: %1, Date of Birth: %2, ID: %3)").arg(shownName, date, patientId(id))
        : ImportTab::tr("(Name: %1, Date of Birth: %2)").arg(shownName, date);
    if (!m_lines.contains(line)) {
        m_lines.append(line);
    }
}

QString PatientList::text(const QString &verdict) const
{
    // A note on one patient would take as much room as the patient's own line.
    const qsizetype shown = m_lines.size() == mostLines + 1 ? mostLines + 1 : mostLines;
    QString text = ImportTab::tr(
        "The studies you are trying to load seem to come from multiple patients.\n\n");
    text += verdict;
    for (const QString &line : m_lines.mid(0, shown)) {
        text += line % u'\n';
    }
    if (m_lines.size() > shown) {
        text += u'\n'
            % ImportTab::tr("Additional %1 patients are not shown in this list.")
                  .arg(m_lines.size() - shown);
    }
    return text;
}

void PatientList::refuse() const
{
    ExMessageBox::error(text(ImportTab::tr("Loading prohibited!\n")));
}

bool PatientList::askToIgnore() const
{
    return ExMessageBox::warningConfirmation(text({}), ImportTab::tr("Ignore"));
}
