// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/framepicture_p.h"

#include "ui_base/popup/arrowedwindow_p.h"

#include <QPainter>
#include <QRegion>

namespace Vela::UiBase::Internal {

PictureParts::PictureParts(const QImage &picture, const QPoint &origin, const QRegion &region)
{
    const int ratio = int(picture.devicePixelRatioF());
    for (const QRect &rect : region) {
        const QPoint corner = (rect.topLeft() - origin) * ratio;
        QImage part = picture.copy(QRect(corner, rect.size() * ratio));
        part.setDevicePixelRatio(ratio);
        m_parts.push_back({rect.topLeft(), part});
    }
}

void PictureParts::draw(QPainter &painter) const
{
    for (const SPart &part : m_parts)
        painter.drawImage(part.place, part.picture);
}

int wholeRatio(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    const int ratio = int(transform.m11());
    const QPointF origin = transform.map(QPointF(0, 0));
    const bool isPlain = transform.type() <= QTransform::TxScale && transform.m11() == ratio
        && transform.m22() == ratio && origin == origin.toPoint();
    return isPlain ? ratio : 0;
}

bool FramePicture::SSubject::operator==(const SSubject &other) const
{
    return outline == other.outline && border == other.border && fill == other.fill
        && inside == other.inside && size == other.size && ratio == other.ratio;
}

void FramePicture::make(const SSubject &subject, ArrowedWindowPrivate &frame)
{
    QImage picture(subject.size * subject.ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(subject.ratio);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        frame.paintFrame(painter);
    }
    const QRect whole(QPoint(0, 0), subject.size);
    m_parts = PictureParts(picture, whole.topLeft(), QRegion(whole).subtracted(subject.inside));
    m_subject = subject;
}

bool FramePicture::draw(QPainter &painter, ArrowedWindowPrivate &frame, const QSize &size)
{
    const int ratio = wholeRatio(painter);
    // The border may lie on the edge of the content.
    const int edge = frame.borderWidth + 1;
    const QRect inside = frame.internalWidget
        ? frame.internalWidget->geometry().adjusted(edge, edge, -edge, -edge)
        : QRect();
    if (ratio <= 0 || inside.isEmpty() || !frame.isFilledToOutline())
        return false;
    const SSubject present {
        frame.Outline(), frame.borderPen(), frame.fillColor(), inside, size, ratio};
    if (!(m_subject == present))
        make(present, frame);
    painter.fillRect(present.inside, present.fill);
    m_parts.draw(painter);
    return true;
}

} // namespace Vela::UiBase::Internal
