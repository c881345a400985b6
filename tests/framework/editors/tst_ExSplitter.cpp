#include "framework/editors/ExSplitter.h"
#include "framework/editors/SplitterButton.h"
#include "framework/editors/SplitterHandle.h"
#include "platform/toolkit/QxStyleFactory.h"
#include "tests/support/Prelude.h"

namespace {

SplitterButton *button(const ExSplitter &splitter, int handle)
{
    return dynamic_cast<SplitterHandle &>(*splitter.handle(handle)).button();
}

/// The arrow of each visible button with its kind, "." for a hidden one; then the sizes.
QString state(const ExSplitter &splitter)
{
    QString text;
    for (int i = 1; i < splitter.count(); ++i) {
        const SplitterButton *const each = button(splitter, i);
        text += each->isVisible() ? QStringLiteral("?^v<>").at(each->arrowType()) : u'.';
        text += each->isVisible() ? each->objectName().section(u'.', 1).left(1) : QString();
    }
    for (const int size : splitter.sizes()) {
        text += u' ' % QString::number(size);
    }
    return text;
}

/// A splitter with panes of at least 40 pixels, on the screen, 500 pixels in its orientation.
std::unique_ptr<ExSplitter> shown(Qt::Orientation orientation, const QList<int> &sizes)
{
    auto splitter = std::make_unique<ExSplitter>(orientation, nullptr, "name");
    for (qsizetype i = 0; i < sizes.size(); ++i) {
        auto *const pane = new QWidget;
        pane->setMinimumSize(40, 40);
        splitter->addWidget(pane);
    }
    splitter->resize(500, 500);
    splitter->show();
    splitter->setSizes(sizes);
    return splitter;
}

} // namespace

class tst_ExSplitter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonsCollapseAndRestore()
    {
        const auto splitter = shown(Qt::Horizontal, {100, 190, 190});
        QStringList log{state(*splitter)};
        const auto click = [&](int handle) {
            QTest::mouseClick(button(*splitter, handle), Qt::LeftButton);
            log += state(*splitter);
        };
        click(1);
        click(1);
        click(2);
        splitter->setSizes({100, 380, 0}); // Tells of no new size of the last pane.
        click(2);
        splitter->QSplitter::setSizes({60, 230, 190}); // As the window does, not the user.
        click(1);
        click(1);
        const QStringList expected{u"<H<H 100 190 190"_s, u">H<H 0 290 190"_s,
            u"<H<H 100 190 190"_s, u"<H<H 100 380 0"_s, u"<H<H 100 190 190"_s, u">H<H 0 290 190"_s,
            u"<H<H 100 190 190"_s};
        QCOMPARE(log, expected);
        QCOMPARE(splitter->objectName(), u"name"_s);
        QCOMPARE(splitter->handle(1)->width(), 10);
        QVERIFY(!splitter->opaqueResize());
    }

    void panesWithoutACollapsiblePaneBefore()
    {
        const auto splitter = shown(Qt::Vertical, {290, 200});
        QCOMPARE(state(*splitter), u"^V 290 200"_s);
        splitter->setCollapsible(0, false);
        QVERIFY(!splitter->isCollapsible(ExSplitter::DockFirst));
        QVERIFY(splitter->isCollapsible(ExSplitter::DockLast));
        splitter->toggle(ExSplitter::DockFirst); // Not collapsible.
        splitter->updateHandles();
        QCOMPARE(state(*splitter), u"vV 290 200"_s);
        QTest::mouseClick(button(*splitter, 1), Qt::LeftButton); // Stands for the last pane.
        QCOMPARE(state(*splitter), u"^V 490 0"_s);
        QVERIFY(splitter->isCollapsed(ExSplitter::DockLast));
        splitter->toggle(ExSplitter::DockLast);
        QCOMPARE(state(*splitter), u"vV 290 200"_s);
        splitter->setOrientation(Qt::Horizontal);
        QCOMPARE(state(*splitter).left(2), u">H"_s);
        QCOMPARE(button(*splitter, 1)->size(), QSize(10, 50));
    }

    void numberOfPanes()
    {
        const auto four = shown(Qt::Horizontal, {0, 100, 100, 270});
        QCOMPARE(state(*four), u">H.<H 0 100 100 270"_s);
        four->toggle(ExSplitter::DockFirst); // Never had a size: its smallest.
        QCOMPARE(four->sizes().first(), 40);
        ExSplitter byHint(Qt::Horizontal);
        byHint.addWidget(new QWidget);
        byHint.addWidget(new QPushButton(u"no minimum of its own"_s));
        byHint.resize(500, 100);
        byHint.show();
        byHint.setSizes({490, 0});
        byHint.toggle(ExSplitter::DockLast);
        QCOMPARE(byHint.sizes().last(), byHint.widget(1)->minimumSizeHint().width());
        const auto one = shown(Qt::Horizontal, {500});
        one->toggle(ExSplitter::DockFirst);
        one->toggle(ExSplitter::DockLast);
        QVERIFY(one->isCollapsed(ExSplitter::DockFirst) && one->isCollapsed(ExSplitter::DockLast));
        QCOMPARE(one->sizes(), QList<int>{500});
        const ExSplitter none(Qt::Horizontal);
        QVERIFY(
            !none.isCollapsible(ExSplitter::DockFirst) && none.isCollapsed(ExSplitter::DockLast));
    }

    void buttonKeepsTheMouseAndFollowsTheStyle()
    {
        const auto splitter = shown(Qt::Horizontal, {200, 290});
        QWidget *const arrow = button(*splitter, 1);
        QTest::mousePress(arrow, Qt::LeftButton);
        QTest::mouseMove(arrow, QPoint(100, 25));
        QTest::mouseRelease(arrow, Qt::LeftButton, {}, QPoint(100, 25));
        QCOMPARE(state(*splitter), u"<H 200 290"_s); // Neither dragged nor clicked.
        for (const char *const style : {"Movara Light", "Movara Dark"}) {
            QxStyleFactory::instance().setCurrentStyle(QLatin1String(style));
            const QImage painted = arrow->grab().toImage();
            QxStyleFactory::setShowSplitterButton(false);
            const QImage bare = arrow->grab().toImage();
            QxStyleFactory::setShowSplitterButton(true);
            QVERIFY(painted != bare);
            QCOMPARE(arrow->palette().color(QPalette::Button),
                QxStyleFactory::instance().color(QxStyleFactory::ColorRole::Raised));
        }
    }
};

QTEST_MAIN(tst_ExSplitter)
#include "tst_ExSplitter.moc"
