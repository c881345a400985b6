#pragma once

#include <QDialog>

class QTextBrowser;

/// Window with the workstation's manual: its page in the language in force, a list of the tools
/// that the user may use, and the pages that it links to. Not modal. GUI thread only.
class HelpWindow final : public QDialog
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget *parent);

    /// Shows a topic: "Tool." and a tool's key, "Toolcard." and an editor's name, or the name of a
    /// heading. An unknown topic shows the beginning.
    void showTopic(const QString &topic);
    /// Where a topic stands in the manual, e.g. "workstation.md#tool-view-invert".
    [[nodiscard]] static QString reference(const QString &topic);
    /// Where the manual is.
    [[nodiscard]] static QString location();

private:
    QTextBrowser *m_text;
};
