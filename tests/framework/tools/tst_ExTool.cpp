#include "framework/tools/ExTool.h"
#include "framework/tools/ExToolGroup.h"
#include "tests/framework/tools/FakeTool.h"

namespace {

int callbacks = 0;
[[maybe_unused]] const bool registered = ExTool::addInitCallback([] { callbacks += 1; })
    && ExTool::addInitCallback([] { callbacks *= 10; });

class PickyViewer : public FakeViewer
{
public:
    [[nodiscard]] bool acceptsImageSet(const KxImageSeries & /*imageSet*/) const override
    {
        return !displaySet.empty();
    }
};

ExTool *makeNumbered(int number)
{
    return new FakeTool(("Made" + std::to_string(number)).c_str());
}

QByteArray keyList(bool all)
{
    std::vector<std::string> keys{"left over"};
    ExTool::getDecorationKeyList(keys, all);
    QByteArrayList list;
    for (const std::string &key : keys) {
        list.append(QByteArray::fromStdString(key));
    }
    return list.join(' ');
}

} // namespace

class tst_ExTool : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void init() { takeLog(); }

    void initCallbacksInOrder()
    {
        ExTool::doInitCallbacks();
        ExTool::doInitCallbacks();
        QCOMPARE(callbacks, 110);
    }

    void keysAndMenuTools()
    {
        const FakeTool implicit("Implicit");
        const FakeTool nameless("");
        ExTool::registerTool("Zoom", nullptr, 0, true);
        ExTool::registerTool("Angle", nullptr, 0, false);
        ExTool::registerTool("", &makeNumbered, 0, true);
        ExTool::registerTool(nullptr, &makeNumbered, 0, true);
        const auto menuTools = [] {
            QByteArray answers;
            for (const char *key :
                {"Zoom", "Angle", "Implicit", "Nobody", "", static_cast<const char *>(nullptr)}) {
                answers += ExTool::isMenuTool(key) ? '1' : '0';
            }
            return answers;
        };
        QCOMPARE(menuTools(), QByteArray("100000"));
        for (const char *key : {"Angle", "Implicit", "Nobody", ""}) {
            ExTool::setMenuTool(key, true);
        }
        ExTool::setMenuTool("Zoom", false);
        QCOMPARE(menuTools(), QByteArray("011000"));
        m_settings.setPolicy(R"({"deniedTools": ["An*"]})");
        QCOMPARE(keyList(true), QByteArray("Angle Implicit Zoom"));
        QCOMPARE(keyList(false), QByteArray("Implicit Zoom"));
        m_settings.setPolicy("{}");
    }

    void twoOfOneName()
    {
        auto first = std::make_unique<FakeTool>("Twin");
        auto second = std::make_unique<FakeTool>("Twin");
        second = std::make_unique<FakeTool>("Twin");
        QCOMPARE(ExTool::getToolByDecorationKey("Twin", false), first.get());
        first.reset(); // The first takes the entry with it, though the second lives.
        QCOMPARE(ExTool::getToolByDecorationKey("Twin", false), nullptr);

        const FakeTool nameless(nullptr);
        QCOMPARE(ExTool::getToolByDecorationKey("", false), &nameless);
    }

    void creationOnDemand()
    {
        ExTool::registerTool("Made5", &makeNumbered, 5, false);
        ExTool::registerTool("Unmakable", nullptr, 0, false);
        QCOMPARE(ExTool::getToolByDecorationKey("Made5", false), nullptr);
        for (const char *key : {"Unmakable", "Unheard", static_cast<const char *>(nullptr)}) {
            QCOMPARE(ExTool::getToolByDecorationKey(key, true), nullptr);
        }
        m_settings.setPolicy(R"({"renamedTools": {"Make5": "Made5"}})");
        McHandle<ExTool> made = ExTool::getToolByDecorationKey("Make5", true);
        QCOMPARE(made->decorationKey(), "Made5");
        made.reset();
        made = ExTool::getToolByDecorationKey("Made5", true); // The factory is still there.
        QVERIFY(made);
        QCOMPARE(ExTool::getToolByDecorationKey("Made5", true), made.get());
        m_settings.setPolicy(R"({"deniedTools": ["Made5"]})");
        QCOMPARE(ExTool::getToolByDecorationKey("Made5", true), nullptr);
        m_settings.setPolicy("{}");
    }

    void viewersSupported()
    {
        const FakeTool tool("t");
        const McHandle<PickyViewer> viewer = new PickyViewer;
        QVERIFY(!tool.supportsViewer(nullptr) && !tool.supportsViewer(viewer));
        viewer->imageSets[0] = viewerWithVolume()->imageSets[0];
        QVERIFY(!tool.supportsViewer(viewer));
        viewer->displaySet = "accepted";
        QVERIFY(tool.supportsViewer(viewer) && tool.isEnabled(viewer));
        viewer->imageSets[0] = new KxImageSeries("empty");
        QVERIFY(!tool.supportsViewer(viewer) && !tool.isEnabled(viewer));
    }

    void activation()
    {
        const McHandle<FakeTool> a = new FakeTool("a");
        const McHandle<FakeTool> b = new FakeTool("b");
        FakeUI own;
        FakeUI button;
        own.setTool(a);
        ExToolGroup loose;
        ExToolGroup group;
        group.setExclusive(true);
        group.setBringUp(true);
        group.setGroupUI(&button);
        for (const McHandle<FakeTool> &tool : {b, a}) {
            loose.appendTool(tool, false);
            group.appendTool(tool, false);
        }
        takeLog();
        QVERIFY(b->setActive(true) && a->setActive(true) && !b->isActive());
        QCOMPARE(takeLog(), u"b on,shows b,a off,update,update,a on,shows a,b off,update,update"_s);
        QVERIFY(a->setActive(true)); // Only refreshes.
        QCOMPARE(takeLog(), u"a on,update,update"_s);
        group.setToolBarFixed(*b, true);
        group.setExclusive(false);
        QVERIFY(b->setActive(true) && a->isActive());
        b->activatable = false;
        QVERIFY(!b->setActive(false) && b->isActive());
        QCOMPARE(takeLog(), u"b on,b off"_s);
    }

    void toolThatDestroysTheExclusiveGroup()
    {
        auto group = std::make_unique<ExToolGroup>();
        auto *const a = new FakeTool("a");
        auto *const b = new FakeTool("b");
        for (FakeTool *const tool : {a, b, new FakeTool("c")}) {
            group->appendTool(tool, false);
        }
        group->setExclusive(true);
        b->act = [&group] { group.reset(); };
        a->setActive(true); // Stays until all is done.
        QCOMPARE(takeLog(), u"a on,b off,c gone,b gone,a gone"_s);
    }

    void membersOfAGroup()
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

    void copiesOfAGroupAreOne()
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
};

QTEST_MAIN(tst_ExTool)
#include "tst_ExTool.moc"
