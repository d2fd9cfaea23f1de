// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/arrowlayout_p.h"
#include "ui_base/popup/framepicture_p.h"
#include "ui_base/popup/windowshape_p.h"

#include <QColor>
#include <QGraphicsDropShadowEffect>
#include <QPainterPath>
#include <QPen>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QVBoxLayout>

namespace Vela::UiBase {

/// The state of an ArrowedWindow. A subclass with other defaults derives from this and sets them in
/// its constructor, before the window takes it over. Lengths are logical pixels.
class LUMO_UI_BASE_EXPORT ArrowedWindowPrivate
{
    Q_DECLARE_PUBLIC(ArrowedWindow)

public:
    ArrowedWindowPrivate();
    virtual ~ArrowedWindowPrivate();

    /// Works out tip and angle of @p param for the content. Nothing without content and for a
    /// position that is none of the eight.
    void NormalizeArrowParam(ArrowedWindow::SArrowParam &param) const;
    /// Lays the window out for the current arrow.
    /// @return the size of the window; (0,0) without content, when nothing is done
    QSize CalculateLayout();
    /// The outline in coordinates of the window, that of the last layout which had an arrow.
    const QPainterPath &Outline();
    /// Paints the outline, filled if there is a content, and the band.
    void paintFrame(QPainter &painter);
    /// Whether all inside of the outline is opaque and nothing outside of it is painted.
    bool isFilledToOutline() const;
    /// What is painted of the frame and within it, in coordinates of the window.
    QRegion seenRegion();
    QPen borderPen() const;
    QColor fillColor() const;

    QPointer<QVBoxLayout> layout; ///< null when somebody has deleted it
    QPointer<QWidget> internalWidget;
    QPainterPath path; ///< what Outline() gave last
    int borderWidth = 1;
    QColor borderColor {Qt::gray};
    Qt::PenStyle borderStyle = Qt::SolidLine;
    Qt::PenJoinStyle borderJoin = Qt::BevelJoin;
    QPoint arrowPoint;
    bool autoDecide = true;
    QSize sizeDelta {0, 0};   ///< of the window, less that of the content
    bool layoutDirty = false; ///< a layout is due at the next showing
    QPointer<QGraphicsDropShadowEffect> shadow;
    QList<ArrowedWindow::SArrowParam> arrowParams {ArrowedWindow::SArrowParam()};
    ArrowedWindow::SArrowParam currentArrow;
    int contentMargin = 0;
    int cornerRadius = 5;
    QColor backgroundColor;
    QRect bounds;
    QRect partialRect;
    QColor partialColor;
    bool partialEnabled = false;

protected:
    ArrowedWindow *q_ptr = nullptr;

private:
    friend class ArrowedWindow;

    struct SColors
    {
        QColor fill;
        QColor band;
        QColor border;
    };

    /// What decides which pixels the frame covers.
    struct SSeen
    {
        QPainterPath outline;
        QPen border;
        QSize size;
        QColor fill;
        QRect band;
        QColor bandColor;

        bool operator==(const SSeen &other) const;
    };

    void makeLayout();
    void makeShadow();
    void onContentResized();
    void layOut();
    bool isAtLayout() const;
    void bringToLayout();
    void takeShape();
    void paintFrame(QPainter &painter, const SColors &colors);
    QRegion paintedRegion(const SColors &colors);

    // The last layout and what it came from, to do nothing when it comes again.
    Internal::ArrowLayoutInput laidOutFrom;
    Internal::ArrowLayout laidOut;
    bool hasLaidOut = false;
    // What the window and its Qt layout were brought to.
    QMargins appliedMargins;
    int appliedGeneration = -1;
    // The outline is built when it is painted: for each showing several arrows may be laid out.
    Internal::ArrowShape outlineShape;
    QPointF outlineShift;
    bool isOutlineDue = false;
    Internal::FramePicture picture;
    Internal::WindowShape shape;
    // The last region that was asked for and what it came from.
    SSeen seen;
    QRegion seenWithin;

    Q_DISABLE_COPY(ArrowedWindowPrivate)
};

} // namespace Vela::UiBase
