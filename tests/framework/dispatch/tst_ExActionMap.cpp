#include "framework/dispatch/ExActionHandler.h"
#include "framework/dispatch/ExActionMap.h"
#include "tests/support/Prelude.h"

namespace {

struct Signal
{
    int number = 0;
    int orderKey = 0;
    [[nodiscard]] int code() const { return number; }
    friend bool operator==(const Signal &a, const Signal &b) { return a.number == b.number; }
};

class Map : public ExActionMap<Signal, int, int>
{
public:
    bool triggerBackward(int key)
    {
        List *const list = find(key);
        return list && walkBackward(*list, 0, [](const Signal &) { return true; });
    }
    [[nodiscard]] std::size_t numEntries(int key) { return listOf(key).size(); }
};

class Receiver : public ExActionHandler
{
public:
    explicit Receiver(std::function<bool()> reaction)
        : m_reaction(std::move(reaction))
    { }
    bool called(const int & /*event*/)
    {
        const auto react = m_reaction; // A copy: it may destroy this object.
        return react();
    }
    bool otherwise(const int & /*event*/) { return !m_reaction(); }

private:
    std::function<bool()> m_reaction;
};

/// A map with the receivers a, b and c under key 1, x and y under key 2. All write their names to a
/// log; at the n-th call of b or y the n-th of the deeds, which ";" separates, are done:
/// "-a" destroys a receiver, "~a" removes its action, "/a" all its actions, "+d2" adds one with
/// order key 2, "(2" walks over key 2 within, "?" throws, "!" destroys the map, "*" has the list
/// grow out of its memory, "=" consumes.
struct House
{
    House()
    {
        for (const char *name : {"a0", "b0", "c0", "x0", "y0"}) {
            add(QLatin1String(name), *name < 'x' ? 1 : 2);
        }
    }

    void add(const QString &nameAndOrder, int key = 1)
    {
        const QString name = nameAndOrder.left(1);
        auto &receiver = receivers[name];
        receiver = std::make_unique<Receiver>([this, name] { return called(name); });
        map->addAction({{key, nameAndOrder.mid(1).toInt()}, receiver.get(), &Receiver::called});
    }
    bool called(const QString &name)
    {
        log.append(name);
        bool consumes = false;
        if ((name == u"b" || name == u"y") && !deeds.isEmpty()) {
            for (const QString &deed : deeds.takeFirst().split(u' ', Qt::SkipEmptyParts)) {
                consumes = deed == u"=";
                act(deed.front().toLatin1(), deed.mid(1));
            }
        }
        return consumes;
    }
    void act(char deed, const QString &what)
    {
        Receiver *const receiver = receivers[what].get();
        const Map::Action action({1}, receiver, &Receiver::otherwise); // Any handler will do.
        const std::map<char, std::function<void()>> ways{{'-', [&] { receivers.erase(what); }},
            {'~', [&] { map->removeAction(action); }},
            {'/', [&] { map->removeReceiver(*receiver); }}, {'+', [&] { add(what); }},
            {'*', [&] { growForAWhile(); }}, {'(', [&] { walkWithin(what.toInt()); }},
            {'!', [&] { map.reset(); }}, {'?', [] { throw std::runtime_error("as told"); }},
            {'=', [] {}}};
        ways.at(deed)();
    }
    void walkWithin(int key)
    {
        log.append(u"("_s);
        walk(key);
        log.append(u")"_s);
    }
    void growForAWhile()
    {
        for (int i = 0; i < 1000; ++i) {
            map->addAction({{1, i % 2}, receivers[u"x"_s].get(), &Receiver::called});
        }
        receivers.erase(u"x"_s);
    }
    bool walk(int key) { return forward ? map->trigger({key}, 0) : map->triggerBackward(key); }

    bool forward = true;
    QStringList log;
    QStringList deeds;
    std::unique_ptr<Map> map = std::make_unique<Map>();
    std::map<QString, std::unique_ptr<Receiver>> receivers;
};

/// Deeds, who is called in that walk and in those after it, forward and backward, and how many
/// entries are left: ten times those under key 1, and those under key 2.
struct Change
{
    QString deeds;
    QString forward;
    QString backward;
    std::size_t left;
};

const Change changes[] = {
    {u"="_s, u"a b | a b c"_s, u"c b | c b a"_s, 32},
    {u"-b"_s, u"a b c | a c"_s, u"c b a | c a"_s, 22},
    {u"-a -c"_s, u"a b | b"_s, u"c b | b"_s, 12},
    {u"-a ; -c"_s, u"a b c | b | b"_s, u"c b | c b | b"_s, 12},
    {u"-a -b -c ="_s, u"a b |"_s, u"c b |"_s, 2},
    {u"~a ~c"_s, u"a b | b"_s, u"c b | b"_s, 12},
    {u"~x ~a ~a"_s, u"a b c | b c"_s, u"c b | c b"_s, 22},
    {u"/a /b /c /x"_s, u"a b |"_s, u"c b |"_s, 1},
    {u"+d0"_s, u"a b c | a b c d"_s, u"c b a | d c b a"_s, 42},
    {u"+e-1 +d-2 +f1"_s, u"a b c | d e a b c f"_s, u"c b a | f c b a e d"_s, 62},
    {u"*"_s, u"a b c | a b c"_s, u"c b a | c b a"_s, 31},
    {u"-c +c0 -a +a0"_s, u"a b | b c a"_s, u"c b | a c b"_s, 32},
    {u"(1 ; -a -c"_s, u"a b ( a b ) | b"_s, u"c b ( c b ) | b"_s, 12},
    {u"+d-1 (1"_s, u"a b ( d a b c ) c | d a b c"_s, u"c b ( c b a d ) a | c b a d"_s, 42},
    {u"-x (2 ; -c"_s, u"a b ( y ) | a b"_s, u"c b ( y ) a | b a"_s, 21},
    {u"!"_s, u"a b |"_s, u"c b |"_s, 0},
    {u"-a ?"_s, u"a b c | b c"_s, u"c b | c b"_s, 22},
    {u"(1 ; ?"_s, u"a b ( a b c ) c | a b c"_s, u"c b ( c b a ) a | c b a"_s, 32},
    {u"(2 ; ! -c"_s, u"a b ( x y ) |"_s, u"c b ( y ) |"_s, 0},
};

class Base
{
public:
    virtual ~Base() = default;
    virtual bool inherited(const int &event) { return event == 7; }
};

class Left : public ExActionHandler
{
public:
    bool left(const int & /*event*/) { return m_left == 3; }

private:
    int m_left = 3;
};

class Right : public virtual ExActionHandlerCore
{
public:
    virtual bool right(const int & /*event*/) { return false; }
};

/// A receiver in two ways, with one core; a handler in each of its bases.
class Diamond : public Base, public Left, public Right
{
public:
    bool inherited(const int &event) override { return Base::inherited(event) && m_own == 5; }
    bool right(const int & /*event*/) override { return m_own == 5; }
    bool own(const int & /*event*/) { return m_own == 5; }

private:
    int m_own = 5;
};

} // namespace

class tst_ExActionMap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesDuringAWalk()
    {
        for (const Change &change : changes) {
            for (const bool forward : {true, false}) {
                House house;
                house.forward = forward;
                house.deeds = change.deeds.split(u';');
                QCOMPARE(house.walk(1), house.deeds.front().contains(u'='));
                house.log.append(u"|"_s);
                while (!house.deeds.isEmpty()) {
                    house.walk(1);
                    house.log.append(u"|"_s);
                }
                std::size_t left = 0;
                if (house.map) {
                    left = house.map->numEntries(1) * 10 + house.map->numEntries(2);
                    house.walk(1);
                }
                QCOMPARE(QString(change.deeds % u": "_s % house.log.join(u' ')),
                    QString(change.deeds % u": "_s % (forward ? change.forward : change.backward)));
                QCOMPARE(left, change.left);
            }
        }
    }

    void handlersOfAllBases()
    {
        Map map;
        auto diamond = std::make_unique<Diamond>();
        Right &asRight = *diamond;
        map.addAction({{1}, diamond.get(), &Diamond::own});
        map.addAction({{2}, diamond.get(), &Left::left});
        map.addAction({{3}, diamond.get(), &Right::right});
        map.addAction({{4}, diamond.get(), &Base::inherited});
        map.addAction(Map::Action::bound<&Base::inherited>({5}, diamond.get()));
        map.addAction({{6}, &asRight, &Right::right});
        for (int key = 1; key <= 6; ++key) {
            QVERIFY2(map.trigger({key}, 7), qPrintable(QString::number(key)));
        }
        QVERIFY(!map.trigger({4}, 8)); // The event arrives.
        map.removeAction({{1}, diamond.get(), &Diamond::own});
        map.removeAction({{6}, &asRight, &Right::right});
        diamond.reset();
        for (int key = 1; key <= 6; ++key) {
            QVERIFY(!map.trigger({key}, 7));
            QCOMPARE(map.numEntries(key), 0U);
        }
    }

    void deadActionsAndCopiedReceivers()
    {
        House house;
        Receiver *const a = house.receivers[u"a"_s].get();
        house.map->addAction({{1}, nullptr, &Receiver::called});
        bool (Receiver::*const nothing)(const int &) = nullptr;
        house.map->addAction({{1}, a, nullptr});
        house.map->addAction({{1}, a, nothing});
        QCOMPARE(house.map->numEntries(1), 6U);
        {
            Receiver copy = *a; // Another receiver: it has no actions.
            house.map->removeReceiver(copy);
        }
        QVERIFY(!house.walk(1) && !house.walk(3));
        QCOMPARE(std::exchange(house.log, {}).join(u' '), u"a b c"_s);
        QCOMPARE(house.map->numEntries(1), 3U);
        Map other;
        other.addAction({{1}, a, &Receiver::called});
        house.map->removeReceiver(*a); // Here only.
        other.trigger({1}, 0);
        house.act('~', u"x"_s);
        house.act('-', u"c"_s);
        QCOMPARE(house.map->numEntries(1), 1U); // Dead ones go though nobody walks.
        house.add(u"d"_s);
        house.add(u"e"_s);
        house.act('~', u"b"_s);
        house.act('-', u"e"_s);
        house.walk(1);
        QCOMPARE(house.log.join(u' '), u"a d"_s);
    }
};

QTEST_APPLESS_MAIN(tst_ExActionMap)
#include "tst_ExActionMap.moc"
