#include "framework/dispatch/ExActionHandler.h"
#include "framework/dispatch/ExActionMap.h"

#include <QStringList>
#include <QTest>

#include <functional>
#include <map>
#include <memory>

namespace {

struct Signal
{
    int number = 0;
    int orderKey = 0;

    [[nodiscard]] int code() const { return number; }
    friend bool operator==(const Signal &a, const Signal &b) { return a.number == b.number; }
};

using Event = int;

class Map : public ExActionMap<Signal, int, Event>
{
public:
    bool triggerBackward(const Signal &signal, const Event &event)
    {
        List *const list = find(signal.code());
        return list != nullptr && walkBackward(*list, event, [](const Signal &) { return true; });
    }
    [[nodiscard]] std::size_t numEntries(int key)
    {
        List *const list = find(key);
        return list == nullptr ? 0 : list->size();
    }
};

class Receiver : public ExActionHandler
{
public:
    Receiver(const QString &name, QStringList &log)
        : m_name(name)
        , m_log(&log)
    { }

    bool called(const Event & /*event*/)
    {
        m_log->append(m_name);
        // A copy: what is to be done may destroy this object.
        const auto act = reaction;
        return act && act();
    }
    bool otherwise(const Event & /*event*/)
    {
        m_log->append(m_name + u'\'');
        return false;
    }

    std::function<bool()> reaction;

private:
    QString m_name;
    QStringList *m_log;
};

/// A map with the receivers a, b and c under key 1, x and y under key 2.
struct House
{
    explicit House(bool walksForward = true)
        : forward(walksForward)
    {
        for (const char *name : {"a", "b", "c"}) {
            add(name, 1);
        }
        add("x", 2);
        add("y", 2);
    }

    Receiver &add(const char *name, int key, int orderKey = 0)
    {
        auto &receiver = receivers[QLatin1String(name)];
        receiver = std::make_unique<Receiver>(QLatin1String(name), log);
        map->addAction({{key, orderKey}, receiver.get(), &Receiver::called});
        return *receiver;
    }
    Receiver *operator[](const char *name) { return receivers[QLatin1String(name)].get(); }
    void destroy(const char *name) { receivers.erase(QLatin1String(name)); }
    void removeAction(const char *name, int key = 1)
    {
        map->removeAction({{key}, (*this)[name], &Receiver::called});
    }
    bool walk(int key) { return forward ? map->trigger({key}, 0) : map->triggerBackward({key}, 0); }
    /// Gives what was called since the last time.
    QString taken()
    {
        const QString calls = log.join(u' ');
        log.clear();
        return calls;
    }

    bool forward;
    QStringList log;
    std::unique_ptr<Map> map = std::make_unique<Map>();
    std::map<QString, std::unique_ptr<Receiver>> receivers;
    int nesting = 0;
};

using Act = std::function<bool(House &)>;

/// What b does when it is called for the first time, and who is called then and in the walk after.
struct Change
{
    const char *name;
    Act act;
    const char *forward;
    const char *backward;
    std::size_t entriesLeft;
};

bool nested(House &house, int key)
{
    house.log.append(QStringLiteral("("));
    house.walk(key);
    house.log.append(QStringLiteral(")"));
    return false;
}

const Change changes[] = {
    {"consumes", [](House &) { return true; }, "a b | a b c", "c b | c b a", 3},
    {"destroys itself",
        [](House &house) {
            house.destroy("b");
            return false;
        },
        "a b c | a c", "c b a | c a", 2},
    {"destroys the others",
        [](House &house) {
            house.destroy("a");
            house.destroy("c");
            return false;
        },
        "a b | b", "c b | b", 1},
    {"destroys all and consumes",
        [](House &house) {
            house.receivers.clear();
            return true;
        },
        "a b | ", "c b | ", 0},
    {"removes the actions of the others",
        [](House &house) {
            house.removeAction("a");
            house.removeAction("c");
            return false;
        },
        "a b | b", "c b | b", 1},
    {"removes all receivers",
        [](House &house) {
            for (const auto &[name, receiver] : house.receivers) {
                house.map->removeReceiver(*receiver);
            }
            return false;
        },
        "a b | ", "c b | ", 0},
    {"adds at the end",
        [](House &house) {
            house.add("d", 1);
            return false;
        },
        "a b c | a b c d", "c b a | d c b a", 4},
    {"adds in the midst and in front",
        [](House &house) {
            house.add("e", 1, -1);
            house.add("d", 1, -2);
            house.add("f", 1, 1);
            return false;
        },
        "a b c | d e a b c f", "c b a | f c b a e d", 6},
    {"adds many, so that the entries are moved in memory",
        [](House &house) {
            for (int i = 0; i < 1000; ++i) {
                house.map->addAction({{1, i % 2}, house["x"], &Receiver::called});
            }
            house.destroy("x");
            return false;
        },
        "a b c | a b c", "c b a | c b a", 3},
    {"destroys one and puts another in its place",
        [](House &house) {
            house.destroy("c");
            house.add("c", 1);
            house.destroy("a");
            house.add("a", 1);
            return false;
        },
        "a b | b c a", "c b | a c b", 3},
    {"destroys in a nested walk over the same key",
        [](House &house) {
            if (house.nesting++ == 0) {
                return nested(house, 1);
            }
            house.destroy("a");
            house.destroy("c");
            return false;
        },
        "a b ( a b ) | b", "c b ( c b ) | b", 1},
    {"adds before a nested walk over the same key",
        [](House &house) {
            if (house.nesting++ > 0) {
                return false;
            }
            house.add("d", 1, -1);
            return nested(house, 1);
        },
        "a b ( d a b c ) c | d a b c", "c b ( c b a d ) a | c b a d", 4},
    {"destroys before and in a walk over another key",
        [](House &house) {
            house.destroy("x");
            house["y"]->reaction = [&house] {
                house.destroy("c");
                return false;
            };
            return nested(house, 2);
        },
        "a b ( y ) | a b", "c b ( y ) a | b a", 2},
    {"destroys the map",
        [](House &house) {
            house.map.reset();
            return false;
        },
        "a b | ", "c b | ", 0},
    {"destroys the map in a nested walk, then receivers",
        [](House &house) {
            house["y"]->reaction = [&house] {
                house.map.reset();
                house.destroy("c");
                return false;
            };
            return nested(house, 2);
        },
        "a b ( x y ) | ", "c b ( y ) | ", 0},
};

int goneReceivers = 0;

class Base
{
public:
    virtual ~Base() = default;
    virtual bool inherited(const Event &event) { return seen == event; }
    Event seen = 7;
};

class Left : public ExActionHandler
{
public:
    bool left(const Event & /*event*/) { return m_left == 3; }

private:
    int m_left = 3;
};

class Right : public virtual ExActionHandlerCore
{
public:
    virtual bool right(const Event & /*event*/) { return false; }

protected:
    int m_right = 4;
};

/// A receiver in two ways, with one core; a handler in each of its bases.
class Diamond : public Base, public Left, public Right
{
public:
    ~Diamond() override { ++goneReceivers; }
    bool inherited(const Event &event) override { return Base::inherited(event) && m_own == 5; }
    bool right(const Event & /*event*/) override { return m_right == 4; }
    bool own(const Event & /*event*/) { return m_own == 5; }

private:
    int m_own = 5;
};

} // namespace

class tst_ExActionMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesDuringAWalk_data();
    void changesDuringAWalk();
    void handlersOfAllBases();
    void ordersByOrderKeyThenByAddition();
    void removesTheFirstWithReceiverAndSignal();
    void deadActionsAreNeverCalled();
    void aCopiedReceiverHasNoActions();
    void thousandsOfReceivers();
};

void tst_ExActionMap::changesDuringAWalk_data()
{
    QTest::addColumn<int>("change");
    QTest::addColumn<bool>("forward");
    for (int i = 0; i < static_cast<int>(std::size(changes)); ++i) {
        QTest::addRow("%s, forward", changes[i].name) << i << true;
        QTest::addRow("%s, backward", changes[i].name) << i << false;
    }
}

void tst_ExActionMap::changesDuringAWalk()
{
    QFETCH(const int, change);
    QFETCH(const bool, forward);
    House house(forward);
    house["b"]->reaction = [&house, act = changes[change].act] { return act(house); };
    const bool consumed = house.walk(1);
    QString calls = house.taken() + u" | ";
    if (Receiver *const b = house["b"]) {
        b->reaction = nullptr;
    }
    if (house.map) {
        QCOMPARE(house.map->numEntries(1), changes[change].entriesLeft);
        house.walk(1);
    }
    calls += house.taken();
    QCOMPARE(calls, QLatin1String(forward ? changes[change].forward : changes[change].backward));
    QCOMPARE(consumed, QLatin1String(changes[change].name).contains(QLatin1String("consumes")));
}

void tst_ExActionMap::handlersOfAllBases()
{
    Map map;
    auto diamond = std::make_unique<Diamond>();
    map.addAction({{1}, diamond.get(), &Diamond::own});
    map.addAction({{2}, diamond.get(), &Left::left});
    map.addAction({{3}, diamond.get(), &Right::right});
    map.addAction({{4}, diamond.get(), &Base::inherited});
    map.addAction(Map::Action::bound<&Base::inherited>({5}, diamond.get()));
    Right &asRight = *diamond;
    map.addAction({{6}, &asRight, &Right::right});
    for (int key = 1; key <= 6; ++key) {
        QVERIFY2(map.trigger({key}, 7), qPrintable(QString::number(key)));
    }
    QVERIFY(!map.trigger({4}, 8)); // The event arrives.

    diamond.reset();
    QCOMPARE(goneReceivers, 1);
    for (int key = 1; key <= 6; ++key) {
        QVERIFY(!map.trigger({key}, 7));
        QCOMPARE(map.numEntries(key), 0U);
    }
}

void tst_ExActionMap::ordersByOrderKeyThenByAddition()
{
    House house;
    house.add("low", 1, -1);
    house.add("high", 1, 2);
    house.add("late", 1, 0);
    house.add("highest", 1, 2);
    QVERIFY(!house.walk(1));
    QCOMPARE(house.taken(), QStringLiteral("low a b c late high highest"));
    house.forward = false;
    house.walk(1);
    QCOMPARE(house.taken(), QStringLiteral("highest high late c b a low"));
    QVERIFY(!house.walk(3));

    QList<int> keys;
    house.map->forEachList([&keys](int key, const Map::List &) { keys.append(key); });
    QCOMPARE(keys, QList<int>({1, 2}));
}

void tst_ExActionMap::removesTheFirstWithReceiverAndSignal()
{
    House house;
    house.map->addAction({{1}, house["a"], &Receiver::otherwise});
    house.map->addAction({{1}, house["a"], &Receiver::called});
    house.map->removeAction(
        {{1}, house["a"], &Receiver::otherwise}); // Its handler is not compared.
    house.walk(1);
    QCOMPARE(house.taken(), QStringLiteral("b c a' a"));

    house.removeAction("x", 1);
    house.removeAction("a", 2);
    house.removeAction("a", 3);
    house.map->removeReceiver(*house["x"]);
    house.walk(1);
    house.walk(2);
    QCOMPARE(house.taken(), QStringLiteral("b c a' a y"));
}

void tst_ExActionMap::deadActionsAreNeverCalled()
{
    House house;
    Receiver *const nobody = nullptr;
    bool (Receiver::*const nothing)(const Event &) = nullptr;
    house.map->addAction({{1}, nobody, &Receiver::called});
    house.map->addAction({{1}, house["b"], nothing});
    house.map->addAction({});
    QCOMPARE(house.map->numEntries(1), 5U);
    QVERIFY(!house.walk(0));
    QVERIFY(!house.walk(1));
    QCOMPARE(house.taken(), QStringLiteral("a b c"));
    QCOMPARE(house.map->numEntries(1), 3U);
    QCOMPARE(house.map->numEntries(0), 0U);
}

void tst_ExActionMap::aCopiedReceiverHasNoActions()
{
    House house;
    {
        Receiver copy = *house["a"];
        house.map->removeReceiver(copy);
        copy = *house["b"];
    }
    house.walk(1);
    QCOMPARE(house.taken(), QStringLiteral("a b c"));
}

void tst_ExActionMap::thousandsOfReceivers()
{
    constexpr int count = 3000;
    QStringList log;
    Map map;
    std::vector<std::unique_ptr<Receiver>> receivers;
    for (int i = 0; i < count; ++i) {
        receivers.push_back(std::make_unique<Receiver>(QString::number(i), log));
        for (int key = 0; key < 3; ++key) {
            map.addAction({{key, i * 7 % 5}, receivers.back().get(), &Receiver::called});
        }
    }
    // Every third goes outside of a walk, every other third inside of one.
    for (std::size_t i = 0; i < count; i += 3) {
        receivers[i].reset();
    }
    receivers[1]->reaction = [&receivers] {
        for (std::size_t i = 2; i < count; i += 3) {
            receivers[i].reset();
        }
        return false;
    };
    map.trigger({0}, 0);
    log.clear();
    receivers[1]->reaction = nullptr;
    QStringList expected;
    for (int order = 0; order < 5; ++order) {
        for (int i = 1; i < count; i += 3) {
            if (i * 7 % 5 == order) {
                expected.append(QString::number(i));
            }
        }
    }
    for (int key = 0; key < 3; ++key) {
        map.trigger({key}, 0);
        QCOMPARE(log, expected);
        QCOMPARE(map.numEntries(key), static_cast<std::size_t>(expected.size()));
        log.clear();
    }
}

QTEST_APPLESS_MAIN(tst_ExActionMap)
#include "tst_ExActionMap.moc"
