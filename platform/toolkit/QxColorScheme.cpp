#include "platform/toolkit/QxColorScheme.h"

#include <algorithm>

using Role = QxStyleFactory::ColorRole;

namespace {

constexpr double leastContrast = 4.5;

QColor mixed(const QColor &a, const QColor &b, float share)
{
    const float rest = 1.0F - share;
    return QColor::fromRgbF(a.redF() * rest + b.redF() * share,
        a.greenF() * rest + b.greenF() * share, a.blueF() * rest + b.blueF() * share);
}

struct PaletteEntry
{
    QPalette::ColorRole role;
    Role color;
    Role disabled;
};

constexpr PaletteEntry paletteTable[] = {
    {QPalette::Window, Role::Window, Role::Window},
    {QPalette::WindowText, Role::Text, Role::Disabled},
    {QPalette::Base, Role::Panel, Role::Window},
    {QPalette::AlternateBase, Role::Raised, Role::Window},
    {QPalette::Text, Role::Text, Role::Disabled},
    {QPalette::PlaceholderText, Role::SecondaryText, Role::Disabled},
    {QPalette::Button, Role::Raised, Role::Panel},
    {QPalette::ButtonText, Role::Text, Role::Disabled},
    {QPalette::BrightText, Role::Text, Role::Disabled},
    {QPalette::Light, Role::Hairline, Role::Hairline},
    {QPalette::Midlight, Role::Hairline, Role::Hairline},
    {QPalette::Mid, Role::Hairline, Role::Hairline},
    {QPalette::Dark, Role::Hairline, Role::Hairline},
    {QPalette::Shadow, Role::ViewerGround, Role::ViewerGround},
    {QPalette::Highlight, Role::Accent, Role::Hairline},
    {QPalette::HighlightedText, Role::AccentText, Role::Text},
    {QPalette::Link, Role::Accent, Role::Disabled},
    {QPalette::LinkVisited, Role::Accent, Role::Disabled},
    {QPalette::ToolTipBase, Role::Raised, Role::Raised},
    {QPalette::ToolTipText, Role::Text, Role::Text},
};

/// Lengths are multiples of 4 px, corners have 4 px; a tool button is 32 px around a 24 px icon
/// (the toolkit itself adds 3 px to a tool button that has a box).
constexpr char styleSheetTemplate[] = R"(
QToolTip { background: @raised; color: @text; border: 1px solid @hairline; padding: 4px; }
QMainWindow::separator, QSplitter::handle { background: @hairline; }
QMainWindow::separator { width: 1px; height: 1px; }
QToolBar { background: @panel; border: none; padding: 4px; spacing: 4px; }
QToolBar::separator { background: @hairline; width: 1px; height: 1px; margin: 4px; }
QToolButton { background: transparent; border: 1px solid transparent; border-radius: 4px; padding: 1px 2px 2px 1px; }
QToolButton[popupMode="MenuButtonPopup"], QToolButton[popupMode="InstantPopup"] { padding-right: 14px; }
QToolButton::menu-button { background: transparent; border: none; width: 14px; }
QToolButton:hover { background: @raised; }
QToolButton:pressed { background: @hairline; }
QToolButton:checked { background: @raised; border-color: @accent; }
QToolButton:focus { border-color: @text; }
QToolButton:disabled { color: @disabled; }
SplitterButton { background: @raised; border: none; border-radius: 0; padding: 0; }
SplitterButton:hover { background: @panel; }
QPushButton { background: @raised; border: 1px solid @hairline; border-radius: 4px; min-height: 24px; padding: 0 12px; }
QPushButton:hover, QPushButton:focus, QPushButton:default { border-color: @accent; }
QPushButton:pressed { background: @hairline; }
QPushButton:disabled { background: @panel; color: @disabled; border-color: @hairline; }
QLineEdit, QPlainTextEdit, QTextEdit {
    background: @panel; border: 1px solid @hairline; border-radius: 4px; min-height: 24px; padding: 0 4px;
    selection-background-color: @accent; selection-color: @accentText; }
QAbstractSpinBox QLineEdit, QComboBox QLineEdit { background: transparent; border: none; min-height: 0; }
QAbstractSpinBox, QComboBox { min-height: 24px; }
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus { border-color: @accent; }
QMenuBar { background: @window; }
QMenuBar::item { background: transparent; padding: 4px 8px; border-radius: 4px; }
QMenuBar::item:selected { background: @raised; }
QMenu { background: @panel; border: 1px solid @hairline; padding: 4px; }
QMenu::item { padding: 4px 24px 4px 24px; min-height: 20px; border-radius: 4px; }
QMenu::item:selected { background: @accent; color: @accentText; }
QMenu::item:disabled { background: transparent; color: @disabled; }
QMenu::separator { background: @hairline; height: 1px; margin: 4px; }
QAbstractItemView { background: @panel; border: 1px solid @hairline; alternate-background-color: @raised; }
QTreeView, QTableView { selection-background-color: @selectedRow; selection-color: @text; }
QHeaderView { border: none; }
QHeaderView::section { background: @panel; color: @secondaryText; border: none; border-bottom: 1px solid @hairline; padding: 4px; }
QTabWidget::pane { border: 1px solid @hairline; }
QTabBar::tab { background: transparent; color: @secondaryText; padding: 4px 12px; min-height: 24px; border-bottom: 2px solid transparent; }
QTabBar::tab:selected { color: @text; border-bottom-color: @accent; }
QDockWidget::title { background: @panel; padding: 4px; }
QStatusBar { background: @window; color: @secondaryText; }
QScrollBar { background: @window; border: none; }
QScrollBar:vertical { width: 12px; }
QScrollBar:horizontal { height: 12px; }
QScrollBar::handle { background: @hairline; border-radius: 4px; margin: 2px; }
QScrollBar::handle:vertical { min-height: 24px; }
QScrollBar::handle:horizontal { min-width: 24px; }
QScrollBar::handle:hover { background: @disabled; }
QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }
QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }
)";

/// Longer names come before those that they begin with.
constexpr QxNamedColorRole sheetNames[] = {
    {"@window", Role::Window},
    {"@panel", Role::Panel},
    {"@raised", Role::Raised},
    {"@hairline", Role::Hairline},
    {"@text", Role::Text},
    {"@secondaryText", Role::SecondaryText},
    {"@disabled", Role::Disabled},
    {"@accentText", Role::AccentText},
    {"@accent", Role::Accent},
};

} // namespace

QPalette paletteOf(const QxColorScheme &scheme)
{
    QPalette palette;
    for (const PaletteEntry &entry : paletteTable) {
        palette.setColor(QPalette::Active, entry.role, colorOf(scheme, entry.color));
        palette.setColor(QPalette::Inactive, entry.role, colorOf(scheme, entry.color));
        palette.setColor(QPalette::Disabled, entry.role, colorOf(scheme, entry.disabled));
    }
    return palette;
}

QString styleSheetOf(const QxColorScheme &scheme)
{
    QString sheet = QString::fromLatin1(styleSheetTemplate);
    // Rows are long and may be high: in the bright accent they would outshine the images.
    constexpr float shareOfAccent = 0.3F;
    const QColor row
        = mixed(colorOf(scheme, Role::Panel), colorOf(scheme, Role::Accent), shareOfAccent);
    sheet.replace(QLatin1String("@selectedRow"), row.name());
    for (const QxNamedColorRole &entry : sheetNames) {
        sheet.replace(QLatin1String(entry.name), colorOf(scheme, entry.role).name());
    }
    return sheet;
}

QxColorScheme schemeOf(
    const QPalette &palette, const QxColorScheme &dark, const QxColorScheme &light)
{
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    QxColorScheme scheme = window.lightness() < 128 ? dark : light;
    const auto set
        = [&](Role role, const QColor &color) { scheme[static_cast<std::size_t>(role)] = color; };
    set(Role::Window, window);
    set(Role::Panel, palette.color(QPalette::Base));
    set(Role::Raised, palette.color(QPalette::Button));
    set(Role::Hairline, palette.color(QPalette::Mid));
    set(Role::Text, text);
    set(Role::SecondaryText, mixed(text, window, 0.3F));
    set(Role::Disabled, palette.color(QPalette::Disabled, QPalette::WindowText));
    set(Role::Accent, palette.color(QPalette::Highlight));
    set(Role::AccentText, palette.color(QPalette::HighlightedText));
    return scheme;
}

QColor readableOn(const QColor &text, const QColor &ground)
{
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    const bool towardsWhite
        = QxStyleFactory::contrast(white, ground) > QxStyleFactory::contrast(black, ground);
    constexpr int steps = 32;
    QColor result = text;
    for (int i = 1; i <= steps && QxStyleFactory::contrast(result, ground) < leastContrast; ++i) {
        result = mixed(text, towardsWhite ? white : black, static_cast<float>(i) / steps).toRgb();
    }
    return result;
}
