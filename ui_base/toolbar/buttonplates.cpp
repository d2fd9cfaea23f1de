// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/buttonplates_p.h"

#include "ui_base/qtui/devicepixmap_p.h"

#include <QImage>
#include <QPainter>
#include <QStyleOptionToolButton>
#include <QToolButton>

#include <algorithm>

namespace Vela::UiBase::Internal {
namespace {

// A bar has one size of buttons and few states; more come together only while sizes change.
constexpr std::size_t mostPlates = 32;

constexpr QStyle::State seenStates =
    QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Sunken | QStyle::State_On;

bool isBlank(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (std::any_of(line, line + image.width(), [](QRgb pixel) { return pixel != 0; }))
            return false;
    }
    return true;
}

QPixmap blankFor(const QStyleOptionToolButton &option, qreal ratio)
{
    QPixmap pixmap(physicalSize(option.rect.size(), ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPixmap styled(const QStyleOptionToolButton &option, const QToolButton &button, qreal ratio)
{
    QPixmap pixmap = blankFor(option, ratio);
    QPainter painter(&pixmap);
    button.style()->drawComplexControl(QStyle::CC_ToolButton, &option, &painter, &button);
    return pixmap;
}

QPixmap groundOf(const QStyleOptionToolButton &option, const QToolButton &button, qreal ratio)
{
    QStyleOptionToolButton bare(option);
    bare.icon = QIcon();
    bare.text.clear();
    const QPixmap ground = styled(bare, button, ratio);
    return isBlank(ground) ? QPixmap() : ground;
}

QPoint iconShift(const QStyleOptionToolButton &option, const QToolButton &button)
{
    if (!(option.state & (QStyle::State_Sunken | QStyle::State_On)))
        return {};
    const QStyle *const style = button.style();
    return {style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &option, &button),
            style->pixelMetric(QStyle::PM_ButtonShiftVertical, &option, &button)};
}

// As the styles of Qt do it.
void paintIcon(QPainter &painter, const QPoint &shift, const QStyleOptionToolButton &option,
               const QToolButton &button)
{
    const QIcon::Mode mode = option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
    const QIcon::State state = option.state & QStyle::State_On ? QIcon::On : QIcon::Off;
    const QSize size = option.rect.size().boundedTo(option.iconSize);
    button.style()->drawItemPixmap(
        &painter, option.rect.translated(shift), Qt::AlignCenter,
        option.icon.pixmap(button.window()->windowHandle(), size, mode, state));
}

// A sheet of the application, or a style of the host's, may do more than there is a ground for.
bool looksRight(const QPixmap &ours, const QStyleOptionToolButton &option,
                const QToolButton &button, qreal ratio)
{
    return ours.toImage() == styled(option, button, ratio).toImage();
}

} // namespace

void ButtonPlates::SPlate::paint(QPainter &painter, const QStyleOptionToolButton &option,
                                 const QToolButton &button) const
{
    if (!ground.isNull())
        painter.drawPixmap(option.rect.topLeft(), ground);
    paintIcon(painter, shift, option, button);
}

bool ButtonPlates::know(const QPainter &painter, const QStyleOptionToolButton &option,
                        const QToolButton &button) const
{
    return find(kindOf(painter, option, button));
}

bool ButtonPlates::paint(QPainter &painter, const QStyleOptionToolButton &option,
                         const QToolButton &button)
{
    const SKind kind = kindOf(painter, option, button);
    const SPlate *const known = find(kind);
    const SPlate &plate = known ? *known : make(kind, option, button);
    if (plate.isFaithful)
        plate.paint(painter, option, button);
    return plate.isFaithful;
}

void ButtonPlates::clear()
{
    m_plates.clear();
}

ButtonPlates::SKind ButtonPlates::kindOf(const QPainter &painter,
                                         const QStyleOptionToolButton &option,
                                         const QToolButton &button)
{
    return {button.metaObject(), option.rect.size(), option.state & seenStates,
            painter.device()->devicePixelRatioF()};
}

const ButtonPlates::SPlate *ButtonPlates::find(const SKind &kind) const
{
    const auto known = std::find_if(m_plates.begin(), m_plates.end(),
                                    [&kind](const SPlate &plate) { return plate.kind == kind; });
    return known == m_plates.end() ? nullptr : &*known;
}

const ButtonPlates::SPlate &ButtonPlates::make(const SKind &kind,
                                               const QStyleOptionToolButton &option,
                                               const QToolButton &button)
{
    if (m_plates.size() >= mostPlates)
        clear();
    SPlate plate {kind, groundOf(option, button, kind.ratio), iconShift(option, button), false};
    QPixmap ours = blankFor(option, kind.ratio);
    QPainter painter(&ours);
    plate.paint(painter, option, button);
    painter.end();
    plate.isFaithful = looksRight(ours, option, button, kind.ratio);
    m_plates.push_back(plate);
    return m_plates.back();
}

} // namespace Vela::UiBase::Internal
