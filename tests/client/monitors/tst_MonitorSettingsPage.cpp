#include "client/monitors/MonitorSettingsPage.h"

#include "client/panels/StatusText.h"
#include "framework/monitors/ExMonitorManager.h"
#include "platform/properties/KxPropertyPool.h"
#include "platform/properties/KxSiteSettings.h"
#include "tests/support/PrivateSettings.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using M = ExMonitorManager;

template <typename T>
T valueOf(const char *key)
{
    return KxPropertyPool::instance().find<T>(key)->value();
}

template <typename Field>
Field &field(const QDialog &page, const char *name)
{
    return *page.findChild<Field *>(QLatin1String(name));
}

void enter(QWidget &spinBox, const QString &text)
{
    QMetaObject::invokeMethod(&spinBox, "selectAll");
    QTest::keyClicks(&spinBox, text);
    QTest::keyClick(&spinBox, Qt::Key_Return);
}

} // namespace

class tst_MonitorSettingsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_page = std::make_unique<MonitorSettingsPage>(siteFile(), nullptr); }

    void splittingHoldsAtOnce()
    {
        M &manager = M::instance();
        ExMonitorWidget::Content content;
        manager.setConfiguration(&content, {{0}, {}, {}, false, false});
        auto &split = field<QCheckBox>(*m_page, "Split0");
        split.click();
        QCOMPARE(manager.numMonitors(), 2);
        QCOMPARE(manager.configuration(&content).monitors, (QList<int>{0, 1}));
        QVERIFY(readFile(m_settings.path("settings.ini")).contains("UI.SplitMonitorConfig=1"));
        QVERIFY(field<QLabel>(*m_page, "Category0").text().startsWith(u"2 × Small"));
        split.click();
        QCOMPARE(manager.configuration(&content).monitors, QList<int>{0});
        manager.removeContent(&content);
        qDeleteAll(manager.monitorWidgets());
    }

    void thresholdsInTheWrongOrder()
    {
        auto &medium = field<QDoubleSpinBox>(*m_page, M::PROPERTY_THRESHOLD_SMALL);
        auto &large = field<QDoubleSpinBox>(*m_page, M::PROPERTY_THRESHOLD_MEDIUM);
        const auto &message = field<StatusText>(*m_page, "Message");
        enter(medium, u"4.5"_s);
        QCOMPARE(valueOf<float>(M::PROPERTY_THRESHOLD_SMALL), 2.3F);
        QVERIFY2(message.text().contains(u"4.50 megapixels"), qUtf8Printable(message.text()));
        QVERIFY(!field<QPushButton>(*m_page, "SaveForSite").isEnabled());
        enter(large, u"5"_s);
        QVERIFY(message.text().isEmpty());
        QCOMPARE(valueOf<float>(M::PROPERTY_THRESHOLD_SMALL), 4.5F);
        QCOMPARE(valueOf<float>(M::PROPERTY_THRESHOLD_MEDIUM), 5.0F);

        // The class of each monitor follows.
        enter(medium, u"0.1"_s);
        enter(large, u"0.2"_s);
        QVERIFY(field<QLabel>(*m_page, "Category0").text().startsWith(u"Large"));
        field<QPushButton>(*m_page, "ResetAll").click();
        QCOMPARE(valueOf<float>(M::PROPERTY_THRESHOLD_MEDIUM), 3.9F);
        QVERIFY(field<QLabel>(*m_page, "Category0").text().startsWith(u"Small"));
    }

    void damagedSettings()
    {
        auto *const font = KxPropertyPool::instance().find<int>(M::PROPERTY_FONT_SIZE_LARGE);
        font->change(-3);
        const auto &message = field<StatusText>(*m_page, "Message");
        QVERIFY2(message.text().contains(u"-3"), qUtf8Printable(message.text()));
        enter(field<QSpinBox>(*m_page, M::PROPERTY_FONT_SIZE_LARGE), u"14"_s);
        QCOMPARE(font->value(), 14);
        QVERIFY(message.text().isEmpty());
    }

    void savedForTheSite()
    {
        writeFile(siteFile(), "; of the site\n[General]\nUI.Other=kept\n");
        enter(field<QSpinBox>(*m_page, M::PROPERTY_THUMBNAIL_SIZE_MEDIUM), u"144"_s);
        field<QPushButton>(*m_page, "SaveForSite").click();
        const KxSiteSettings site(siteFile());
        QCOMPARE(site.value(u"UI.Other"_s), u"kept"_s);
        QCOMPARE(site.value(QLatin1String(M::PROPERTY_THUMBNAIL_SIZE_MEDIUM)), u"144"_s);
        QCOMPARE(site.value(QLatin1String(M::PROPERTY_THRESHOLD_SMALL)), u"2.3"_s);
        QVERIFY(readFile(siteFile() + u".old"_s).startsWith("; of the site"));
    }

    void whereTheSiteCannotBeSaved()
    {
        writeFile(m_settings.path("file.ini"), "");
        writeFile(m_settings.path("damaged.ini"), QByteArray("\x01\x02no\n", 5));
        for (const QString &file :
            {m_settings.path("file.ini/site.ini"), m_settings.path("damaged.ini"), QString()}) {
            const MonitorSettingsPage page(file, nullptr);
            QVERIFY(!field<QPushButton>(page, "SaveForSite").isEnabled());
            const QString text = field<StatusText>(page, "SiteMessage").text();
            QVERIFY2(text.contains(u"cannot be saved") && text.contains(file), qPrintable(text));
        }
    }

private:
    [[nodiscard]] QString siteFile() const { return m_settings.path("site.ini"); }

    PrivateSettings m_settings;
    std::unique_ptr<MonitorSettingsPage> m_page;
};

QTEST_MAIN(tst_MonitorSettingsPage)
#include "tst_MonitorSettingsPage.moc"
