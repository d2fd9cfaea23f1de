// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/keptshadow_p.h"

#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QRect>
#include <QSize>

class QPainter;

namespace Vela::UiBase {

class ArrowedWindowPrivate;

namespace Internal {

/// A frame with an arrow that is drawn once along its outline, with many short spans, and from then
/// on out of a picture of what stands around the content.
class FramePicture
{
public:
    /// Paints what ArrowedWindowPrivate::paintFrame() does, to the last bit.
    /// @return false when nothing is painted, since the outline does not tell what is to be seen or
    ///         the painter distorts
    bool draw(QPainter &painter, ArrowedWindowPrivate &frame, const QSize &size);

private:
    /// What the picture was made of.
    struct SSubject
    {
        QPainterPath outline;
        QPen border;
        QColor fill;
        QRect inside;
        QSize size;
        int ratio = 0;

        bool operator==(const SSubject &other) const;
    };

    void make(const SSubject &subject, ArrowedWindowPrivate &frame);

    SSubject m_subject;
    PictureParts m_parts;
};

} // namespace Internal
} // namespace Vela::UiBase
