#pragma once

#include <QLabel>

class QAbstractItemView;

/// A text over an empty list that tells why it is empty and what to do. Child of the view's
/// viewport; lets the pointer through.
class ViewMessage final : public QLabel
{
    Q_OBJECT

public:
    explicit ViewMessage(QAbstractItemView &view);

    /// Hidden while the text is empty.
    void setMessage(const QString &text);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
