// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "image/imageplacement.h"
#include "image/imagepyramid.h"

#include <QPixmap>
#include <QWidget>

namespace Workbench {

/// Shows an image at a scale. Positions are in logical pixels of the widget; the scale is in pixels
/// of the screen, so that an image in its original size is as sharp as the screen can be.
///
/// What is seen is kept as it was drawn: a repaint copies it, and a drag draws only what came into
/// sight.
class ImageView : public QWidget
{
    Q_OBJECT

public:
    explicit ImageView(QWidget *parent = nullptr);

    /// Shows @p image, fitted, instead of the one of before.
    void setImage(const ImagePyramid &image);
    const ImagePyramid &image() const { return m_image; }

    const ImagePlacement &placement() const { return m_placement; }
    void fit();
    void showOriginalSize();
    /// Multiplies the scale by @p factor; the centre stays where it is.
    void zoom(double factor);
    /// The same with what lies at @p position.
    void zoomAt(const QPointF &position, double factor);
    void pan(const QPointF &distance);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The image, its scale or its place is another.
    void placementChanged();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showPlacement();
    void adoptScreen();
    void drawCanvas();
    QRegion moveCanvas(const QRectF &place);
    void drawPart(QPainter &painter, const QRectF &place, const QRect &part) const;

    ImagePyramid m_image;
    ImagePlacement m_placement;
    QPixmap m_canvas; // what is seen, in pixels of the screen
    QRectF m_drawn;   // where the image lies on the canvas
    bool m_isStale = true;
};

} // namespace Workbench
