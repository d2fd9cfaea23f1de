// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/frameshadow_p.h"

#include "ui_base/popup/arrowedwindow_p.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <typeinfo>

namespace Vela::UiBase::Internal {
namespace {

bool hasOnlyContent(const QWidget &window, const QWidget *content)
{
    const QObjectList &children = window.children();
    return std::none_of(children.cbegin(), children.cend(), [content](const QObject *child) {
        return child->isWidgetType() && child != content;
    });
}

// Whether something is painted below all that the window paints itself.
bool hasGround(const QWidget &window)
{
    return window.autoFillBackground() || window.testAttribute(Qt::WA_StyledBackground);
}

} // namespace

bool FrameShadow::SCaster::operator==(const SCaster &other) const
{
    return outline == other.outline && border == other.border && size == other.size
        && content == other.content && ratio == other.ratio && look == other.look;
}

FrameShadow::FrameShadow(ArrowedWindowPrivate &frame, ArrowedWindow *window)
    : KeptShadow(window)
    , m_frame(frame)
    , m_window(window)
{ }

// Whether the outline tells what the window covers. A subclass may paint something else.
bool FrameShadow::isKnown(const QPainter &painter) const
{
    if (!m_window || m_window->graphicsEffect() != this
        || typeid(*m_window) != typeid(ArrowedWindow) || hasGround(*m_window)
        || !m_window->mask().isEmpty())
        return false;
    const int ratio = wholeRatio(painter);
    return ratio > 0 && ratio == painter.device()->devicePixelRatioF()
        && painter.compositionMode() == QPainter::CompositionMode_SourceOver
        && m_frame.isFilledToOutline() && hasOnlyContent(*m_window, m_frame.internalWidget);
}

void FrameShadow::cast(const SCaster &caster)
{
    const QRect room = boundingRectFor(m_window->rect()).toAlignedRect();
    QImage picture(room.size() * caster.ratio, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(caster.ratio);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        painter.translate(-room.topLeft());
        painter.setClipRect(m_window->rect()); // a border that is wider than its layout ends there
        m_frame.paintFrame(painter);
    }
    m_parts =
        PictureParts(shadowOf(picture), room.topLeft(), QRegion(room).subtracted(caster.content));
    m_caster = caster;
}

void FrameShadow::draw(QPainter *painter)
{
    if (isNone() || !isKnown(*painter)) {
        KeptShadow::draw(painter);
        return;
    }
    const SCaster present {m_frame.Outline(),    m_frame.borderPen(),
                           m_window->size(),     m_frame.internalWidget->geometry(),
                           wholeRatio(*painter), look()};
    if (!(m_caster == present))
        cast(present);
    m_parts.draw(*painter);
    // By drawSource() effects of widgets in the window would meet a device that is being painted on,
    // and under a transformation Qt would clip them elsewhere.
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    m_window->render(painter, transform.map(QPoint(0, 0)), QRegion(), QWidget::DrawChildren);
    painter->setWorldTransform(transform);
}

} // namespace Vela::UiBase::Internal
