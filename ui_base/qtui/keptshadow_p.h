// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QGraphicsDropShadowEffect>
#include <QImage>
#include <QPointF>

namespace Vela::UiBase::Internal {

/// A drop shadow that is blurred once, and drawn again for as long as its widget covers the same
/// pixels. What is seen is that of the base class to the last bit: the blurring takes most of the time
/// in which a small window is painted, while what casts a shadow hardly ever changes its shape.
class KeptShadow : public QGraphicsDropShadowEffect
{
public:
    using QGraphicsDropShadowEffect::QGraphicsDropShadowEffect;

protected:
    /// How a shadow looks beside its shape.
    struct SLook
    {
        qreal radius = 0;
        QPointF offset;
        QColor color;

        bool operator==(const SLook &other) const
        {
            return radius == other.radius && offset == other.offset && color == other.color;
        }
    };

    void draw(QPainter *painter) override;

    SLook look() const { return {blurRadius(), offset(), color()}; }
    /// Whether nothing of it would be seen.
    bool isNone() const { return blurRadius() <= 0 && offset().isNull(); }
    /// The shadow of what a picture shows, which leaves room for it around.
    QImage shadowOf(const QImage &caster) const;

private:
    QImage m_caster;
    SLook m_look;
    QImage m_shadow;
};

} // namespace Vela::UiBase::Internal
