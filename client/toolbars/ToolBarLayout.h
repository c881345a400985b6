#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <variant>
#include <vector>

/// What is on the tool bars, as a file says it. A plain value. The file is XML, in the form that
/// ExToolBar::dump() prints, within one element <ToolBars>:
///     <ToolBar Id="View" Label="View">
///         <Tool Id="View.Reset" />
///         <Popup Id="Layout" Label="Layout"> <Tool Id="Layout.1x1" /> ... </Popup>
///         <Spacer Size="8" />
///         <Separator />
///     </ToolBar>
struct ToolBarLayout
{
    struct Item
    {
        enum Kind { Tool, Popup, Spacer, Separator };

        Kind kind = Separator;
        QString id; ///< of a tool or a pop-up
        QString label; ///< of a pop-up
        int size = 0; ///< of a spacer, in device-independent pixels
        QStringList tools; ///< of a pop-up

        friend bool operator==(const Item &, const Item &) = default;
    };

    struct Bar
    {
        QString id;
        QString label;
        std::vector<Item> items;

        friend bool operator==(const Bar &, const Bar &) = default;
    };

    /// What is wrong with a file, for the user.
    struct Error
    {
        qint64 line = 0; ///< from 1; 0 when the file cannot be read at all
        QString text;
    };

    std::vector<Bar> bars;
    std::map<QString, qint64> toolLines; ///< where each tool is named first

    /// Reads the whole of a file's content; nothing else than the above is allowed. Which tools
    /// there are is not looked at.
    static std::variant<ToolBarLayout, Error> read(const QByteArray &content);

    friend bool operator==(const ToolBarLayout &, const ToolBarLayout &) = default;
};
