// The least that a program does which shows another picture in four places at each wheel step: what
// scrolling in the workstation is measured beside. The pictures are ready-made.
//
//   movara-bare-scroll WxH     size of each picture in pixels
#include "client/app/ScrollMeasure.h"

#include <QApplication>
#include <QGridLayout>
#include <QImage>
#include <QPainter>
#include <QWheelEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

namespace {

constexpr int warmUpSteps = 20;
constexpr int measuredSteps = 300;

class Picture final : public QWidget
{
public:
    explicit Picture(const QSize &pixels)
    {
        setFixedSize(pixels);
        setAttribute(Qt::WA_OpaquePaintEvent);
        for (QImage &image : m_images) {
            image = QImage(pixels, QImage::Format_RGB32);
            image.fill(&image == &m_images[0] ? Qt::darkGray : Qt::lightGray);
        }
    }

    /// That it has been painted.
    void forget() { m_isPainted = false; }
    void step()
    {
        m_shown = 1 - m_shown;
        update();
    }
    [[nodiscard]] bool isPainted() const { return m_isPainted; }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.drawImage(QPoint(), m_images[m_shown]);
        m_isPainted = true;
    }

private:
    std::array<QImage, 2> m_images;
    std::size_t m_shown = 0;
    bool m_isPainted = false;
};

class Window final : public QWidget
{
public:
    explicit Window(const QSize &pixels)
    {
        auto *grid = new QGridLayout(this);
        for (int i = 0; i < 4; ++i) {
            m_pictures.push_back(new Picture(pixels));
            grid->addWidget(m_pictures.back(), i / 2, i % 2);
        }
    }

    [[nodiscard]] double measureStep()
    {
        QCoreApplication::processEvents();
        for (Picture *picture : m_pictures) {
            picture->forget();
        }
        return ScrollMeasure::wheelToPaint(*this, 1, [this] {
            return std::all_of(m_pictures.begin(), m_pictures.end(),
                [](const Picture *picture) { return picture->isPainted(); });
        });
    }

protected:
    void wheelEvent(QWheelEvent * /*event*/) override
    {
        for (Picture *picture : m_pictures) {
            picture->step();
        }
    }

private:
    std::vector<Picture *> m_pictures;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    int width = 0;
    int height = 0;
    if (argc != 2 || std::sscanf(argv[1], "%5dx%5d", &width, &height) != 2 || width < 1
        || height < 1) {
        std::fprintf(stderr, "Usage: movara-bare-scroll WxH\n");
        return 2;
    }
    Window window(QSize(width, height));
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::vector<double> milliseconds;
    for (int i = -warmUpSteps; i < measuredSteps; ++i) {
        const double taken = window.measureStep();
        if (i >= 0) {
            milliseconds.push_back(taken);
        }
    }
    ScrollMeasure::printHead();
    ScrollMeasure::printRow(QStringLiteral("four bare pictures"), milliseconds, {width, height});
    return 0;
}
