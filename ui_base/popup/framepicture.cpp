// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/framepicture_p.h"

#include "ui_base/popup/arrowedwindow_p.h"

#include <QImage>
#include <QPainter>
#include <QRegion>

namespace Vela::UiBase::Internal {

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
    if (ratio <= 0 || !frame.isFilledToOutline())
        return false;
    const SSubject present {
        frame.Outline(), frame.borderPen(), frame.fillColor(), frame.inside(), size, ratio};
    if (!(m_subject == present))
        make(present, frame);
    painter.fillRect(present.inside, present.fill);
    m_parts.draw(painter);
    return true;
}

} // namespace Vela::UiBase::Internal
