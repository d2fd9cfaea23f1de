// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/dialogex.h"

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>

namespace Vela::UiBase {

/// The state of a DialogEx. A subclass that is resized at more places than the grip fills the edges.
/// All rectangles are logical pixels of the dialog.
class LUMO_UI_BASE_EXPORT DialogExPrivate
{
    Q_DECLARE_PUBLIC(DialogEx)

public:
    /// @param canBeResized whether the dialog has a grip
    explicit DialogExPrivate(bool canBeResized);
    virtual ~DialogExPrivate();

    bool dismissByDefaultEvents = true;
    int moveBarHeight = 32;
    QPoint lastGlobalPos;
    bool moving = false;
    bool resizing = false;
    QRect moveBarRect;
    /// For the zones 2, 4, 5, 6, 7, 0 and 1, in this order; empty, so that none is ever met.
    std::array<QRect, 7> edgeRects;
    QList<QRect> cornerRects; ///< the grip
    int resizeZone = 8;       ///< 3 is the grip, 8 none
    const bool resizable;

protected:
    DialogEx *q_ptr = nullptr;

private:
    friend class DialogEx;

    void updateMoveBar();
    void updateGrip();
    int zoneAt(const QPoint &position);
    QSize takenPart(const QPoint &way) const;
    void moveTo(const QPoint &globalPosition);
    void resizeTo(const QPoint &globalPosition);

    Q_DISABLE_COPY(DialogExPrivate)
};

} // namespace Vela::UiBase
