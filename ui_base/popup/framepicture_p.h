// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

class QPainter;
class QRegion;

namespace Vela::UiBase {

class ArrowedWindowPrivate;

namespace Internal {

/// Parts of a picture, each with its place.
class PictureParts
{
public:
    PictureParts() = default;
    /// @param picture has its upper left corner at @p origin
    /// @param region what to keep of it
    PictureParts(const QImage &picture, const QPoint &origin, const QRegion &region);

    void draw(QPainter &painter) const;

private:
    struct SPart
    {
        QPoint place;
        QImage picture;
    };
    std::vector<SPart> m_parts;
};

/// The ratio of pixels of the device to those of a painter that neither turns nor bends anything; 0
/// if that is not a whole number.
int wholeRatio(const QPainter &painter);

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
