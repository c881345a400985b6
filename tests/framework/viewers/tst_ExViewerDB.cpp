#include "framework/viewers/ExScopedDetach.h"
#include "framework/viewers/ExViewerDB.h"
#include "framework/viewers/ExViewerDBGroup.h"
#include "tests/support/Prelude.h"

namespace {

using DB = ExViewerDB;
using Viewers = McDArray<ExBaseViewer *>;

const std::string zoom = DB::ZOOM_GROUP;
int goneFactories = 0;
int goneGroups = 0;

class OwnFactory : public DB::GroupFactory
{
public:
    class Group : public ExViewerDBGroup
    {
    public:
        using ExViewerDBGroup::ExViewerDBGroup;
        ~Group() override { ++goneGroups; }
    };
    ~OwnFactory() override { ++goneFactories; }
    [[nodiscard]] ExViewerDBGroup *create(const std::string &type) const override
    {
        auto *const group = new Group(type);
        group->setGroupId("4");
        return group;
    }
};

} // namespace

class tst_ExViewerDB : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        DB::clear(nullptr);
        for (McHandle<FakeViewer> *viewer : {&a, &b, &c, &d}) {
            *viewer = new FakeViewer;
        }
    }

    void types()
    {
        QVERIFY(DB::groupEnabled("Zz")); // Naming a type makes it.
        const int before = DB::numTypes();
        DB::setGroupEnabled("Aa", false);
        QCOMPARE(DB::numTypes(), before + 1);
        QCOMPARE(DB::type(0) + DB::type(before) + DB::type(-1) + DB::type(before + 1),
            std::string("AaZz"));
        QVERIFY(!DB::groupEnabled("Aa") && DB::groupEnabled("Zz"));

        auto *const factory = new OwnFactory;
        DB::registerGroupType("Aa", factory);
        DB::registerGroupType("Aa", factory);
        QVERIFY(dynamic_cast<const OwnFactory::Group *>(DB::createGroup("Aa", {a}, true)));
        QCOMPARE(DB::groupId("Aa", a), std::string("5")); // One more than its factory gave it.
        DB::registerGroupType("Aa", new ExViewerDBGroup::Factory);
        DB::clearGroups("Aa", nullptr);
        QCOMPARE(goneFactories + 10 * goneGroups, 11);
    }

    void identifiers()
    {
        const ExViewerDBGroup *const first = DB::createGroup(zoom, {a, b}, true);
        DB::createGroup(zoom, {c}, true);
        QCOMPARE(DB::createGroup(zoom, {d}, true)->groupId(), std::string("3"));
        DB::setGroupId(zoom, c, "7");
        QCOMPARE(DB::createGroup(zoom, {}, true)->groupId(), std::string("8"));
        DB::setGroupId(zoom, a, "ACTIVE");
        DB::setGroupId(zoom, d, "-20");
        QCOMPARE(DB::createGroup(zoom, {}, true)->groupId(), std::string("9"));
        QVERIFY(DB::group(zoom, std::string("ACTIVE")) == first && DB::group(zoom, 0) == first);
        QVERIFY(!DB::group(zoom, std::string("3")) && !DB::group(zoom, -1) && !DB::group(zoom, 5));
        QVERIFY(DB::isSameGroup(zoom, a, b) && !DB::isSameGroup(zoom, a, c));
    }

    void unknownViewers()
    {
        DB::setGroupId(zoom, a, "5");
        DB::setViewerAttribute(zoom, a, "name", "true");
        DB::appendViewer(zoom, a, b, true);
        DB::clear(a);
        QCOMPARE(DB::groupId(zoom, a) + DB::viewerAttribute(zoom, a, "name"), std::string("-1"));
        QVERIFY(!DB::group(zoom, a) && !DB::group(zoom, b) && !DB::isSameGroup(zoom, a, a));
        QVERIFY(!DB::viewerAttributeAsBool(zoom, a, "name") && !DB::lastActiveViewer(zoom, a));
        QVERIFY(!DB::checkViewerAttributeList(zoom, a, {}));
    }

    void attributes()
    {
        DB::createGroup(zoom, {a}, true);
        DB::appendViewer(zoom, a, b, false);
        DB::setViewerAttributeList(zoom, a, {{"x", "TRUE"}, {"", "true"}, {"Aa", "true"}});
        DB::AttributeList read{{"left", "over"}};
        DB::viewerAttributeList(zoom, a, read);
        QCOMPARE(read,
            DB::AttributeList(
                {{"Aa", "true"}, {DB::ATT_ATTACHED, std::string("true")}, {"x", "TRUE"}}));
        QVERIFY(DB::checkViewerAttributeList(zoom, a, {}));
        QVERIFY(DB::checkViewerAttributeList(zoom, a, {{"Aa", "false"}, {DB::ATT_ATTACHED, ""}}));
        for (const std::string name : {"x", "never set"}) { // Only the exact word is true.
            QVERIFY(!DB::checkViewerAttributeList(zoom, a, {{"Aa", "true"}, {name, "true"}}));
        }
        ExViewerDBGroup copy = *DB::group(zoom, b); // Looks at the same data.
        copy.setGroupId("copied");
        QCOMPARE(DB::groupId(zoom, a), std::string("copied"));
        QCOMPARE(copy.numAttributes(), 4);
        QCOMPARE(copy.attribute(1) + copy.attribute(-1) + copy.attribute(4), std::string("Aa"));
        {
            const ExScopedDetach detachA(DB::group(zoom, a), a);
            const ExScopedDetach detachB(DB::group(zoom, a), b);
            const ExScopedDetach nothing(nullptr, c);
            QVERIFY(!copy.viewerAttributeAsBool(a, DB::ATT_ATTACHED));
        }
        QVERIFY(copy.viewerAttributeAsBool(a, DB::ATT_ATTACHED));
        QCOMPARE(copy.viewerAttribute(b, DB::ATT_ATTACHED), std::string("false"));
    }

    void membership()
    {
        const ExViewerDBGroup *const first = DB::createGroup(zoom, {a, b}, true);
        DB::createGroup(zoom, {c, c}, true);
        DB::createGroup(zoom, {d, b}, true);
        DB::createGroup("other", {c}, true);
        QCOMPARE(first->viewers(), Viewers({a, b})); // Keeps listing b, which is found elsewhere.
        DB::clear(c); // However often it is in; groups without viewers go, the others are found.
        QCOMPARE(DB::numGroups(zoom) + DB::numGroups("other"), 2);
        DB::createGroup(zoom, {}, true); // Where the last one was before.
        QCOMPARE(DB::groupId(zoom, a) + DB::groupId(zoom, b), std::string("13"));

        DB::appendViewer(zoom, b, c, true);
        DB::appendViewer(zoom, c, d, false); // Already there: only the attribute.
        const ExViewerDBGroup *const last = DB::group(zoom, 1);
        QCOMPARE(last->viewers(), Viewers({d, b, c}));
        QCOMPARE(last->viewerAttribute(d, DB::ATT_ATTACHED), std::string("false"));
        DB::clearGroups(zoom, d);
        QCOMPARE(last->viewers(), Viewers({b, c}));
        QCOMPARE(last->viewerAttribute(d, DB::ATT_ATTACHED), std::string()); // Forgotten.
        DB::clearGroups(zoom, nullptr);
        QCOMPARE(DB::groupId(zoom, a), std::string("-1"));
    }

    void lastActiveViewer()
    {
        using Pair = std::array<ExBaseViewer *, 2>;
        const auto following = [this] {
            return Pair{DB::lastActiveViewer(zoom, a), DB::lastActiveViewer(zoom, b)};
        };
        DB::createGroup(zoom, {c}, true);
        DB::createGroup(zoom, {a, b}, true);
        DB::setLastActiveViewer(zoom, c); // No group is called so.
        QCOMPARE(following(), Pair());
        DB::setGroupId(zoom, a, "ACTIVE");
        DB::setViewerAttribute(zoom, b, DB::ATT_RESTRICT_TO, " set1  set2 ");
        c->displaySet = "set2";
        d->displaySet = "set";
        DB::setLastActiveViewer(zoom, c);
        QCOMPARE(following(), (Pair{c, c}));
        DB::setLastActiveViewer(zoom, d);
        DB::setLastActiveViewer(zoom, b); // A follower is not followed.
        QCOMPARE(following(), (Pair{d, c}));
        DB::clear(d);
        QCOMPARE(following(), (Pair{nullptr, c}));
        DB::setLastActiveViewer(zoom, nullptr);
        QCOMPARE(following(), Pair());
        DB::setLastActiveViewer(zoom, c);
        DB::resetLastActiveViewer(zoom);
        QCOMPARE(following(), Pair());
    }

private:
    McHandle<FakeViewer> a;
    McHandle<FakeViewer> b;
    McHandle<FakeViewer> c;
    McHandle<FakeViewer> d;
};

QTEST_MAIN(tst_ExViewerDB)
#include "tst_ExViewerDB.moc"
