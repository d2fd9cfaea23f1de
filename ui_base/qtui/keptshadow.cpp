// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/keptshadow_p.h"

#include <QEvent>
#include <QPaintEngine>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QStyle>
#include <QtWidgets/qtwidgetsglobal.h>

#include <algorithm>
#include <typeinfo>

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

bool isWholeStep(const QTransform &transform)
{
    return transform.type() <= QTransform::TxTranslate && transform.dx() == qRound(transform.dx())
        && transform.dy() == qRound(transform.dy());
}

// Whether pixels come out there as in a picture.
bool paintsPixels(const QPainter &painter)
{
    const QPaintDevice *const device = painter.device();
    const int ratio = wholeRatio(painter);
    if (device->devType() != QInternal::Image || ratio <= 0 || ratio != device->devicePixelRatioF()
        || !isWholeStep(painter.worldTransform())
        || painter.compositionMode() != QPainter::CompositionMode_SourceOver)
        return false;
    const QImage::Format format = static_cast<const QImage *>(device)->format();
    return format == Format || format == QImage::Format_RGB32;
}

// All sorts of colours, on which it shows what does not cover them alike.
QImage groundLike(const QImage &image)
{
    constexpr QRgb Spread = 2654435761U;
    QImage result(image.size(), Format);
    result.setDevicePixelRatio(image.devicePixelRatioF());
    QRgb color = Spread;
    for (int y = 0; y < result.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(result.scanLine(y));
        std::generate(line, line + result.width(), [&color] {
            color = color * Spread + 1;
            return qPremultiply(color);
        });
    }
    return result;
}

bool isOpaque(const QImage &image, const QRect &rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        const auto *const line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        if (!std::all_of(line + rect.left(), line + rect.right() + 1,
                         [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

// What is opaque of a rectangle without its edges and corners; empty for one with holes.
QRect opaquePartOf(const QRect &rect, const QImage &image)
{
    constexpr int WidestEdge = 10;
    const int ratio = int(image.devicePixelRatioF());
    for (int edge = 0; edge <= WidestEdge; ++edge) {
        const QRect part = rect.adjusted(edge, edge, -edge, -edge);
        if (part.isEmpty())
            break;
        if (isOpaque(image, QRect(part.topLeft() * ratio, part.size() * ratio)))
            return part;
    }
    return {};
}

bool hasParts(const QWidget &widget)
{
    const QObjectList &children = widget.children();
    return std::any_of(children.cbegin(), children.cend(),
                       [](const QObject *child) { return child->isWidgetType(); });
}

// What the button would tell its style, which only its subclasses may ask for.
struct OpenButton : QPushButton
{
    static QStyleOptionButton optionOf(const QPushButton &button)
    {
        QStyleOptionButton option;
        (button.*(&OpenButton::initStyleOption))(&option);
        return option;
    }
};

} // namespace

int wholeRatio(const QPainter &painter)
{
    const QTransform &transform = painter.deviceTransform();
    const int ratio = int(transform.m11());
    const QPointF origin = transform.map(QPointF(0, 0));
    const bool isPlain = transform.type() <= QTransform::TxScale && transform.m11() == ratio
        && transform.m22() == ratio && origin == origin.toPoint();
    return isPlain ? ratio : 0;
}

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
        ++m_generation;
        m_look = look();
    }
    m_caster = caster;
    const QTransform transform = painter->worldTransform();
    painter->setWorldTransform(QTransform());
    painter->drawImage(place, m_shadow);
    painter->drawPixmap(place, source);
    painter->setWorldTransform(transform);
}

// Below what is opaque no shadow is seen.
void KeptShadow::cutAround(const QSize &size, const QPoint &corner)
{
    if (m_generationAround == m_generation)
        return;
    const QRect room(QPoint(0, 0), m_shadow.size() / int(m_shadow.devicePixelRatioF()));
    const QRect hidden = opaquePartOf(QRect(corner, size), m_caster);
    m_around = PictureParts(m_shadow, QPoint(0, 0), QRegion(room).subtracted(hidden));
    m_generationAround = m_generation;
}

// By drawSource() the last picture of the widget would be drawn where that stood then: Qt keeps it.
void KeptShadow::drawAgain(QPainter *painter, QWidget &widget)
{
    const QTransform transform = painter->worldTransform();
    const QPoint place = transform.map(QPoint(0, 0));
    const QPoint corner = boundingRectFor(QRect(place, widget.size())).toAlignedRect().topLeft();
    cutAround(widget.size(), place - corner);
    painter->setWorldTransform(QTransform::fromTranslate(corner.x(), corner.y()));
    m_around.draw(*painter);
    painter->setWorldTransform(QTransform());
    widget.render(painter, place, QRegion(), QWidget::DrawChildren);
    painter->setWorldTransform(transform);
}

bool ButtonShadow::SSubject::operator==(const SSubject &other) const
{
    return option.state == other.option.state && option.features == other.option.features
        && option.rect == other.option.rect && option.direction == other.option.direction
        && option.iconSize == other.option.iconSize && option.text == other.option.text
        && palette == other.palette && icon == other.icon && style == other.style
        && ratio == other.ratio && look == other.look && font == other.font;
}

ButtonShadow::ButtonShadow(QPushButton *button)
    : KeptShadow(button)
    , m_button(button)
{
    button->installEventFilter(this);
}

// What changes how a style sheet applies shows nowhere else.
bool ButtonShadow::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::StyleChange:
    case QEvent::Polish:
    case QEvent::DynamicPropertyChange:
        m_known.clear();
        break;
    default:
        break;
    }
    return KeptShadow::eventFilter(watched, event);
}

bool ButtonShadow::canDrawAgain(const QPainter &painter) const
{
    return !isNone() && m_button && m_button->graphicsEffect() == this
        && typeid(*m_button) == typeid(QPushButton) && !hasParts(*m_button)
        && paintsPixels(painter);
}

ButtonShadow::SSubject ButtonShadow::subject(const QPainter &painter) const
{
    const QStyleOptionButton option = OpenButton::optionOf(*m_button);
    return {option,
            option.palette.cacheKey(),
            option.icon.cacheKey(),
            m_button->font(),
            m_button->style(),
            wholeRatio(painter),
            look()};
}

// What is painted several times over one pixel comes out a little different above other things.
bool ButtonShadow::isPaintedAsInPicture() const
{
    QImage pasted = groundLike(caster());
    QImage painted = pasted;
    QPainter(&pasted).drawImage(QPoint(0, 0), caster());
    const QPoint corner = boundingRectFor(m_button->rect()).toAlignedRect().topLeft();
    m_button->render(&painted, -corner, QRegion(), QWidget::DrawChildren);
    return painted == pasted;
}

ButtonShadow::SKnown *ButtonShadow::find(const SSubject &subject)
{
    const auto known = std::find_if(m_known.begin(), m_known.end(), [&subject](const SKnown &one) {
        return one.subject == subject;
    });
    return known == m_known.end() ? nullptr : &*known;
}

// Not at the first time, for many a button is seen but once.
void ButtonShadow::learn(const SSubject &subject)
{
    constexpr std::size_t MostKnown = 8;
    if (SKnown *const known = find(subject)) {
        if (known->painting == EPainting::Unknown)
            known->painting = isPaintedAsInPicture() ? EPainting::AsInPicture : EPainting::ByGround;
        return;
    }
    if (m_known.size() == MostKnown)
        m_known.clear();
    m_known.push_back({subject, EPainting::Unknown});
}

void ButtonShadow::followGeneration()
{
    if (m_generationOfKnown != generation())
        m_known.clear();
    m_generationOfKnown = generation();
}

void ButtonShadow::draw(QPainter *painter)
{
    if (!canDrawAgain(*painter)) {
        KeptShadow::draw(painter);
        return;
    }
    followGeneration();
    const SSubject present = subject(*painter);
    const SKnown *const known = find(present);
    if (known && known->painting == EPainting::AsInPicture) {
        drawAgain(painter, *m_button);
        return;
    }
    KeptShadow::draw(painter);
    followGeneration();
    learn(present);
}

} // namespace Vela::UiBase::Internal
