#pragma once

#include <QIconEngine>
#include <QString>

/// Icon of a line drawing: an SVG file whose lines take the colours of the application's palette
/// when they are painted, so that it is readable in every style, also after a change of style, and
/// crisp at every size and scale. Owned by its QIcon. GUI thread only.
class SvgIconEngine final : public QIconEngine
{
public:
    /// @param name of the file in the resource folder ":/movara/icons", without its ending, or the
    /// whole name of another file.
    explicit SvgIconEngine(QString name);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QPixmap scaledPixmap(
        const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override;
    [[nodiscard]] QIconEngine *clone() const override;
    [[nodiscard]] QString key() const override;
    bool isNull() override;

    /// Whole name of the file of an icon.
    static QString fileName(const QString &name);

private:
    QString m_name;
};
