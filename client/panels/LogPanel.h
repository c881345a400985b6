#pragma once

#include <QTimer>
#include <QWidget>

class LogFilter;
class LogModel;
class PanelButton;
class QComboBox;
class QTableView;
class SearchField;
class ViewMessage;

/// The last lines of the program's log while they are written: to be searched, narrowed to
/// warnings and copied. Looks at the log only while it is visible, a few times a second, however
/// much is written. GUI thread only; others may write meanwhile.
class LogPanel final : public QWidget
{
    Q_OBJECT

public:
    explicit LogPanel(QWidget *parent = nullptr);
    ~LogPanel() override;

    /// The selected lines, or all shown, as cells with tabulators between them.
    [[nodiscard]] QString text() const;
    void copy() const;
    /// Shows the folder with the log's file in the desktop's file manager.
    void showFile() const;
    /// Takes in what has been written since the last time.
    void updateLines();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void build();
    void filter();
    void showMenu(const QPoint &position);

    LogModel *m_model;
    LogFilter *m_filter;
    QTableView *m_table;
    ViewMessage *m_message;
    SearchField *m_search;
    QComboBox *m_level;
    PanelButton *m_copy;
    PanelButton *m_folder;
    QTimer m_timer;
};
