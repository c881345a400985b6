#pragma once

#include "platform/MovaraPlatformExport.h"

#include <QColor>
#include <QObject>
#include <QStringList>

#include <memory>
#include <string>

/// The looks that the product can take: "Native Style" is the desktop's own, "Movara Medium",
/// "Movara Dark" and "Movara Light" are made of one table of colour roles each (palette and style
/// sheet). GUI thread only.
class MOVARA_PLATFORM_EXPORT QxStyleFactory : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(QxStyleFactory)

public:
    /// What a colour is for.
    enum class ColorRole {
        ViewerGround, ///< behind images; black in every style
        Window,
        Panel, ///< editors, lists, menus
        Raised, ///< buttons, fields that are pointed at
        Hairline, ///< lines between areas
        Text,
        SecondaryText,
        Disabled, ///< text of what cannot be used now; fainter than readable text on purpose
        Accent, ///< active viewer, checked tools, selection
        AccentText, ///< text on the accent
        ViewerText, ///< text over images
        Warning,
        Error
    };
    static constexpr int numberOfColorRoles = 13;

    /// The one factory. Before the first setCurrentStyle() the desktop's look is in force.
    static QxStyleFactory &instance();
    ~QxStyleFactory() override;

    /// Names of the styles, in the order to offer them.
    [[nodiscard]] QStringList styleNames() const;
    [[nodiscard]] const QString &currentStyle() const;
    /// Gives the application the look @p name. An unknown name takes "Movara Medium" and is told in
    /// the log. Without an application object for widgets only the colours change, and a later call
    /// applies the look.
    void setCurrentStyle(const QString &name);
    /// Gives the application the widget style of the Movara looks, without their colours: called
    /// before the first widget is made, it saves setCurrentStyle() to polish each of them twice.
    void prepare();

    /// The colour of @p role in the current style.
    [[nodiscard]] QColor color(ColorRole role) const;
    /// The colour of @p role for text on @p ground: the colour itself where its contrast is at
    /// least 4.5 to 1, else moved towards white or black until it is. Over images Text stands for
    /// ViewerText.
    [[nodiscard]] QColor textColor(ColorRole role, ColorRole ground) const;
    /// Contrast of two colours, 1 to 21, by the relative luminance of WCAG 2.
    [[nodiscard]] static double contrast(const QColor &a, const QColor &b);

    /// Puts the colour defined under @p key into @p color and returns true; false, @p color
    /// unchanged, when there is none. The Movara styles define "KORVATE_ExToolBarBackground",
    /// "HALDO_ViewerControlArrow" and "HALDO_BackViolet"; colours set by the client come before
    /// those.
    bool userDefinedColor(const std::string &key, QColor &color) const;
    /// Defines a colour in every style; a colour that is not valid takes the client's definition
    /// back.
    void setUserDefinedColor(const std::string &key, const QColor &color);

    /// Whether splitters paint their buttons; true at first.
    [[nodiscard]] static bool showSplitterButton();
    /// Has splitters paint their buttons or not, from their next painting on.
    static void setShowSplitterButton(bool show);

Q_SIGNALS:
    /// Other colours are in force: the style or a user-defined colour has changed.
    void paletteChanged();

private:
    QxStyleFactory();

    class Private;
    std::unique_ptr<Private> d;
};
