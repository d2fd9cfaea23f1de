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

// As the styles of Qt do it.
void paintIcon(QPainter &painter, const QStyleOptionToolButton &option, const QToolButton &button)
{
    const QStyle *const style = button.style();
    QRect room = option.rect;
    if (option.state & (QStyle::State_Sunken | QStyle::State_On))
        room.translate(style->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &option, &button),
                       style->pixelMetric(QStyle::PM_ButtonShiftVertical, &option, &button));
    const QIcon::Mode mode = option.state & QStyle::State_Enabled ? QIcon::Normal : QIcon::Disabled;
    const QIcon::State state = option.state & QStyle::State_On ? QIcon::On : QIcon::Off;
    const QSize size = option.rect.size().boundedTo(option.iconSize);
    style->drawItemPixmap(&painter, room, Qt::AlignCenter,
                          option.icon.pixmap(button.window()->windowHandle(), size, mode, state));
}

void paintBoth(QPainter &painter, const QPixmap &ground, const QStyleOptionToolButton &option,
               const QToolButton &button)
{
    if (!ground.isNull())
        painter.drawPixmap(option.rect.topLeft(), ground);
    paintIcon(painter, option, button);
}

// A sheet of the application, or a style of the host's, may do more than there is a ground for.
bool looksRight(const QPixmap &ground, const QStyleOptionToolButton &option,
                const QToolButton &button, qreal ratio)
{
    QPixmap ours = blankFor(option, ratio);
    QPainter painter(&ours);
    paintBoth(painter, ground, option, button);
    painter.end();
    return ours.toImage() == styled(option, button, ratio).toImage();
}

} // namespace

bool ButtonPlates::paint(QPainter &painter, const QStyleOptionToolButton &option,
                         const QToolButton &button)
{
    const SPlate &plate = plateOf(option, button, painter.device()->devicePixelRatioF());
    if (plate.isFaithful)
        paintBoth(painter, plate.picture, option, button);
    return plate.isFaithful;
}

void ButtonPlates::clear()
{
    m_plates.clear();
}

const ButtonPlates::SPlate &ButtonPlates::plateOf(const QStyleOptionToolButton &option,
                                                  const QToolButton &button, qreal ratio)
{
    if (m_plates.size() >= mostPlates)
        clear();
    const QStyle::State state = option.state & seenStates;
    const auto known = std::find_if(m_plates.begin(), m_plates.end(), [&](const SPlate &plate) {
        return plate.size == option.rect.size() && plate.state == state && plate.ratio == ratio;
    });
    if (known != m_plates.end())
        return *known;
    const QPixmap ground = groundOf(option, button, ratio);
    m_plates.push_back(
        {option.rect.size(), state, ratio, ground, looksRight(ground, option, button, ratio)});
    return m_plates.back();
}

} // namespace Vela::UiBase::Internal
