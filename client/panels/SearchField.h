#pragma once

#include <QLineEdit>

/// A field that filters a list: Escape clears it, the arrow down goes on to the list.
class SearchField final : public QLineEdit
{
    Q_OBJECT

public:
    /// @param list takes the focus; must outlive the field.
    SearchField(const QString &placeholder, QWidget &list);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addClearButton();

    QWidget &m_list;
};
