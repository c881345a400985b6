#pragma once

#include "platform/util/McLogFile.h"

#include <QAbstractTableModel>

#include <array>
#include <cstdint>
#include <deque>

/// The last lines of the program's log, as many as that keeps in memory. GUI thread only.
class LogModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Time, Level, Text, numColumns };
    enum Role {
        FoldedRole = Qt::UserRole, ///< QString: all cells, to be searched
        IsWarningRole ///< bool
    };

    using QAbstractTableModel::QAbstractTableModel;

    /// Takes in what has been written since the last time.
    void update();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QVariant headerData(
        int section, Qt::Orientation orientation, int role) const override;

private:
    struct Line
    {
        std::array<QString, numColumns> cells;
        QString folded;
        bool isWarning = false;
    };

    static Line lineOf(const McLogLine &line);

    std::deque<Line> m_lines;
    std::uint64_t m_last = 0;
};
