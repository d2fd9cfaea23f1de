// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imageview.h"

#include <QEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace Workbench {
namespace {

/// From here on a pixel is an area to look at, not a sample to be smoothed.
constexpr double scaleOfPlainPixels = 2.0;

/// What shows through an image: squares of white and grey, the same over any palette.
QPixmap makeSquares()
{
    constexpr int side = 8;
    QPixmap squares(2 * side, 2 * side);
    squares.fill(Qt::white);
    QPainter painter(&squares);
    painter.fillRect(0, 0, side, side, QColor(0xDD, 0xDD, 0xDD));
    painter.fillRect(side, side, side, side, QColor(0xDD, 0xDD, 0xDD));
    return squares;
}

} // namespace

ImageView::ImageView(QWidget *parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(64, 64);
}

void ImageView::setImage(const ImagePyramid &image)
{
    m_image = image;
    m_isStale = true;
    m_placement.setImage(image.size());
    showPlacement();
}

void ImageView::fit()
{
    m_placement.fit();
    showPlacement();
}

void ImageView::showOriginalSize()
{
    m_placement.showOriginalSize();
    showPlacement();
}

void ImageView::zoom(double factor)
{
    zoomAt(QRectF(rect()).center(), factor);
}

void ImageView::zoomAt(const QPointF &position, double factor)
{
    m_placement.zoomAt(position * devicePixelRatioF(), factor);
    showPlacement();
}

void ImageView::pan(const QPointF &distance)
{
    m_placement.pan(distance * devicePixelRatioF());
    showPlacement();
}

QSize ImageView::sizeHint() const
{
    return {960, 640};
}

void ImageView::showPlacement()
{
    update();
    Q_EMIT placementChanged();
}

void ImageView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange)
        return;
    m_isStale = true;
    update();
}

void ImageView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    adoptScreen();
}

/// The ratio of pixels can change without any other event, when the window goes to another screen.
void ImageView::adoptScreen()
{
    const QSizeF seen = QSizeF(size()) * devicePixelRatioF();
    const QSize viewport(int(std::ceil(seen.width())), int(std::ceil(seen.height())));
    if (viewport == m_placement.viewport())
        return;
    m_placement.setViewport(viewport);
    showPlacement();
}

void ImageView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    adoptScreen();
    drawCanvas();
    QPainter(this).drawPixmap(0, 0, m_canvas);
}

void ImageView::drawCanvas()
{
    const QRectF place = m_placement.place();
    const QRegion missing = moveCanvas(place);
    m_drawn = place;
    if (!missing.isEmpty()) {
        m_canvas.setDevicePixelRatio(1);
        QPainter painter(&m_canvas);
        for (const QRect &part : missing)
            drawPart(painter, place, part);
    }
    m_canvas.setDevicePixelRatio(devicePixelRatioF());
}

/// Keeps of the canvas what can be kept when the image lies at @p place. Returns what is left to be
/// drawn.
QRegion ImageView::moveCanvas(const QRectF &place)
{
    const QRect whole(QPoint(0, 0), m_placement.viewport());
    const bool isUseless =
        m_isStale || m_canvas.size() != whole.size() || place.size() != m_drawn.size();
    if (std::exchange(m_isStale, false) || isUseless) {
        if (m_canvas.size() != whole.size())
            m_canvas = QPixmap(whole.size());
        return whole;
    }
    const QPoint distance = (place.topLeft() - m_drawn.topLeft()).toPoint();
    QRegion missing;
    if (!distance.isNull())
        m_canvas.scroll(distance.x(), distance.y(), whole, &missing);
    return missing;
}

void ImageView::drawPart(QPainter &painter, const QRectF &place, const QRect &part) const
{
    painter.setClipRect(part);
    painter.fillRect(part, palette().mid());
    const QRect seen = place.toAlignedRect() & part;
    const QImage pixels = m_image.level(m_placement.scale());
    if (seen.isEmpty() || pixels.isNull())
        return;
    if (m_image.hasAlphaChannel()) {
        static const QPixmap squares = makeSquares();
        painter.setBrushOrigin(place.topLeft());
        painter.fillRect(seen, squares);
    }
    // Only what is seen is handed over, with a rim that its edges are smoothed with: at a large
    // scale the whole would reach beyond what can be painted.
    constexpr double rim = 2.0;
    const double x = place.width() / pixels.width();
    const double y = place.height() / pixels.height();
    const QRectF wanted((seen.x() - place.x()) / x - rim, (seen.y() - place.y()) / y - rim,
                        seen.width() / x + 2 * rim, seen.height() / y + 2 * rim);
    const QRect source = wanted.toAlignedRect() & pixels.rect();
    const QRectF target(place.x() + source.x() * x, place.y() + source.y() * y, source.width() * x,
                        source.height() * y);
    painter.setRenderHint(QPainter::SmoothPixmapTransform,
                          m_placement.scale() < scaleOfPlainPixels);
    painter.drawImage(target, pixels, source);
}

} // namespace Workbench
