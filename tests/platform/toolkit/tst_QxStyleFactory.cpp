#include "platform/toolkit/QxStyleFactory.h"
#include "tests/platform/properties/ProgramLog.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

using namespace Qt::StringLiterals;
using Role = QxStyleFactory::ColorRole;

namespace {

const QString medium = u"Movara Medium"_s;
const QString native = u"Native Style"_s;

struct NamedRole
{
    const char *name;
    Role role;
};

constexpr NamedRole grounds[] = {{"viewer", Role::ViewerGround}, {"window", Role::Window},
    {"panel", Role::Panel}, {"raised", Role::Raised}};
constexpr NamedRole texts[] = {{"text", Role::Text}, {"secondary", Role::SecondaryText},
    {"accent", Role::Accent}, {"warning", Role::Warning}, {"error", Role::Error}};

} // namespace

class tst_QxStyleFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(QRegularExpression(u".*"_s));
        m_factory.setCurrentStyle(native);
        m_log.take();
    }

    void contrastOfKnownPairs()
    {
        QCOMPARE(QxStyleFactory::contrast(Qt::black, Qt::white), 21.0);
        // The grey that is the usual example of just readable text on white: 4.54.
        QCOMPARE(qRound(100 * QxStyleFactory::contrast(QColor(0x76, 0x76, 0x76), Qt::white)), 454);
    }

    void textsAreReadable_data() { everyStyle(); }
    void textsAreReadable()
    {
        QFETCH(const QString, style);
        m_factory.setCurrentStyle(style);
        QStringList faint;
        QStringList moved;
        for (const NamedRole &ground : grounds) {
            for (const NamedRole &text : texts) {
                const QColor color = m_factory.textColor(text.role, ground.role);
                const QString pair = QLatin1String(text.name) + u'/' + QLatin1String(ground.name);
                if (QxStyleFactory::contrast(color, m_factory.color(ground.role)) < 4.5) {
                    faint.append(pair);
                }
                if (ground.role != Role::ViewerGround && color != m_factory.color(text.role)) {
                    moved.append(pair);
                }
            }
        }
        const QColor onAccent = m_factory.textColor(Role::AccentText, Role::Accent);
        const QColor onImage = m_factory.textColor(Role::Text, Role::ViewerGround);
        QVERIFY(QxStyleFactory::contrast(onAccent, m_factory.color(Role::Accent)) >= 4.5);
        QCOMPARE(onImage, m_factory.color(Role::ViewerText));
        QCOMPARE(faint, QStringList());
        if (style != native) {
            // The table itself is readable, but for the dark styles' red on all but the darkest
            // grounds.
            moved.removeOne(u"error/panel"_s);
            moved.removeOne(u"error/raised"_s);
            QCOMPARE(moved, QStringList());
        }
    }

    void paletteIsReadable_data() { everyStyle(native); }
    void paletteIsReadable()
    {
        QFETCH(const QString, style);
        m_factory.setCurrentStyle(style);
        const QPalette palette = QApplication::palette();
        const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
            {QPalette::WindowText, QPalette::Window}, {QPalette::Text, QPalette::Base},
            {QPalette::Text, QPalette::AlternateBase}, {QPalette::PlaceholderText, QPalette::Base},
            {QPalette::ButtonText, QPalette::Button},
            {QPalette::HighlightedText, QPalette::Highlight},
            {QPalette::ToolTipText, QPalette::ToolTipBase}, {QPalette::Link, QPalette::Window},
            {QPalette::Link, QPalette::Base}, {QPalette::LinkVisited, QPalette::Base}};
        for (const auto &[text, ground] : pairs) {
            for (const auto group : {QPalette::Active, QPalette::Inactive}) {
                const double contrast = QxStyleFactory::contrast(
                    palette.color(group, text), palette.color(group, ground));
                QVERIFY2(contrast >= 4.5,
                    qUtf8Printable(u"%1 on %2: %3"_s.arg(text).arg(ground).arg(contrast)));
            }
        }
        QTreeWidget list;
        list.ensurePolished();
        const QPalette rows = list.palette();
        const QColor selected = rows.color(QPalette::Highlight);
        QVERIFY(QxStyleFactory::contrast(rows.color(QPalette::HighlightedText), selected) >= 4.5);
        // Long rows must not outshine the images.
        QVERIFY(selected != palette.color(QPalette::Highlight));
    }

    void stylesChangeTheApplication()
    {
        QCOMPARE(m_factory.styleNames().join(u','),
            u"Native Style,Movara Medium,Movara Dark,Movara Light"_s);
        const QPalette desktop = QApplication::palette();
        const QString desktopStyle = QApplication::style()->name();
        QLabel label(u"text"_s);
        for (const QString &name : m_factory.styleNames()) {
            m_factory.setCurrentStyle(name);
            QCOMPARE(m_factory.currentStyle(), name);
            QCOMPARE(label.palette().color(QPalette::Window), m_factory.color(Role::Window));
            QCOMPARE(label.grab().toImage().pixelColor(0, 0), m_factory.color(Role::Window));
            QCOMPARE(qApp->styleSheet().isEmpty(), name == native);
            // All colours of the sheet's template are filled in.
            QVERIFY(!qApp->styleSheet().contains(u'@'));
        }
        m_factory.setCurrentStyle(native);
        QCOMPARE(QApplication::palette(), desktop);
        QCOMPARE(QApplication::style()->name(), desktopStyle);
    }

    void signalOnlyOnChange()
    {
        QSignalSpy spy(&m_factory, &QxStyleFactory::paletteChanged);
        m_factory.setCurrentStyle(native);
        QCOMPARE(spy.count(), 0);
        m_factory.setCurrentStyle(medium);
        m_factory.setCurrentStyle(medium);
        QCOMPARE(spy.count(), 1);
        m_factory.setCurrentStyle(native);
        m_factory.setCurrentStyle(u"movara dark"_s);
        QCOMPARE(spy.count(), 3);
        QCOMPARE(m_factory.currentStyle(), medium);
        QCOMPARE(m_log.take(),
            QStringList{u"W WARNING - unknown style \"movara dark\", \"Movara Medium\" is used"_s});
    }

    void sizesOfTargets()
    {
        m_factory.setCurrentStyle(medium);
        QMainWindow window;
        auto *const list = new QListWidget;
        list->addItem(u"entry"_s);
        window.setCentralWidget(list);
        QToolBar *const bar = window.addToolBar(QString());
        bar->setIconSize(QSize(24, 24));
        QPixmap icon(24, 24);
        icon.fill(Qt::white);
        QAction *const action = bar->addAction(QIcon(icon), QString());
        window.ensurePolished();
        window.grab();
        QCOMPARE(bar->widgetForAction(action)->size(), QSize(32, 32));
        QCOMPARE(list->visualItemRect(list->item(0)).height(), 24);
    }

    void userDefinedColors()
    {
        QSignalSpy spy(&m_factory, &QxStyleFactory::paletteChanged);
        const auto found = [this](const char *key) -> QString {
            QColor color(1, 2, 3);
            const bool defined = m_factory.userDefinedColor(key, color);
            return (defined ? QString() : u"none "_s) + color.name();
        };
        QCOMPARE(found("HALDO_BackViolet"), u"none #010203"_s);
        m_factory.setCurrentStyle(medium);
        QCOMPARE(found("HALDO_BackViolet"), m_factory.color(Role::Raised).name());
        QCOMPARE(found("haldo_backviolet"), u"none #010203"_s);

        m_factory.setUserDefinedColor("HALDO_BackViolet", Qt::magenta);
        m_factory.setUserDefinedColor("HALDO_BackViolet", Qt::magenta);
        m_factory.setUserDefinedColor("Own", Qt::cyan);
        QCOMPARE(spy.count(), 3);
        QCOMPARE(found("HALDO_BackViolet") + found("Own"), u"#ff00ff#00ffff"_s);
        m_factory.setUserDefinedColor("HALDO_BackViolet", QColor());
        m_factory.setUserDefinedColor("Own", QColor());
        QCOMPARE(found("HALDO_BackViolet"), m_factory.color(Role::Raised).name());
        QCOMPARE(found("Own"), u"none #010203"_s);
    }

private:
    static void everyStyle(const QString &except = QString())
    {
        QTest::addColumn<QString>("style");
        for (const QString &name : QxStyleFactory::instance().styleNames()) {
            if (name != except) {
                QTest::newRow(qUtf8Printable(name)) << name;
            }
        }
    }

    ProgramLog m_log;
    QxStyleFactory &m_factory = QxStyleFactory::instance();
};

QTEST_MAIN(tst_QxStyleFactory)
#include "tst_QxStyleFactory.moc"
