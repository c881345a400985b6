#include "client/application/Translations.h"

#include "platform/properties/KxPropertyPool.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace Translations {

namespace {

constexpr char languageKey[] = "UI.Language";

QString &language()
{
    static QString code = QStringLiteral("en");
    return code;
}

/// Loads "name_language" of a folder. Null when it is not there.
std::unique_ptr<QTranslator> load(const QString &name, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    const bool found = translator->load(name % QLatin1Char('_') % language(), folder);
    return found ? std::move(translator) : nullptr;
}

void replace(std::unique_ptr<QTranslator> &present, std::unique_ptr<QTranslator> next)
{
    present = std::move(next); // One that goes takes its texts back by itself.
    if (present) {
        QCoreApplication::installTranslator(present.get());
    }
}

QString wanted(const QString &given)
{
    const QString setting = languageProperty().value();
    const QString chosen = given.isEmpty() ? setting : given;
    const QLocale locale = chosen.isEmpty() ? QLocale::system() : QLocale(chosen);
    return locale.name().section(QLatin1Char('_'), 0, 0);
}

} // namespace

QStringList languages()
{
    return {QStringLiteral("en"), QStringLiteral("de")};
}

KxProperty<QString> &languageProperty()
{
    KxPropertyPool &pool = KxPropertyPool::instance();
    auto &property = pool.property(languageKey, QString(), pool.registrySerializer());
    property.setAttribute(
        KxPropertyPool::ATTRIBUTE_FLAG_LIST, QStringList(QString()) + languages());
    return property;
}

void install(const QString &given)
{
    static std::unique_ptr<QTranslator> toolkit;
    static std::unique_ptr<QTranslator> own;
    language() = wanted(given);
    replace(toolkit,
        load(QStringLiteral("qtbase"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    replace(own, load(QStringLiteral("movara"), QStringLiteral(":/movara/translations")));
    if (!own) {
        language() = QStringLiteral("en");
        replace(toolkit, nullptr);
    }
}

QString current()
{
    return language();
}

} // namespace Translations
