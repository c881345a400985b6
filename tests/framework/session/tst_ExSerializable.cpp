#include "framework/session/ExSerializable.h"
#include "tests/support/Prelude.h"

namespace {

class Participant : public ExSerializable
{
public:
    explicit Participant(std::string name)
        : m_name(std::move(name))
    { }
    [[nodiscard]] QString displayName() const override { return {}; }
    [[nodiscard]] const char *persistentName() const override
    {
        return m_name == "null" ? ExSerializable::persistentName() : m_name.c_str();
    }

private:
    std::string m_name;
};

} // namespace

class tst_ExSerializable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void instancesAndTheirNames()
    {
        QVERIFY(ExSerializable::checkIntegrity());
        Participant first("name");
        auto second = std::make_unique<Participant>("name");
        Participant third("null");
        const Participant others[]{
            Participant("null"), Participant(""), Participant(""), Participant("Name")};
        QVERIFY(!ExSerializable::checkIntegrity());
        second.reset();
        QVERIFY(ExSerializable::checkIntegrity());
        Participant last("last");
        McDArray<ExSerializable *> all{nullptr};
        ExSerializable::instances(all);
        QCOMPARE(all.size(), 7);
        QVERIFY(all[0] == &first && all[1] == &third && all[5] == &others[3] && all[6] == &last);
    }
};

QTEST_APPLESS_MAIN(tst_ExSerializable)
#include "tst_ExSerializable.moc"
