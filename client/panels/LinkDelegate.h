#pragma once

#include <QStyledItemDelegate>

/// Draws the cells of the table of links: a label in the colour of the group, filled while the
/// viewer is attached.
class LinkDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role {
        NumberRole = Qt::UserRole, ///< int: of the group's colour, from 0; -1 for a group of one
        IsAttachedRole, ///< bool
        IsEnabledRole ///< bool: whether this way of linking is on
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
};
