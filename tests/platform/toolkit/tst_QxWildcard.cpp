#include "platform/toolkit/QxWildcard.h"
#include "tests/support/Rows.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_QxWildcard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data()
    {
        // The rows are named by their patterns; the keys are separated by blanks.
        const Rows<QString, QString> row("keys", "matching");
        row("View.Zoom", "View.Zoom view.zoom ViewXZoom View.Zoom2 aView.Zoom", "View.Zoom");
        row("View.*", "View. View.Zoom View.a.b/c\\d View", "View. View.Zoom View.a.b/c\\d");
        row("*", " a a/b", " a a/b");
        row("*Zoom*In", "ZoomIn aZoombIn ZoomInn", "ZoomIn aZoombIn");
        row("a?c",
            "abc ac abbc a.c a\xC3\xA9"
            "c a\xF0\x9F\x98\x80"
            "c",
            "abc a.c a\xC3\xA9"
            "c a\xF0\x9F\x98\x80"
            "c");
        row("[ab]1", "a1 b1 c1 A1 ab1", "a1 b1");
        row("[a-c]", "a b c d -", "a b c");
        row("[!a-c]", "a d ! -", "d ! -");
        row("[]a]", "] a []a]", "] a");
        row("[!]]", "] a", "a");
        row("[a^\\[]", "a ^ \\ [ b", "a ^ \\ [");
        row("[^a]", "^ a b", "^ a");
        row("a[b", "a[b ab", "a[b");
        row("a]b\\d(e|f)+$", "a]b\\d(e|f)+$ a]b1e", "a]b\\d(e|f)+$");
        row("[]", "[] ]", "[]");
        row("", " a", "");
    }

    void matches()
    {
        const QString pattern = QString::fromUtf8(QTest::currentDataTag());
        QFETCH(const QString, keys);
        QFETCH(const QString, matching);
        const QRegularExpression expression = QxWildcard::expression(pattern);
        QVERIFY2(expression.isValid(), qUtf8Printable(expression.errorString()));
        QStringList found;
        for (const QString &key : keys.split(u' ')) {
            if (expression.match(key).hasMatch()) {
                found.append(key);
            }
        }
        QCOMPARE(found.join(u' '), matching);
    }

    void backwardRange()
    {
        QVERIFY(!QxWildcard::expression(u"[z-a]"_s).isValid());
        QVERIFY(QxWildcard::expression(u"*"_s).match(u"two\nlines"_s).hasMatch());
    }
};

QTEST_APPLESS_MAIN(tst_QxWildcard)
#include "tst_QxWildcard.moc"
