#include "platform/util/McHandable.h"
#include "platform/util/McHandableThreaded.h"
#include "platform/util/McHandle.h"

#include <QTest>

#include <atomic>
#include <thread>
#include <vector>

namespace {

std::atomic<int> alive = 0;

class Left : public virtual McHandableThreaded
{ };

class Right : public virtual McHandableThreaded
{ };

class Diamond : public Left, public Right
{
public:
    Diamond() { ++alive; }

protected:
    ~Diamond() override { --alive; }
};

class Plain : public McHandable
{
public:
    explicit Plain(McHandle<Plain> *holder)
        : m_holder(holder)
    { }
    inline static bool holderWasEmpty = false;

protected:
    ~Plain() override { holderWasEmpty = m_holder->get() == nullptr; }

private:
    McHandle<Plain> *m_holder;
};

} // namespace

class tst_McHandle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneCountThroughAllBases()
    {
        McHandle<Diamond> whole(new Diamond);
        McHandle<Left> left = whole;
        McHandle<Right> right(whole.get());
        QCOMPARE(whole->references(), 3);

        McHandle<Left> moved = std::move(left);
        QVERIFY(!left);
        left = moved;
        left = left.get();
        QCOMPARE(whole->references(), 4);

        whole = nullptr;
        left.reset();
        moved.reset();
        QCOMPARE(alive.load(), 1);
        right.reset();
        QCOMPARE(alive.load(), 0);
    }

    void destructorSeesTheHandleEmpty()
    {
        McHandle<Plain> holder;
        holder = new Plain(&holder);
        holder.reset();
        QVERIFY(Plain::holderWasEmpty);
    }

    void releasedInManyThreads()
    {
        McHandle<Diamond> first(new Diamond);
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([handle = first] {
                for (int n = 0; n < 10000; ++n) {
                    const McHandle<Left> copy = handle;
                }
            });
        }
        first.reset();
        threads.clear();
        QCOMPARE(alive.load(), 0);
    }
};

QTEST_APPLESS_MAIN(tst_McHandle)
#include "tst_McHandle.moc"
