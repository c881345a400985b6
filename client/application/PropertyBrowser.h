#pragma once

#include <QDialog>
#include <QList>
#include <QRegularExpression>

#include <list>
#include <vector>

class KxVariant;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// Window in which the user looks at settings, finds them by their names and changes them. Changes
/// hold at once; each setting can be put back to its default. GUI thread only.
class PropertyBrowser final : public QDialog
{
    Q_OBJECT

public:
    /// @param shown only settings whose key matches one of these; an empty list shows all.
    /// @param hidden none of those whose key matches one of these.
    PropertyBrowser(const std::list<KxVariant *> &properties,
        const QList<QRegularExpression> &shown, const QList<QRegularExpression> &hidden,
        QWidget *parent);
    /// Takes over what is being entered.
    ~PropertyBrowser() override;

    /// How many settings were changed here, each counted once.
    [[nodiscard]] int numChanged() const;

private:
    struct Row
    {
        KxVariant *property;
        QTreeWidgetItem *item;
        QString textBefore;
    };

    void build();
    void addRow(KxVariant &property);
    QTreeWidgetItem *groupFor(const KxVariant &property);
    void filter(const QString &text);
    void resetAll();
    void update();

    QLineEdit *m_search;
    QTreeWidget *m_tree;
    QLabel *m_message;
    QPushButton *m_resetAll;
    std::vector<Row> m_rows;
};
