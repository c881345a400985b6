#include "client/panels/LogModel.h"

#include "client/panels/SearchText.h"
#include "platform/toolkit/QxStyleFactory.h"

#include <QDateTime>

namespace {

QString timeText(const McLogLine &line)
{
    const auto sinceEpoch
        = std::chrono::duration_cast<std::chrono::milliseconds>(line.time.time_since_epoch());
    return QDateTime::fromMSecsSinceEpoch(sinceEpoch.count())
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
}

} // namespace

LogModel::Line LogModel::lineOf(const McLogLine &line)
{
    const bool isWarning = line.level == McLogLine::Level::Warning;
    Line made;
    made.cells = {
        timeText(line), isWarning ? tr("Warning") : tr("Note"), QString::fromStdString(line.text)};
    made.folded = SearchText::folded(made.cells[Time] % u'\n' % made.cells[Text]);
    made.isWarning = isWarning;
    return made;
}

void LogModel::update()
{
    const std::vector<McLogLine> lines = theLogInstance().tail(m_last);
    if (lines.empty()) {
        return;
    }
    m_last = lines.back().number;
    const auto added = static_cast<int>(lines.size());
    const int surplus
        = static_cast<int>(m_lines.size()) + added - static_cast<int>(McLogFile::tailLines);
    if (surplus > 0) {
        const int removed = qMin(surplus, static_cast<int>(m_lines.size()));
        beginRemoveRows({}, 0, removed - 1);
        m_lines.erase(m_lines.begin(), m_lines.begin() + removed);
        endRemoveRows();
    }
    const auto first = static_cast<int>(m_lines.size());
    beginInsertRows({}, first, first + added - 1);
    for (const McLogLine &line : lines) {
        m_lines.push_back(lineOf(line));
    }
    endInsertRows();
}

int LogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int LogModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : numColumns;
}

QVariant LogModel::data(const QModelIndex &index, int role) const
{
    using Color = QxStyleFactory::ColorRole;
    if (!index.isValid()) {
        return {};
    }
    const Line &line = m_lines[static_cast<std::size_t>(index.row())];
    const QString &cell = line.cells[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Text ? cell.simplified() : cell;
    case Qt::ToolTipRole:
        return line.cells[Text];
    case Qt::ForegroundRole:
        return line.isWarning
            ? QVariant(QxStyleFactory::instance().textColor(Color::Warning, Color::Panel))
            : QVariant();
    case FoldedRole:
        return line.folded;
    case IsWarningRole:
        return line.isWarning;
    default:
        return {};
    }
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool isTitle = role == Qt::DisplayRole && orientation == Qt::Horizontal;
    if (!isTitle || section < 0 || section >= numColumns) {
        return {};
    }
    const std::array<QString, numColumns> names{tr("Time"), tr("Level"), tr("Text")};
    return names.at(static_cast<std::size_t>(section));
}
