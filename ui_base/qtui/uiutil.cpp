// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/uiutil.h"

#include "ui_base/qtui/devicepixmap_p.h"

#include <QLabel>
#include <QVariant>

namespace Vela::UiBase {
namespace {

constexpr char savedTooltipProperty[] = "tooltip";

QPoint attachedAt(UiUtil::EAttachToPosition position, const QRect &area, const QSize &icon)
{
    using E = UiUtil::EAttachToPosition;
    const int right = area.right() - icon.width();
    const int bottom = area.bottom() - icon.height();
    switch (position) {
    case E::AttachLeft:
        return {0, area.bottom() / 2};
    case E::AttachTop:
        return {right / 2, 0};
    case E::AttachBottom:
        return {right / 2, bottom};
    case E::AttachTopLeft:
        return {0, 0};
    case E::AttachTopRight:
        return {right, 0};
    case E::AttachBottomLeft:
        return {0, bottom};
    case E::AttachBottomRight:
        return {right, bottom};
    case E::AttachRight:
        break;
    }
    return {right, bottom / 2};
}

void replaceTooltip(QWidget &widget, QLabel &icon, const QString &tooltip)
{
    if (tooltip.isEmpty())
        return;
    if (!widget.toolTip().isEmpty())
        icon.setProperty(savedTooltipProperty, widget.toolTip());
    widget.setToolTip(tooltip);
}

} // namespace

QLabel *UiUtil::addIconToWidget(QWidget *widget, const QPoint &offset, EAttachToPosition position,
                                const QString &iconPath, const QString &tooltip)
{
    if (!widget)
        return nullptr;
    const QPixmap pixmap = Internal::loadPixmap(iconPath, Internal::devicePixelRatioFor(*widget));
    if (pixmap.isNull())
        return nullptr;
    auto *label = new QLabel(widget);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setPixmap(pixmap);
    // A label in no layout would keep a size that has nothing to do with the picture.
    label->adjustSize();
    label->move(attachedAt(position, widget->rect(), Internal::logicalSize(pixmap)) + offset);
    replaceTooltip(*widget, *label, tooltip);
    return label;
}

void UiUtil::restoreTooltipOnIconHide(QWidget *widget, QLabel *icon)
{
    if (!widget || !icon)
        return;
    const QString tooltip = icon->property(savedTooltipProperty).toString();
    if (tooltip != widget->toolTip())
        widget->setToolTip(tooltip);
}

} // namespace Vela::UiBase
