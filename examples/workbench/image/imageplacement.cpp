// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imageplacement.h"

#include <QtGlobal>

namespace Workbench {
namespace {

/// Where the centre of the view may lie on an image of this @p length.
double bounded(double center, double length, double seen)
{
    return seen >= length ? length / 2 : qBound(seen / 2, center, length - seen / 2);
}

} // namespace

void ImagePlacement::setImage(const QSize &size)
{
    m_image = size;
    fit();
}

void ImagePlacement::setViewport(const QSize &size)
{
    m_viewport = size;
    if (m_isFitted)
        fit();
    else
        zoomTo(m_scale);
}

double ImagePlacement::fittingScale() const
{
    if (m_image.isEmpty() || m_viewport.isEmpty())
        return 1.0;
    const double width = double(m_viewport.width()) / m_image.width();
    const double height = double(m_viewport.height()) / m_image.height();
    return qMin(1.0, qMin(width, height));
}

QPointF ImagePlacement::middle() const
{
    return {m_viewport.width() / 2.0, m_viewport.height() / 2.0};
}

void ImagePlacement::fit()
{
    m_isFitted = true;
    zoomTo(fittingScale());
}

void ImagePlacement::showOriginalSize()
{
    m_isFitted = false;
    zoomTo(1.0);
}

void ImagePlacement::zoomAt(const QPointF &position, double factor)
{
    const QPointF arm = position - middle();
    const QPointF held = m_center + arm / m_scale;
    const double fitting = fittingScale();
    m_isFitted = factor < 1.0 && m_scale * factor <= fitting;
    m_scale = qBound(fitting, m_scale * factor, largestScale());
    m_center = held - arm / m_scale;
    leaveNoGap();
}

void ImagePlacement::pan(const QPointF &distance)
{
    m_center -= distance / m_scale;
    leaveNoGap();
}

void ImagePlacement::zoomTo(double scale)
{
    m_scale = qBound(fittingScale(), scale, largestScale());
    leaveNoGap();
}

void ImagePlacement::leaveNoGap()
{
    m_center = {bounded(m_center.x(), m_image.width(), m_viewport.width() / m_scale),
                bounded(m_center.y(), m_image.height(), m_viewport.height() / m_scale)};
}

QRectF ImagePlacement::place() const
{
    const QPointF corner = middle() - m_center * m_scale;
    return {corner.toPoint(), QSizeF(m_image) * m_scale};
}

} // namespace Workbench
