// On the toolkit's own screens. The program runs itself once for each set of them: a process has
// the screens that it began with.
#include "tests/framework/monitors/Panes.h"

namespace {

/// A set of screens and what there is to be said of it; rectangles as "x,y widthxheight".
struct Screens
{
    const char *name;
    /// For the toolkit: x, y, width, height in device pixels, dpi at a base of 96, pixel ratio.
    std::vector<std::array<double, 6>> screens;
    /// Monitors; the primary one; the longest row of equal ones.
    const char *whole;
    /// Class, size of thumbnails and of their font, by monitor.
    const char *sizes;
    QList<int> split;
    /// What splitting makes of it; and the monitors of each display.
    const char *halves;
    /// Whether the dpi scales, as it does by default, or is left to the fonts.
    bool scales = true;
};

const std::vector<Screens> &allScreens()
{
    static const std::vector<Screens> all{
        {"one", {{0, 0, 2561, 1440, 96, 1}}, "0,0 2561x1440; 0; 0", "medium 120 10", {1},
            "0,0 1280x1440, 1280,0 1280x1440; 0; 0 1; 0 1"},
        // The primary one stands to the right of the other, and a little higher.
        {"two", {{0, 0, 1920, 1080, 96, 1}, {-1600, 120, 1600, 1200, 96, 1}},
            "-1600,120 1600x1200, 0,0 1920x1080; 1; 1", "small 80 8, small 80 8", {1, 0},
            "-1600,120 800x1200, -800,120 800x1200, 0,0 1920x1080; 2; 0 1; 0 1, 2"},
        // Pixel ratios 1, 1.25 (by the scale of the desktop) and 2 (of the device).
        {"three",
            {{0, 0, 1920, 1200, 96, 1}, {1920, 0, 2400, 1500, 120, 1},
                {-2560, -400, 2560, 1600, 96, 2}},
            "-2560,-400 2560x1600, 0,0 1920x1200, 1920,0 1920x1200; 1; 1 2",
            "large 160 12, small 80 8, small 80 8", {0, 1, 1},
            "-2560,-400 2560x1600, 0,0 960x1200, 960,0 960x1200, 1920,0 960x1200, "
            "2880,0 960x1200; 1; 1 2 3 4; 0, 1 2, 3 4"},
        // Fonts go by the 144 dpi of the first window asked about, whatever the others have.
        {"dpi", {{0, 0, 2560, 1440, 144, 1}, {2560, 0, 1280, 1024, 96, 1}},
            "0,0 2560x1440, 2560,0 1280x1024; 0; 0", "medium 120 6, small 80 5", {1, 0, 1},
            "0,0 2560x1440, 2560,0 1280x1024; 0; 0; 0, 1", false},
    };
    return all;
}

const Screens *present = nullptr;

QByteArray configurationFile(const Screens &set)
{
    QStringList texts;
    for (const auto &[x, y, width, height, dpi, ratio] : set.screens) {
        texts.append(QString::asprintf(R"({"name":"S%d","x":%g,"y":%g,"width":%g,"height":%g,)"
                                       R"("logicalDpi":%g,"logicalBaseDpi":96,"dpr":%g})",
            int(texts.size()), x, y, width, height, dpi, ratio));
    }
    return R"({"screens":[)" + texts.join(u',').toUtf8() + "]}";
}

QString textOf(const QRect &r)
{
    return QString::asprintf("%d,%d %dx%d", r.x(), r.y(), r.width(), r.height());
}

QString textOf(int number)
{
    return QString::number(number);
}

template <typename T>
QString textOf(const QList<T> &list)
{
    QStringList texts;
    for (const T &entry : list) {
        texts.append(textOf(entry));
    }
    return texts.join(std::is_same_v<T, int> ? u" "_s : u", "_s);
}

/// Contents and the windows that they get; both go at the end.
class PlacedPanes : public Panes
{
public:
    explicit PlacedPanes(const QList<int> &monitors)
        : Panes("")
    {
        manager().setConfiguration(this, {monitors, {}, {}, false, false});
    }
    PlacedPanes(const PlacedPanes &) = delete;
    PlacedPanes &operator=(const PlacedPanes &) = delete;
    ~PlacedPanes() override
    {
        ExMonitorWidget *const window = manager().monitorWidget(this);
        manager().removeContent(this);
        delete window;
    }
};

} // namespace

class tst_Screens : public TestWithSettings
{
    Q_OBJECT

private Q_SLOTS:
    void wholeAndSplit()
    {
        const auto set = []() -> QString {
            manager().readMonitorConfiguration();
            const QList<QRect> &monitors = manager().monitors();
            return textOf(monitors) + u"; %1; "_s.arg(manager().primaryMonitor())
                + textOf(manager().contiguousHorizontalMonitors(monitors));
        };
        KxPropertyPool &pool = KxPropertyPool::instance();
        auto &split
            = pool.property<QList<int>>("UI.SplitMonitorConfig", {}, pool.registrySerializer());
        split.change(present->split);
        const QString halves = set() + u"; "_s + textOf(manager().physicalMonitors());
        split.change({});
        QCOMPARE(set(), QLatin1String(present->whole));
        QCOMPARE(halves, QLatin1String(present->halves));
    }

    void aWindowOnEach()
    {
        static constexpr std::array names{"small", "medium", "large"};
        std::vector<std::unique_ptr<PlacedPanes>> contents;
        for (int i = 0; i < manager().numMonitors(); ++i) {
            contents.push_back(std::make_unique<PlacedPanes>(QList<int>{i}));
        }
        manager().applyConfigurations();
        manager().setAllWidgetsVisible(true);
        QStringList sizes;
        for (int i = 0; i < manager().numMonitors(); ++i) {
            ExMonitorWidget *const window
                = manager().monitorWidget(contents[static_cast<std::size_t>(i)].get());
            const QRect monitor = manager().monitors().at(i);
            QWidget *const inside = &contents[static_cast<std::size_t>(i)]->widgets[std::size_t(i)];
            sizes.append(
                u"%1 %2 %3"_s
                    .arg(QLatin1String(names[std::size_t(manager().monitorCategory(window))]))
                    .arg(manager().imageSeriesThumbnailSize(inside))
                    .arg(manager().imageSeriesFontSize(inside)));
            QCOMPARE(textOf(manager().normalWindowRect(window)),
                textOf(manager().defaultGeometry(i, 80)));
            QCOMPARE(window->screen()->geometry(), monitor);
            QVERIFY(monitor.contains(window->geometry()));
            window->showFullScreen();
            QCOMPARE(textOf(window->geometry()), textOf(monitor));
            QCOMPARE(inside->window(), window);
            QVERIFY(inside->isVisible());
        }
        QCOMPARE(sizes.join(u", "_s), QLatin1String(present->sizes));
        manager().setAllWidgetsVisible(false);
    }

    void oneWindowOverAll()
    {
        QList<int> all;
        for (int i = 0; i < manager().numMonitors(); ++i) {
            all.prepend(i);
        }
        PlacedPanes content(all);
        manager().applyConfigurations();
        ExMonitorWidget *const window = manager().monitorWidget(&content);
        window->showFullScreen();
        QCOMPARE(textOf(window->geometry()), textOf(manager().totalRect()));
        QList<QRect> places;
        for (const QMainWindow *const pane : window->mainWindows()) {
            places.append({pane->mapToGlobal(QPoint(0, 0)), pane->size()});
        }
        QCOMPARE(textOf(places), textOf(manager().monitors()));
    }

    void dialogs()
    {
        QWidget parent;
        for (const QRect &monitor : manager().monitors()) {
            const QRect place(monitor.topLeft() + QPoint(70, 60), QSize(300, 200));
            QDialog dialog(&parent);
            dialog.setObjectName(u"Dialog"_s);
            dialog.setGeometry(place);
            manager().widgetGeometryStore(dialog);
            QDialog later;
            later.setObjectName(u"Dialog"_s);
            manager().widgetGeometryRestore(later, {}, 100, 100);
            QCOMPARE(textOf(later.geometry()), textOf(place));

            // Nothing is known of this one: it goes to its parent's monitor.
            parent.setGeometry(place);
            QDialog other(&parent);
            other.setObjectName(u"Other"_s);
            manager().widgetGeometryRestore(other, {}, 100, 100);
            QVERIFY(monitor.contains(other.geometry()));
        }
        // Off all screens the nearest one counts.
        QRect rightmost;
        for (const QRect &monitor : manager().monitors()) {
            rightmost = monitor.right() > rightmost.right() ? monitor : rightmost;
        }
        QDialog far;
        far.resize(200, 100);
        ExMonitorManager::positionDialog(&far, rightmost.bottomRight() + QPoint(500, 0));
        QCOMPARE(far.pos(), QPoint(rightmost.right() / 2 - 100, rightmost.bottom() / 2 - 50));
    }
};

int main(int argc, char *argv[])
{
    const QByteArray name = qgetenv("MOVARA_TEST_SCREENS");
    int failed = 0;
    for (const Screens &set : allScreens()) {
        if (name.isEmpty()) {
            qputenv("MOVARA_TEST_SCREENS", set.name);
            failed += QProcess::execute(QString::fromLocal8Bit(argv[0])) == 0 ? 0 : 1;
        } else if (name == set.name) {
            present = &set;
        }
    }
    if (present == nullptr) {
        return failed;
    }
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"screens.json"_s);
    writeFile(file, configurationFile(*present));
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + file.toUtf8());
    qputenv("QT_ENABLE_HIGHDPI_SCALING", present->scales ? "1" : "0");
    QApplication application(argc, argv);
    tst_Screens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_Screens.moc"
