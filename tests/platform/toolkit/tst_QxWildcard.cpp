#include "platform/toolkit/QxWildcard.h"

#include <QTest>

using namespace Qt::StringLiterals;

class tst_QxWildcard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void matches()
    {
        // Pattern, keys that match, keys that do not, each separated by blanks
        const std::tuple<QString, QString, QString> rows[]
            = {{u"View.Zoom"_s, u"View.Zoom"_s, u"view.zoom ViewXZoom View.Zoom2 aView.Zoom"_s},
                {u"View.*"_s, u"View. View.Zoom View.a.b/c\\d"_s, u"View"_s},
                {u"*Zoom*In"_s, u"ZoomIn aZoombIn"_s, u"ZoomInn"_s},
                {u"a?c"_s, u"abc a.c aéc a😀c"_s, u"ac abbc"_s},
                {u"[ab]1"_s, u"a1 b1"_s, u"c1 A1 ab1"_s}, {u"[a-c]"_s, u"a b c"_s, u"d -"_s},
                {u"[!a-c]"_s, u"d ! -"_s, u"a"_s}, {u"[]a]"_s, u"] a"_s, u"[]a]"_s},
                {u"[!]]"_s, u"a"_s, u"]"_s}, {u"[a^\\[]"_s, u"a ^ \\ ["_s, u"b"_s},
                {u"[^a]"_s, u"^ a"_s, u"b"_s}, {u"a[b"_s, u"a[b"_s, u"ab"_s},
                {u"a]b\\d(e|f)+$"_s, u"a]b\\d(e|f)+$"_s, u"a]b1e"_s}, {u"[]"_s, u"[]"_s, u"]"_s},
                {QString(), QString(), u"a"_s}};
        for (const auto &[pattern, matching, others] : rows) {
            const QRegularExpression expression = QxWildcard::expression(pattern);
            QVERIFY2(expression.isValid(), qUtf8Printable(expression.errorString()));
            QStringList found;
            for (const QString &key : QString(matching % u' ' % others).split(u' ')) {
                found += expression.match(key).hasMatch() ? QStringList(key) : QStringList();
            }
            QCOMPARE(found.join(u' '), matching);
        }
    }

    void backwardRangeAndWhateverThereIs()
    {
        QVERIFY(!QxWildcard::expression(u"[z-a]"_s).isValid());
        for (const QString &key : {QString(), u"a/b"_s, u"two\nlines"_s}) {
            QVERIFY(QxWildcard::expression(u"*"_s).match(key).hasMatch());
        }
    }
};

QTEST_APPLESS_MAIN(tst_QxWildcard)
#include "tst_QxWildcard.moc"
