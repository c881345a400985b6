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

    /// The button behind which a tool bar that is too narrow keeps its rest.
    void signOfHiddenToolsIsSeen()
    {
        for (const QString &style : m_factory.styleNames().mid(1)) {
            m_factory.setCurrentStyle(style);
            const QIcon icon
                = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton);
            const QImage sign = icon.pixmap(16, 16).toImage();
            const QColor panel = m_factory.color(Role::Panel);
            int seen = 0;
            for (int i = 0; i < sign.width() * sign.height(); ++i) {
                const QColor dot = sign.pixelColor(i % sign.width(), i / sign.width());
                seen += dot.alpha() > 128 && QxStyleFactory::contrast(dot, panel) >= 4.5 ? 1 : 0;
            }
            QVERIFY2(seen >= 8 && seen < 128, qPrintable(style));
        }
    }

    void textsAreReadable()
    {
        const Role grounds[] = {Role::ViewerGround, Role::Window, Role::Panel, Role::Raised};
        const Role texts[]
            = {Role::Text, Role::SecondaryText, Role::Accent, Role::Warning, Role::Error};
        for (const QString &style : m_factory.styleNames()) {
            m_factory.setCurrentStyle(style);
            for (const Role ground : grounds) {
                for (const Role text : texts) {
                    const QColor color = m_factory.textColor(text, ground);
                    const QString pair
                        = u"%1: %2 on %3"_s.arg(style).arg(int(text)).arg(int(ground));
                    QVERIFY2(QxStyleFactory::contrast(color, m_factory.color(ground)) >= 4.5,
                        qPrintable(pair));
                    // The table itself is readable, but for the dark styles' red on all but the
                    // darkest grounds.
                    const bool mayMove = style == native || ground == Role::ViewerGround
                        || (text == Role::Error && ground != Role::Window);
                    QVERIFY2(mayMove || color == m_factory.color(text), qPrintable(pair));
                }
            }
            const QColor onAccent = m_factory.textColor(Role::AccentText, Role::Accent);
            QVERIFY(QxStyleFactory::contrast(onAccent, m_factory.color(Role::Accent)) >= 4.5);
            QCOMPARE(m_factory.textColor(Role::Text, Role::ViewerGround),
                m_factory.color(Role::ViewerText));
        }
    }

    void paletteIsReadable()
    {
        using P = QPalette;
        const std::pair<P::ColorRole, P::ColorRole> pairs[]
            = {{P::WindowText, P::Window}, {P::Text, P::Base}, {P::Text, P::AlternateBase},
                {P::PlaceholderText, P::Base}, {P::ButtonText, P::Button},
                {P::HighlightedText, P::Highlight}, {P::ToolTipText, P::ToolTipBase},
                {P::Link, P::Window}, {P::Link, P::Base}, {P::LinkVisited, P::Base}};
        for (const QString &style : m_factory.styleNames().mid(1)) { // all but the desktop's
            m_factory.setCurrentStyle(style);
            const P palette = QApplication::palette();
            for (const auto &[text, ground] : pairs) {
                for (const auto group : {P::Active, P::Inactive}) {
                    const double contrast = QxStyleFactory::contrast(
                        palette.color(group, text), palette.color(group, ground));
                    QVERIFY2(contrast >= 4.5,
                        qPrintable(u"%1: %2 on %3"_s.arg(style).arg(text).arg(ground)));
                }
            }
            QTreeWidget list;
            list.ensurePolished();
            const P rows = list.palette();
            const QColor selected = rows.color(P::Highlight);
            QVERIFY(QxStyleFactory::contrast(rows.color(P::HighlightedText), selected) >= 4.5);
            // Long rows must not outshine the images.
            QVERIFY(selected != palette.color(P::Highlight));
        }
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
            QCOMPARE(label.grab().toImage().pixelColor(0, 0), m_factory.color(Role::Window));
            // All colours of the sheet's template are filled in.
            QVERIFY(!qApp->styleSheet().contains(u'@'));
        }
        m_factory.setCurrentStyle(native);
        QVERIFY(QApplication::palette() == desktop && qApp->styleSheet().isEmpty());
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
        const QSignalSpy spy(&m_factory, &QxStyleFactory::paletteChanged);
        const auto found = [this](const char *key) -> QString {
            QColor color(1, 2, 3);
            const bool defined = m_factory.userDefinedColor(key, color);
            return (defined ? QString() : u"none "_s) + color.name();
        };
        QCOMPARE(found("HALDO_BackViolet"), u"none #010203"_s);
        m_factory.setCurrentStyle(medium);
        QCOMPARE(found("HALDO_BackViolet"), m_factory.color(Role::Raised).name());
        QCOMPARE(found("haldo_backviolet"), u"none #010203"_s);
        for (const QColor &color : {QColor(Qt::magenta), QColor(Qt::magenta), QColor()}) {
            m_factory.setUserDefinedColor("HALDO_BackViolet", color);
            QCOMPARE(found("HALDO_BackViolet"),
                (color.isValid() ? color : m_factory.color(Role::Raised)).name());
        }
        QCOMPARE(spy.count(), 3);
    }

private:
    ProgramLog m_log;
    QxStyleFactory &m_factory = QxStyleFactory::instance();
};

QTEST_MAIN(tst_QxStyleFactory)
#include "tst_QxStyleFactory.moc"
