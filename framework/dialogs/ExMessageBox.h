#pragma once

#include "framework/MovaraFrameworkExport.h"

#include <QMessageBox>

/// The one place through which the system shows modal message boxes. A box without a parent stands
/// over the application's dialog parent; while it is open the pointer is an arrow, however busy the
/// application is. GUI thread only. All functions wait until the box is closed and give the
/// standard button that closed it, where nothing else is said.
class MOVARA_FRAMEWORK_EXPORT ExMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    /// The title that stands for the application's name; an empty string.
    static const QString &nullString();

    static StandardButton error(const QString &text, StandardButtons buttons = Ok,
        StandardButton defaultButton = NoButton, QWidget *parent = nullptr,
        const QString &title = nullString());
    static StandardButton warning(const QString &text, StandardButtons buttons = Ok,
        StandardButton defaultButton = NoButton, QWidget *parent = nullptr,
        const QString &title = nullString());
    static StandardButton information(const QString &text, StandardButtons buttons = Ok,
        StandardButton defaultButton = NoButton, QWidget *parent = nullptr,
        const QString &title = nullString());
    static StandardButton question(const QString &text, StandardButtons buttons = Yes | No,
        StandardButton defaultButton = NoButton, QWidget *parent = nullptr,
        const QString &title = nullString());
    /// An information box with an OK button.
    static void info(const QString &text, QWidget *parent = nullptr);

    /// Asks whether a file that exists may be overwritten; closing the box says no.
    static bool overwriteConfirmation(const QString &fileName, QWidget *parent = nullptr);
    /// Asks, with the given text, whether something may be deleted; closing the box says no.
    static bool deleteConfirmation(const QString &text, QWidget *parent = nullptr);
    /// Warns, and asks with a button of its own text whether to go on all the same; closing the box
    /// says no.
    static bool warningConfirmation(
        const QString &text, const QString &acceptText, QWidget *parent = nullptr);
    /// Asks for a password; empty when the user cancels.
    /// @param generate whether to propose a generated one at once.
    static QString password(
        const QString &text, QWidget *parent, const QString &title, bool generate);

private:
    ExMessageBox(Icon icon, const QString &text, StandardButtons buttons,
        StandardButton defaultButton, QWidget *parent, const QString &title);

    static bool confirm(const QString &text, const QString &okText, QWidget *parent);
    StandardButton run();
    /// Runs a box that its parent may take with it, and deletes it.
    static StandardButton runAndDelete(ExMessageBox *box);
};
