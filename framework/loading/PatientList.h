#pragma once

#include <QString>
#include <QStringList>

#include <string>

/// The patients among what is to be loaded, each in one line for people to read, in the order in
/// which they came.
class PatientList
{
public:
    enum class Ids { Shown, Ignored };

    explicit PatientList(Ids ids)
        : m_ids(ids)
    { }

    /// Adds a patient unless the same line is there already. The values, UTF-8, are shown as they
    /// are, but for full stops at the end of the name.
    void add(const std::string &name, const std::string &birthDate, const std::string &id);
    [[nodiscard]] bool hasSeveral() const { return m_lines.size() > 1; }

    /// Tells the user that these patients cannot be loaded together.
    void refuse() const;
    /// Asks the user whether they shall be.
    [[nodiscard]] bool askToIgnore() const;

private:
    [[nodiscard]] QString text(const QString &verdict) const;

    Ids m_ids;
    QStringList m_lines;
};
