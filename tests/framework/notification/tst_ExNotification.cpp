#include "tests/support/Prelude.h"

using Type = ExNotification::Type;

class tst_ExNotification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void names()
    {
        const std::pair<int, const char *> rows[] = {{-2, "NONE"}, {-1, "UNSPECIFIC"}, {0, "NONE"},
            {18, "ACTIVE_VIEWER_CHANGED"}, {51, "_3D_QUALITY_CHANGED"}, {99, "_3DCONTOUR_EXITED"},
            {121, "ABOUT_TO_SHOW_CONTEXTMENU"}, {122, "NONE"}};
        for (const auto &[number, name] : rows) {
            QCOMPARE(ExNotification::Type2String(static_cast<Type>(number)), name);
        }
    }

    void typesThatNeedAViewer()
    {
        int place = 0;
        QList<int> invalid[2];
        for (int i = 0; i < 2; ++i) {
            auto *const viewer = i == 0 ? nullptr : reinterpret_cast<ExBaseViewer *>(&place);
            for (int number = -3; number <= 123; ++number) {
                if (!ExNotification(static_cast<Type>(number), viewer).isValid()) {
                    invalid[i].append(number);
                }
            }
        }
        QCOMPARE(invalid[0], QList<int>({-3, -2, 8, 9, 10, 11, 12, 13, 14, 15, 18, 122, 123}));
        QCOMPARE(invalid[1], QList<int>({-3, -2, 122, 123}));
    }
};

QTEST_APPLESS_MAIN(tst_ExNotification)
#include "tst_ExNotification.moc"
