#include "client/application/SvgIconEngine.h"

#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

namespace {

/// The colour that the drawings are made with; every other colour stays as it is.
constexpr char drawnColor[] = "#000000";

QColor colorFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::WindowText);
}

QByteArray drawing(const QString &name, const QColor &color)
{
    QFile file(SvgIconEngine::fileName(name));
    return file.open(QIODevice::ReadOnly)
        ? file.readAll().replace(drawnColor, color.name().toLatin1())
        : QByteArray();
}

} // namespace

SvgIconEngine::SvgIconEngine(QString name)
    : m_name(std::move(name))
{ }

QString SvgIconEngine::fileName(const QString &name)
{
    return name.contains(QLatin1Char('/'))
        ? name
        : QLatin1String(":/movara/icons/") % name % QLatin1String(".svg");
}

void SvgIconEngine::paint(
    QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State /*state*/)
{
    // Drawings are square; in another rectangle they stand in the middle.
    const int side = qMin(rect.width(), rect.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(QRectF(rect).center());
    QSvgRenderer(drawing(m_name, colorFor(mode))).render(painter, square);
}

QPixmap SvgIconEngine::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    return scaledPixmap(size, mode, state, 1);
}

QPixmap SvgIconEngine::scaledPixmap(
    const QSize &size, QIcon::Mode mode, QIcon::State state, qreal /*scale*/)
{
    // The size is one in device pixels.
    const QString cacheKey = QStringLiteral("movara-icon/%1/%2/%3x%4")
                                 .arg(m_name, colorFor(mode).name())
                                 .arg(size.width())
                                 .arg(size.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(cacheKey, &pixmap)) {
        pixmap = QPixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        painter.end();
        QPixmapCache::insert(cacheKey, pixmap);
    }
    return pixmap;
}

QIconEngine *SvgIconEngine::clone() const
{
    return new SvgIconEngine(*this);
}

QString SvgIconEngine::key() const
{
    return QStringLiteral("movara-svg");
}

bool SvgIconEngine::isNull()
{
    return !QFile::exists(fileName(m_name));
}
