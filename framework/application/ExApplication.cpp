#include "framework/application/ExApplication.h"

#include "framework/application/ExApplicationPrivate.h"
#include "framework/notification/ExNotifiable.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxTranslationProperty.h"
#include "platform/render/Kx.h"
#include "platform/rights/EnFunctionCode.h"
#include "platform/rights/UserFunctionPermissions.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "platform/util/McProgressInterface.h"

#include <QAction>
#include <QApplication>
#include <QCursor>

#include <algorithm>
#include <string>
#include <vector>

/// Shows nothing and is never interrupted.
class ExApplication::Progress : public McProgressInterface
{
public:
    ~Progress() override = default;
};

ExApplication *ExApplication::sInstance = nullptr;

namespace {

const std::string colorSchemeKey
    = KxTranslationProperty::translate("UI.ColorScheme", "Color Scheme");

QString defaultStyleName()
{
    const bool mayUseNativeStyle = Zel::UserFunctionPermissions::instance().havePermission(
        Zel::FUNCTION_NATIVE_STYLE, false);
    return mayUseNativeStyle ? QStringLiteral("Native Style") : QStringLiteral("Movara Medium");
}

std::vector<std::string> styleNames()
{
    std::vector<std::string> names;
    for (const QString &name : QxStyleFactory::instance().styleNames()) {
        names.emplace_back(name.toLocal8Bit().constData());
    }
    return names;
}

/// Settings tell their listeners of a change; the bus tells everybody else.
void publishChange(KxVariant &property)
{
    ExNotifiable::notify(
        ExNotification(ExNotification::PROPERTY_CHANGED, nullptr, nullptr, &property));
}

} // namespace

ExApplication::ExWorker::~ExWorker() = default;

ExApplication::ExApplication()
    : d(std::make_unique<Private>())
{
    const std::vector<std::string> names = styleNames();
    KxProperty<QString> &style = styleProperty();
    style.setAttribute(KxPropertyPool::ATTRIBUTE_FLAG_LIST, names);
    style.connectPropertyChangedSignal(d.get(), SLOT(slotColorSchemeChanged()));
    d->previousHook = KxPropertyPool::setPropagationHook(publishChange);
    sInstance = this;
}

ExApplication::~ExApplication()
{
    KxPropertyPool::setPropagationHook(d->previousHook);
    d->webServiceServer = nullptr;
    d.reset();
    sInstance = nullptr;
}

ExLoadHelper *ExApplication::loadHelper() const
{
    return &d->loadHelper;
}

Zel::KxWebServiceServer *ExApplication::webServiceServer() const
{
    return d->webServiceServer;
}

QString ExApplication::helpHook(const QString & /*topic*/)
{
    return {};
}

const ExDecoration *ExApplication::decoration(const char * /*key*/) const
{
    return nullptr;
}

void ExApplication::editToolProperties(
    const std::list<KxVariant *> &properties, const QList<QRegularExpression> &patterns)
{
    propertyBrowser(properties, patterns, {}, false);
}

bool ExApplication::toolContextMenuHidesProperties() const
{
    return false;
}

bool ExApplication::toolContextMenuShowsIdentification() const
{
    return false;
}

KxProperty<QString> &ExApplication::styleProperty() const
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    if (auto *const existing = pool.find<QString>(colorSchemeKey)) {
        return *existing;
    }
    return pool.property(colorSchemeKey, defaultStyleName(), pool.registrySerializer());
}

void ExApplication::setCurrentStyle(const QString &name)
{
    QxStyleFactory::instance().setCurrentStyle(name);
    KxProperty<QString> &style = styleProperty();
    if (style.value() != name) {
        style = name;
        style.serialize();
        style.propagate();
    }
}

void ExApplication::setDefaultStyle()
{
    const QString name = styleProperty().value();
    setCurrentStyle(name);
}

QAction *ExApplication::createShowHelpAction(const QString &topic)
{
    if (helpDisabled()) {
        return nullptr;
    }
    QString text = QCoreApplication::translate("ExApplication", "Help...");
    if (Kx::DBG_MOVARA_DEBUG) {
        text += QStringLiteral(" (") + topic + QStringLiteral(" -> ") + helpHook(topic)
            + QLatin1Char(')');
    }
    auto *const action = new QAction(text, d.get());
    QObject::connect(action, &QAction::triggered, d.get(), &Private::slotShowHelp);
    action->setData(topic);
    return action;
}

int ExApplication::propertyBrowser(
    const std::list<KxVariant *> &properties, const QRegularExpression &pattern, bool modal)
{
    return propertyBrowser(properties, QList<QRegularExpression>{pattern}, {}, modal);
}

void ExApplication::busy()
{
    QApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
}

void ExApplication::notBusy()
{
    QApplication::restoreOverrideCursor();
}

McHandle<ExTempCursorHandle> ExApplication::tempNotBusy()
{
    return {new ExTempCursorHandle};
}

void ExApplication::setProgressInterface(McProgressInterface *progress)
{
    d->progress = progress;
}

McProgressInterface *ExApplication::progressInterface() const
{
    return d->progress;
}

McProgressInterface &ExApplication::progress()
{
    static Progress fallback;
    McProgressInterface *const display = hasInstance() ? instance().progressInterface() : nullptr;
    return display == nullptr ? fallback : *display;
}

void ExApplication::addRunningProcess(ExWorker *worker)
{
    if (!runningProcessIsRegistered(worker)) {
        d->runningProcesses.push_back(worker);
    }
}

void ExApplication::removeRunningProcess(ExWorker *worker)
{
    d->runningProcesses.remove(worker);
}

bool ExApplication::runningProcessIsRegistered(ExWorker *worker)
{
    return std::find(d->runningProcesses.begin(), d->runningProcesses.end(), worker)
        != d->runningProcesses.end();
}

void ExApplication::runningProcesses(std::list<ExWorker *> &workers) const
{
    workers = d->runningProcesses;
}

void ExApplication::Private::slotShowHelp()
{
    if (const auto *const action = qobject_cast<QAction *>(sender())) {
        ExApplication::instance().showHelp(action->data().toString());
    }
}

void ExApplication::Private::slotColorSchemeChanged()
{
    ExApplication::instance().setDefaultStyle();
}
