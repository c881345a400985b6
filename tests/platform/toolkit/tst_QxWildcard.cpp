#include "platform/toolkit/QxWildcard.h"

#include <QStringList>
#include <QTest>

class tst_QxWildcard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches_data();
    void matches();
    void backwardRange();
};

void tst_QxWildcard::matches_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("keys"); // separated by blanks
    QTest::addColumn<QString>("matching");
    const auto row = [](const char *pattern, const char *keys, const char *matching) {
        QTest::newRow(pattern) << QString::fromUtf8(pattern) << QString::fromUtf8(keys)
                               << QString::fromUtf8(matching);
    };
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

void tst_QxWildcard::matches()
{
    QFETCH(const QString, pattern);
    QFETCH(const QString, keys);
    QFETCH(const QString, matching);
    const QRegularExpression expression = QxWildcard::expression(pattern);
    QVERIFY2(expression.isValid(), qUtf8Printable(expression.errorString()));
    QStringList found;
    for (const QString &key : keys.split(QLatin1Char(' '))) {
        if (expression.match(key).hasMatch()) {
            found.append(key);
        }
    }
    QCOMPARE(found.join(QLatin1Char(' ')), matching);
}

void tst_QxWildcard::backwardRange()
{
    QVERIFY(!QxWildcard::expression(QStringLiteral("[z-a]")).isValid());
    QVERIFY(
        QxWildcard::expression(QStringLiteral("*")).match(QStringLiteral("two\nlines")).hasMatch());
}

QTEST_APPLESS_MAIN(tst_QxWildcard)
#include "tst_QxWildcard.moc"
