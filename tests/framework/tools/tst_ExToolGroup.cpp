#include "framework/tools/ExToolGroup.h"
#include "tests/framework/tools/FakeTool.h"

class tst_ExToolGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { takeLog(); }

    void members()
    {
        const McHandle<FakeTool> a = new FakeTool("a");
        const McHandle<FakeTool> b = new FakeTool("b");
        {
            ExToolGroup group;
            group.appendTool(nullptr, true);
            group.appendTool(new FakeTool("c"), true);
            group.appendTool(b, true);
            group.appendTool(a, false);
            group.appendTool(b, false);
            QVERIFY(group.getTools().size() == 3 && group.getToolBarFixed(*b)
                && !group.getActiveTool());
            a->setActive(true);
            QCOMPARE(group.getActiveTool().get(), a.get());
            b->setActive(true);
            QCOMPARE(group.getActiveTool().get(), b.get());
            group.removeTool(b);
            group.removeTool(b);
            group.removeTool(nullptr);
            QVERIFY(group.getTools().size() == 2 && group.getToolBarFixed(*b));
            group.appendTool(b, false);
            group.appendTool(new FakeTool("d"), true);
            QVERIFY(!group.getToolBarFixed(*b));
            group.setExclusive(true);
            takeLog();
        }
        a->setActive(false);
        a->setActive(true); // Knows of no group any more.
        QCOMPARE(takeLog(), u"d gone,c gone,a off,a on"_s);
    }

    void copiesAreOneGroup()
    {
        for (const bool originalGoesFirst : {true, false}) {
            takeLog();
            const McHandle<FakeTool> a = new FakeTool("a");
            auto original = std::make_unique<ExToolGroup>();
            original->appendTool(a, false);
            auto copy = std::make_unique<ExToolGroup>(*original);
            copy->setExclusive(true);
            copy->appendTool(new FakeTool("b"), true);
            a->setActive(true);
            const std::unique_ptr<ExToolGroup> last
                = std::move(originalGoesFirst ? copy : original);
            (originalGoesFirst ? original : copy).reset();
            a->setActive(false);
            a->setActive(true);
            last->removeTool(a);
            a->setActive(false);
            *last = ExToolGroup();
            QCOMPARE(takeLog(), u"a on,b off,a off,a on,b off,a off,b gone"_s);
        }
    }

private:
    PrivateSettings m_settings;
};

QTEST_MAIN(tst_ExToolGroup)
#include "tst_ExToolGroup.moc"
