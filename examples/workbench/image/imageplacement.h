// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointF>
#include <QRectF>
#include <QSize>

namespace Workbench {

/// Where an image lies in the view and how large: arithmetic without widgets.
///
/// All sizes and positions are in pixels of the screen, and a scale of 1 shows a pixel of the image
/// as one of those. An image that is smaller than the view stands in its centre; one that is larger
/// never leaves a gap at a side.
class ImagePlacement
{
public:
    /// Begins with another image, which is fitted.
    void setImage(const QSize &size);
    /// Keeps an image fitted that is, and otherwise what is seen in the centre there.
    void setViewport(const QSize &size);

    const QSize &viewport() const { return m_viewport; }
    double scale() const { return m_scale; }
    /// Whether the scale follows the view.
    bool isFitted() const { return m_isFitted; }
    bool canZoomIn() const { return !m_image.isEmpty() && m_scale < largestScale(); }
    bool canZoomOut() const { return !m_image.isEmpty() && m_scale > fittingScale(); }

    /// Shows the whole image, smaller when it has to be and never larger than it is.
    void fit();
    /// Shows a pixel of the image as one of the screen.
    void showOriginalSize();
    /// Multiplies the scale by @p factor, as far as it goes. What lies at @p position of the view
    /// stays there, unless that would leave a gap. Out further than fitted does not go, and is
    /// fitted from then on.
    void zoomAt(const QPointF &position, double factor);
    /// Moves the image by @p distance, as far as it goes.
    void pan(const QPointF &distance);

    /// The image in the view. Its corner lies between two pixels, so that no scale blurs it.
    QRectF place() const;

    static double largestScale() { return 32.0; }

private:
    double fittingScale() const;
    QPointF middle() const;
    void zoomTo(double scale);
    void leaveNoGap();

    QSize m_image;
    QSize m_viewport;
    QPointF m_center; // the point of the image in the centre of the view
    double m_scale = 1.0;
    bool m_isFitted = true;
};

} // namespace Workbench
