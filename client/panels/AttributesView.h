#pragma once

#include "platform/util/McFilename.h"

#include <QFutureWatcher>
#include <QWidget>

#include <memory>
#include <vector>

class QTreeWidget;
class QTreeWidgetItem;
class SearchField;
class ViewMessage;

/// All attributes of a DICOM file, sequences nested, with a search field; what is selected can be
/// copied. The file is read in the background. GUI thread only.
class AttributesView final : public QWidget
{
    Q_OBJECT

public:
    explicit AttributesView(QWidget *parent = nullptr);
    ~AttributesView() override;

    /// Shows what a file says; an empty name for none.
    void showFile(const McFilename &file);
    /// Whether the file has been read.
    [[nodiscard]] bool isSettled() const { return !m_watcher.isRunning(); }
    /// What is selected, or everything shown, as lines of cells with tabulators between them.
    [[nodiscard]] QString text() const;
    void copy() const;

private:
    struct Row;
    struct Item;
    struct Header;

    void build();
    void headerRead();
    void showRows();
    void addFound(QTreeWidgetItem &parent, const std::vector<Row> &rows, const QStringList &words);
    static void expand(QTreeWidgetItem &item);
    void showMenu(const QPoint &position);

    SearchField *m_search;
    QTreeWidget *m_tree;
    ViewMessage *m_message;
    McFilename m_file;
    std::shared_ptr<const Header> m_header;
    QFutureWatcher<std::shared_ptr<const Header>> m_watcher;
    int m_shown = 0;
};
