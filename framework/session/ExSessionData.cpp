#include "framework/session/ExSessionData.h"

void ExSessionData::setBlock(const QString &persistentName, const QByteArray &bytes)
{
    m_blocks.insert_or_assign(persistentName, bytes);
}

QByteArray ExSessionData::block(const QString &persistentName) const
{
    const auto found = m_blocks.find(persistentName);
    return found == m_blocks.end() ? QByteArray() : found->second;
}

bool ExSessionData::contains(const QString &persistentName) const
{
    return m_blocks.find(persistentName) != m_blocks.end();
}

QStringList ExSessionData::persistentNames() const
{
    QStringList names;
    for (const auto &[name, bytes] : m_blocks) {
        names.append(name);
    }
    return names;
}
