// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/keptshadow_p.h"

#include <QPainter>
#include <QPixmap>
#include <QtWidgets/qtwidgetsglobal.h>

// What Qt blurs its own shadows with. It is exported, but no header of the public ones declares it.
QT_BEGIN_NAMESPACE
Q_WIDGETS_EXPORT void qt_blurImage(QPainter *p, QImage &blurImage, qreal radius, bool quality,
                                   bool alphaOnly, int transposed = 0);
QT_END_NAMESPACE

namespace Vela::UiBase::Internal {
namespace {

constexpr auto Format = QImage::Format_ARGB32_Premultiplied;

QImage transparentLike(const QImage &image)
{
    QImage result(image.size(), Format);
    result.setDevicePixelRatio(image.devicePixelRatioF());
    result.fill(Qt::transparent);
    return result;
}

bool isCoveredAlike(const QImage &one, const QImage &other)
{
    if (one.size() != other.size() || one.devicePixelRatioF() != other.devicePixelRatioF())
        return false;
    const int width = one.width();
    for (int y = 0; y < one.height(); ++y) {
        const auto *const left = reinterpret_cast<const QRgb *>(one.constScanLine(y));
        const auto *const right = reinterpret_cast<const QRgb *>(other.constScanLine(y));
        QRgb difference = 0;
        for (int x = 0; x < width; ++x)
            difference |= left[x] ^ right[x];
        if (qAlpha(difference) != 0)
            return false;
    }
    return true;
}

} // namespace

QImage KeptShadow::shadowOf(const QImage &caster) const
{
    QImage moved = transparentLike(caster);
    {
        QPainter painter(&moved);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(offset(), caster);
    }
    QImage shadow = transparentLike(caster);
    {
        QPainter painter(&shadow);
        qt_blurImage(&painter, moved, blurRadius(), false, true);
    }
    QPainter painter(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shadow.rect(), color());
    painter.end();
    return shadow;
}

void KeptShadow::draw(QPainter *painter)
{
    if (isNone()) {
        drawSource(painter);
        return;
    }
    QPoint place;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &place, PadToEffectiveBoundingRect);
    const QImage caster = source.toImage();
    if (caster.format() != Format) {
        QGraphicsDropShadowEffect::draw(painter);
        return;
    }
    if (!(m_look == look()) || !isCoveredAlike(m_caster, caster)) {
        m_shadow = shadowOf(caster);
        m_caster = caster;
        m_look = look();
    }
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawImage(place, m_shadow);
    painter->drawPixmap(place, source);
    painter->setWorldTransform(transform);
}

} // namespace Vela::UiBase::Internal
