#include "platform/toolkit/QxStyleFactory.h"

#include "platform/toolkit/QxColorScheme.h"
#include "platform/toolkit/QxWidgetStyle.h"
#include "platform/util/McLogFile.h"

#include <QApplication>
#include <QHash>
#include <QStyle>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

using Role = QxStyleFactory::ColorRole;

constexpr char nativeStyle[] = "Native Style";
constexpr char fallbackStyle[] = "Movara Medium";

constexpr std::size_t numberOfSchemes = 3;
constexpr const char *schemeNames[numberOfSchemes] = {fallbackStyle, "Movara Dark", "Movara Light"};

struct ColorRow
{
    Role role;
    QRgb colors[numberOfSchemes];
};

constexpr ColorRow colorTable[] = {
    {Role::ViewerGround, {0xff000000, 0xff000000, 0xff000000}},
    {Role::Window, {0xff1b1d21, 0xff0f1012, 0xffeceef1}},
    {Role::Panel, {0xff24272c, 0xff16181b, 0xfff6f7f9}},
    {Role::Raised, {0xff2e3238, 0xff202327, 0xffffffff}},
    {Role::Hairline, {0xff3a3f46, 0xff2b2f34, 0xffc3c8ce}},
    {Role::Text, {0xffd7dbe0, 0xffc6cbd1, 0xff1f2328}},
    {Role::SecondaryText, {0xff9aa2ab, 0xff8d959e, 0xff545c65}},
    {Role::Disabled, {0xff5d646c, 0xff4d535a, 0xff9aa2ab}},
    {Role::Accent, {0xff4fa3d9, 0xff4fa3d9, 0xff1d6a9e}},
    {Role::AccentText, {0xff000000, 0xff000000, 0xffffffff}},
    {Role::ViewerText, {0xffd7dbe0, 0xffd7dbe0, 0xffd7dbe0}},
    {Role::Warning, {0xffe0a443, 0xffe0a443, 0xff8a5a00}},
    {Role::Error, {0xffd9605a, 0xffd9605a, 0xffb3322c}},
};
static_assert(std::size(colorTable) == QxStyleFactory::numberOfColorRoles);

using Schemes = std::array<QxColorScheme, numberOfSchemes>;

Schemes schemesOfTable()
{
    Schemes schemes;
    for (const ColorRow &row : colorTable) {
        for (std::size_t i = 0; i < numberOfSchemes; ++i) {
            schemes[i][static_cast<std::size_t>(row.role)] = QColor(row.colors[i]);
        }
    }
    return schemes;
}

const Schemes &schemes()
{
    static const Schemes instance = schemesOfTable();
    return instance;
}

/// The scheme called @p name, or null for the desktop's look and for unknown names.
const QxColorScheme *schemeNamed(const QString &name)
{
    for (std::size_t i = 0; i < numberOfSchemes; ++i) {
        if (name == QLatin1String(schemeNames[i])) {
            return &schemes()[i];
        }
    }
    return nullptr;
}

constexpr QxNamedColorRole namedColors[] = {
    {"KORVATE_ExToolBarBackground", Role::Panel},
    {"HALDO_ViewerControlArrow", Role::SecondaryText},
    {"HALDO_BackViolet", Role::Raised},
};

double linear(float channel)
{
    const double value = static_cast<double>(channel);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
        + 0.0722 * linear(color.blueF());
}

} // namespace

class QxStyleFactory::Private
{
public:
    void applyWidgetStyle(bool own)
    {
        if (own == ownInForce) {
            return;
        }
        if (own) {
            desktopStyle = QApplication::style()->name();
        }
        QStyle *const style = own ? new QxWidgetStyle : QStyleFactory::create(desktopStyle);
        if (style) {
            QApplication::setStyle(style);
            ownInForce = own;
        }
    }

    void apply()
    {
        QApplication *const application
            = qobject_cast<QApplication *>(QCoreApplication::instance());
        if (!application) {
            return;
        }
        const QxColorScheme *const scheme = schemeNamed(current);
        applyWidgetStyle(scheme != nullptr);
        // Polishing all widgets again is slow, so only what differs is set. An empty palette brings
        // the desktop's back.
        const QPalette palette = scheme ? paletteOf(*scheme) : QPalette();
        if (!scheme || QApplication::palette() != palette) {
            QApplication::setPalette(palette);
        }
        const QString sheet = scheme ? styleSheetOf(*scheme) : QString();
        if (application->styleSheet() != sheet) {
            application->setStyleSheet(sheet);
        }
    }

    [[nodiscard]] QxColorScheme scheme() const
    {
        const QxColorScheme *const named = schemeNamed(current);
        if (named) {
            return *named;
        }
        const QxColorScheme &medium = schemes().front();
        const QxColorScheme &light = schemes().back();
        const bool hasPalette
            = qobject_cast<QGuiApplication *>(QCoreApplication::instance()) != nullptr;
        return hasPalette ? schemeOf(QGuiApplication::palette(), medium, light) : light;
    }

    QString current = QLatin1String(nativeStyle);
    QHash<QByteArray, QColor> userColors;
    bool splitterButton = true;
    /// Name of the style that the application had before it got the product's own.
    QString desktopStyle;
    bool ownInForce = false;
};

QxStyleFactory::QxStyleFactory()
    : d(std::make_unique<Private>())
{ }

QxStyleFactory::~QxStyleFactory() = default;

QxStyleFactory &QxStyleFactory::instance()
{
    // Never destroyed: widgets of static life may still disconnect from it.
    static auto *const factory = new QxStyleFactory;
    return *factory;
}

QStringList QxStyleFactory::styleNames() const
{
    QStringList names{QLatin1String(nativeStyle)};
    for (const char *const name : schemeNames) {
        names.append(QLatin1String(name));
    }
    return names;
}

const QString &QxStyleFactory::currentStyle() const
{
    return d->current;
}

void QxStyleFactory::setCurrentStyle(const QString &name)
{
    const bool known = styleNames().contains(name);
    if (!known) {
        McLogFile::warnf(
            "WARNING - unknown style \"%s\", \"%s\" is used", qUtf8Printable(name), fallbackStyle);
    }
    const QString style = known ? name : QLatin1String(fallbackStyle);
    const bool changed = style != d->current;
    d->current = style;
    d->apply();
    if (changed) {
        Q_EMIT paletteChanged();
    }
}

void QxStyleFactory::prepare()
{
    d->applyWidgetStyle(true);
}

QColor QxStyleFactory::color(ColorRole role) const
{
    return colorOf(d->scheme(), role);
}

QColor QxStyleFactory::textColor(ColorRole role, ColorRole ground) const
{
    const QxColorScheme scheme = d->scheme();
    const bool overImage = ground == ColorRole::ViewerGround && role == ColorRole::Text;
    return readableOn(
        colorOf(scheme, overImage ? ColorRole::ViewerText : role), colorOf(scheme, ground));
}

double QxStyleFactory::contrast(const QColor &a, const QColor &b)
{
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool QxStyleFactory::userDefinedColor(const std::string &key, QColor &color) const
{
    const auto own = d->userColors.constFind(QByteArray::fromStdString(key));
    if (own != d->userColors.constEnd()) {
        color = *own;
        return true;
    }
    const auto *const found = std::find_if(std::begin(namedColors), std::end(namedColors),
        [&](const QxNamedColorRole &named) { return key == named.name; });
    const QxColorScheme *const scheme = schemeNamed(d->current);
    if (!scheme || found == std::end(namedColors)) {
        return false;
    }
    color = colorOf(*scheme, found->role);
    return true;
}

void QxStyleFactory::setUserDefinedColor(const std::string &key, const QColor &color)
{
    const QByteArray name = QByteArray::fromStdString(key);
    if (d->userColors.value(name) == color) {
        return;
    }
    if (color.isValid()) {
        d->userColors.insert(name, color);
    } else {
        d->userColors.remove(name);
    }
    Q_EMIT paletteChanged();
}

bool QxStyleFactory::showSplitterButton()
{
    return instance().d->splitterButton;
}

void QxStyleFactory::setShowSplitterButton(bool show)
{
    instance().d->splitterButton = show;
}
