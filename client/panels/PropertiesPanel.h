#pragma once

#include <QList>
#include <QRegularExpression>
#include <QWidget>

#include <list>
#include <vector>

class KxVariant;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
class SearchField;

/// The settings: the user finds them by their names and changes them. Changes hold at once; each
/// setting can be put back to its default. GUI thread only.
class PropertiesPanel final : public QWidget
{
    Q_OBJECT

public:
    /// Shows the settings of the pool, from then on also those that are registered later.
    /// @param shown only settings whose key matches one of these; an empty list shows all.
    /// @param hidden none of those whose key matches one of these.
    PropertiesPanel(QList<QRegularExpression> shown, QList<QRegularExpression> hidden,
        QWidget *parent = nullptr);
    /// Takes over what is being entered.
    ~PropertiesPanel() override;

    /// Shows these settings, which must outlive the panel, instead of those of the pool.
    void setProperties(const std::list<KxVariant *> &properties);
    /// Those that the program keeps for itself, not to be shown.
    [[nodiscard]] static QList<QRegularExpression> internalSettings();
    /// How many settings were changed since the panel was filled last, each counted once: by
    /// setProperties(), or when it has come up with settings of the pool that are new.
    [[nodiscard]] int numChanged() const;

protected:
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Row
    {
        KxVariant *property;
        QTreeWidgetItem *item;
        QString textBefore;
    };

    void build();
    void fill();
    void adaptColumns();
    [[nodiscard]] bool isShown(const KxVariant &property) const;
    void addRow(KxVariant &property);
    QTreeWidgetItem *groupFor(const KxVariant &property);
    void filter(const QString &text);
    /// @return whether a group is left.
    bool hideEmptyGroups();
    void resetAll();
    void updateButtons();

    QList<QRegularExpression> m_shown;
    QList<QRegularExpression> m_hidden;
    std::list<KxVariant *> m_properties;
    bool m_isOfPool = true;
    QTreeWidget *m_tree;
    SearchField *m_search;
    QLabel *m_message;
    QPushButton *m_resetAll;
    std::vector<Row> m_rows;
};
