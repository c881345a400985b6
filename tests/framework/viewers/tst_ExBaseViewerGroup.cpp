#include "framework/viewers/ExBaseViewerGroup.h"
#include "tests/support/Prelude.h"

using Group = ExBaseViewerGroup;

/// Groups are written as the names of their viewers: the manager holds a, b, c, d in this order; z
/// is of nobody, and "-" is null.
class tst_ExBaseViewerGroup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const McHandle<KxVolume> volume(new KxVolume({1, 1, 1}, KxVolume::ScalarType::UInt8));
        const McHandle<KxImageSeries> series(new KxImageSeries("1"));
        const McHandle<KxImageSeries> fused(new KxImageSeries("2"));
        for (const QChar name : u"abcdz"_s) {
            m_viewers[name] = new FakeViewer;
            m_viewers[name]->imageSets[0] = name == u'd' ? fused : series;
            if (name != u'z') {
                m_manager->add(viewer(name));
            }
        }
        viewer(u'c')->type = viewer(u'd')->type = static_cast<Ex::ViewerType>(2);
        viewer(u'c')->imageSets[1] = viewer(u'b')->imageSets[1] = fused;
        viewer(u'a')->shown = viewer(u'z')->shown = volume;
        viewer(u'd')->shown = new KxVolume({1, 1, 1}, KxVolume::ScalarType::UInt8);
        viewer(u'd')->source = volume;
    }
    void cleanupTestCase()
    {
        m_manager.reset();
        QCOMPARE(Group(nullptr, Group::ALL_VIEWERS, Ex::ANY_VIEWER_TYPE).size(), 0);
    }

    void orientation()
    {
        const std::pair<const char *, Ex::View> rows[] = {{nullptr, Ex::VIEW_AXIAL},
            {"", Ex::VIEW_AXIAL}, {"LPH", Ex::VIEW_AXIAL}, {"RA", Ex::VIEW_AXIAL},
            {"ah", Ex::VIEW_AXIAL}, {"LH", Ex::VIEW_CORONAL}, {"F", Ex::VIEW_CORONAL},
            {"Ha", Ex::VIEW_CORONAL}, {"AF", Ex::VIEW_SAGITTAL}, {"HPL", Ex::VIEW_SAGITTAL}};
        for (const auto &[letters, view] : rows) {
            QCOMPARE(ExBaseViewer::getViewOrientation(letters), view);
        }
    }

    void names()
    {
        const char *const names[] = {"ONE_VIEWER", "SAME_VIEWER_TYPE", "SAME_VOLUME",
            "SAME_IMAGESET", "SAME_IMAGESETS", "ALL_VIEWERS"};
        for (int i = 0; i < 6; ++i) {
            const auto type = static_cast<Group::GroupType>(i);
            QCOMPARE(Group::GroupType2String(type), names[i]);
            QCOMPARE(Group::String2GroupType(names[i]), type);
        }
        QCOMPARE(Group::String2GroupType("same_volume"), Group::ONE_VIEWER);
    }

    void gathering()
    {
        // The reference, the type to filter by, and in the order of the relations' values what is
        // gathered. b shows no volume: all that pass the filter stand in that relation to it.
        const QStringList rows{u"- 0 ,,abcd,,,abcd"_s, u"- 2 ,,cd,,,cd"_s,
            u"a 0 a,ab,ad,abc,a,abcd"_s, u"b 1 b,ab,ab,ba,b,ab"_s, u"c 0 c,cd,abcd,cab,bc,abcd"_s,
            u"c 1 c,cd,ab,ab,b,ab"_s, u"d 2 d,cd,d,d,d,cd"_s, u"z 0 z,ab,ad,abc,a,abcd"_s};
        for (const QString &row : rows) {
            FakeViewer *const reference = viewer(row.front());
            const auto type = static_cast<Ex::ViewerType>(row.section(u' ', 1, 1).toInt());
            const QStringList gathered = row.section(u' ', 2).split(u',');
            for (int i = 0; i < gathered.size(); ++i) {
                const auto relation = static_cast<Group::GroupType>(i);
                QCOMPARE(text(Group(reference, relation, type)), gathered[i]);
                QString remaining = u"dcbza-a"_s;
                Group filtered = group(remaining);
                filtered.filter(reference, relation, type);
                remaining.removeIf([&](QChar name) { return !gathered[i].contains(name); });
                QCOMPARE(text(filtered), remaining);
            }
        }
    }

    void setOperations()
    {
        // A group, another, what both have, what the other leaves, and is the first valid?
        const QStringList rows{u" a   valid"_s, u"ab   ab valid"_s, u"cabd dca cad b valid"_s,
            u"aba a aa ab"_s, u"abaca aa aaa abc"_s, u"a-b- -b -b- a-"_s};
        for (const QString &row : rows) {
            const QStringList parts = row.split(u' ');
            Group viewers = group(parts[0]);
            QCOMPARE(viewers.isValid(), parts.last() == u"valid");
            viewers.intersect(group(parts[1]));
            QCOMPARE(text(viewers), parts[2]);
            viewers = group(parts[0]);
            viewers.subtract(group(parts[1]));
            QCOMPARE(text(viewers), parts[3]);
        }
        Group viewers = group(u"caba"_s);
        viewers.subtract(viewer(u'a'));
        viewers.subtract(viewer(u'z'));
        QCOMPARE(text(viewers), u"cba"_s);
        QVERIFY(viewers.contains(viewer(u'a')) && !viewers.contains(viewer(u'd')));
    }

    void sortedByDisplaySet()
    {
        viewer(u'a')->displaySet = "SET b";
        viewer(u'b')->displaySet = "set B";
        viewer(u'c')->displaySet = "set \xc3\xa9";
        viewer(u'd')->displaySet = "set \xc3\x89"; // Only the case of ASCII letters is ignored.
        viewer(u'z')->displaySet = "set Aa";
        Group viewers = group(u"cbadz"_s);
        viewers.sortByDisplaySetID();
        QCOMPARE(text(viewers), u"zabdc"_s);
    }

    void orthogonality()
    {
        viewer(u'a')->plane = KxSlice({}, {1, 0, 0}, {0, 1, 0});
        viewer(u'b')->plane = KxSlice({}, {0, 0, 1}, {0, 1, 0});
        viewer(u'c')->plane = KxSlice({}, {0, 0, 1}, {1, 0.0002, 0});
        viewer(u'z')->plane = KxSlice({}, {0, 0, 1}, {1, 0.00005, 0});
        for (const QString &orthogonal : {u""_s, u"a"_s, u"azb"_s, u"adda"_s, u"-a"_s}) {
            QVERIFY2(group(orthogonal).viewersAreOrthogonal(), qPrintable(orthogonal));
        }
        QVERIFY(!group(u"bca"_s).viewersAreOrthogonal() && !group(u"abb"_s).viewersAreOrthogonal());
    }

private:
    [[nodiscard]] FakeViewer *viewer(QChar name) { return m_viewers[name].get(); }
    [[nodiscard]] Group group(const QString &names)
    {
        Group viewers;
        for (const QChar name : names) {
            viewers.append(viewer(name));
        }
        return viewers;
    }
    [[nodiscard]] QString text(const Group &viewers)
    {
        QString names;
        for (const ExBaseViewer *const entry : viewers) {
            const auto found = std::find_if(m_viewers.begin(), m_viewers.end(),
                [entry](const auto &pair) { return pair.second.get() == entry; });
            names += found->first;
        }
        return names;
    }

    std::unique_ptr<FakeViewerManager> m_manager = std::make_unique<FakeViewerManager>();
    std::map<QChar, McHandle<FakeViewer>> m_viewers{{u'-', nullptr}};
};

QTEST_MAIN(tst_ExBaseViewerGroup)
#include "tst_ExBaseViewerGroup.moc"
