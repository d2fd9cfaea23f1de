// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow.h"
#include "ui_base/popup/arrowoutline_p.h"

#include <QMargins>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

namespace Vela::UiBase::Internal {

/// All that the layout of an ArrowedWindow depends on, lengths in logical pixels.
struct ArrowLayoutInput
{
    ArrowedWindow::SArrowParam arrow;
    QRect content; ///< the content's rectangle in its own coordinates
    int contentMargin = 0;
    int borderWidth = 0;
    int cornerRadius = 0;

    friend bool operator==(const ArrowLayoutInput &a, const ArrowLayoutInput &b)
    {
        return a.arrow == b.arrow && a.content == b.content && a.contentMargin == b.contentMargin
            && a.borderWidth == b.borderWidth && a.cornerRadius == b.cornerRadius;
    }
};

/// What comes out of it, in coordinates of the window but for the size.
struct ArrowLayout
{
    QSize size;
    QMargins margins; ///< around the content
    QPoint arrowPoint;
    QRect bounds;          ///< the rounded rectangle; the content's rectangle without an arrow
    bool hasArrow = false; ///< whether a triangle could be built; only then there is an outline
    ArrowShape shape;      ///< the outline, in coordinates of the content
    QPointF shift;         ///< from there to coordinates of the window
};

/// Works out tip and angle of an arrow on the rectangle @p content. Does nothing for a position
/// that is none of the eight.
void normalizeArrow(ArrowedWindow::SArrowParam &arrow, const QRect &content);

/// Lays a window out. Measures beyond what a widget can have are cut down to that.
ArrowLayout layOutArrow(const ArrowLayoutInput &input);

} // namespace Vela::UiBase::Internal
