#pragma once

#include <QStyledItemDelegate>

/// Draws the rows of the study list: picture, title, a second line and a mark. Rows of a kind have
/// one height, so that long lists are laid out at once.
class StudyDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Role {
        UidRole = Qt::UserRole, ///< QString; empty for what cannot be opened
        IsSeriesRole, ///< bool: of a series or a volume
        IsImageRole, ///< bool: has images
        ModalityRole, ///< QString, instead of a picture
        MarkRole ///< QString, what is wrong; empty when nothing is
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
        const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(
        const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
