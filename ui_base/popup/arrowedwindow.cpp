// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/arrowedwindow.h"

#include "ui_base/popup/arrowedwindow_p.h"

#include "ui_base/popup/arrowlayout_p.h"
#include "ui_base/popup/frameshadow_p.h"

#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QPen>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::UiBase {
namespace {

constexpr int TransparentBelow = 50;
constexpr int NeverApplied = -1;

// What lies beyond the largest widget is cut off, so that the rest can be moved.
QRect limited(const QRect &rect)
{
    const auto limit = [](int value) {
        return std::clamp(value, -QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    };
    return {QPoint(limit(rect.left()), limit(rect.top())),
            QPoint(limit(rect.right()), limit(rect.bottom()))};
}

// Whether @p window stands in @p w, or is it: such a widget cannot stand in the window in turn.
bool isAround(const QWidget *w, const QWidget *window)
{
    while (window && window != w)
        window = window->parentWidget();
    return window;
}

// The layout of the window, which can tell whether anything has changed in it.
class FrameLayout : public QVBoxLayout
{
public:
    using QVBoxLayout::QVBoxLayout;

    void invalidate() override
    {
        ++m_generation;
        QVBoxLayout::invalidate();
    }
    int generation() const { return m_generation; }

private:
    int m_generation = 0;
};

} // namespace

ArrowedWindowPrivate::ArrowedWindowPrivate() = default;

ArrowedWindowPrivate::~ArrowedWindowPrivate() = default;

void ArrowedWindowPrivate::NormalizeArrowParam(ArrowedWindow::SArrowParam &param) const
{
    if (internalWidget)
        Internal::normalizeArrow(param, internalWidget->rect());
}

QSize ArrowedWindowPrivate::CalculateLayout()
{
    if (!internalWidget)
        return {0, 0};
    layOut();
    const QSize size = laidOut.size;
    bringToLayout();
    takeShape();
    return size;
}

void ArrowedWindowPrivate::layOut()
{
    const Internal::ArrowLayoutInput input {currentArrow, internalWidget->rect(), contentMargin,
                                            borderWidth, cornerRadius};
    if (!hasLaidOut || !(input == laidOutFrom)) {
        laidOutFrom = input;
        laidOut = Internal::layOutArrow(input);
        hasLaidOut = true;
        if (laidOut.hasArrow) {
            outlineShape = laidOut.shape;
            outlineShift = laidOut.shift;
            isOutlineDue = true;
        }
    }
    bounds = laidOut.bounds;
    arrowPoint = laidOut.arrowPoint;
    sizeDelta = laidOut.size - input.content.size();
    layoutDirty = true;
}

// Whether the window and its Qt layout stand as they were left.
bool ArrowedWindowPrivate::isAtLayout() const
{
    const QSize size = laidOut.size;
    return static_cast<const FrameLayout *>(layout.data())->generation() == appliedGeneration
        && appliedMargins == laidOut.margins && q_ptr->size() == size
        && q_ptr->minimumSize() == size && q_ptr->maximumSize() == size;
}

void ArrowedWindowPrivate::bringToLayout()
{
    if (!layout) {
        q_ptr->setFixedSize(laidOut.size);
        return;
    }
    if (isAtLayout())
        return;
    const QMargins margins = laidOut.margins;
    q_ptr->setFixedSize(laidOut.size);
    layout->setContentsMargins(margins);
    q_ptr->adjustSize();
    appliedMargins = margins;
    appliedGeneration = static_cast<const FrameLayout *>(layout.data())->generation();
}

void ArrowedWindowPrivate::takeShape()
{
    if (q_ptr->isVisible())
        shape.follow(*q_ptr, [this] { return seenRegion(); });
}

const QPainterPath &ArrowedWindowPrivate::Outline()
{
    if (isOutlineDue) {
        Internal::setToArrowOutline(path, outlineShape, outlineShift);
        isOutlineDue = false;
    }
    return path;
}

QColor ArrowedWindowPrivate::fillColor() const
{
    const bool isSeen = backgroundColor.alpha() >= TransparentBelow;
    return isSeen ? backgroundColor : QColor(255, 255, 255, 128);
}

void ArrowedWindowPrivate::paintFrame(QPainter &painter)
{
    paintFrame(painter, {fillColor(), partialColor, borderColor});
}

void ArrowedWindowPrivate::paintFrame(QPainter &painter, const SColors &colors)
{
    const QPainterPath &outline = Outline();
    painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    if (internalWidget) {
        painter.fillPath(outline, QBrush(colors.fill, Qt::SolidPattern));
        if (partialEnabled)
            painter.fillRect(partialRect, colors.band);
    }
    QPen pen = borderPen();
    pen.setColor(colors.border);
    painter.setPen(pen);
    painter.drawPath(outline);
}

bool ArrowedWindowPrivate::SSeen::operator==(const SSeen &other) const
{
    return outline == other.outline && border == other.border && size == other.size
        && fill == other.fill && band == other.band && bandColor == other.bandColor;
}

// Painted and scanned only for a look that is new: most showings repeat the last one.
QRegion ArrowedWindowPrivate::seenRegion()
{
    const auto solid = [](QColor color) {
        color.setAlpha(color.alpha() > 0 ? 255 : 0);
        return color;
    };
    const bool hasBand = internalWidget && partialEnabled;
    QPen border = borderPen();
    border.setColor(solid(border.color()));
    const SSeen present {Outline(),
                         border,
                         q_ptr->size(),
                         internalWidget ? solid(fillColor()) : QColor(),
                         hasBand ? partialRect : QRect(),
                         hasBand ? solid(partialColor) : QColor()};
    if (!(seen == present)) {
        seenWithin = paintedRegion({present.fill, present.bandColor, border.color()});
        seen = present;
    }
    return seenWithin;
}

QRegion ArrowedWindowPrivate::paintedRegion(const SColors &colors)
{
    QImage image(q_ptr->size(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintFrame(painter, colors);
    painter.end();
    return QBitmap::fromImage(image.createAlphaMask());
}

QPen ArrowedWindowPrivate::borderPen() const
{
    return QPen(borderColor, borderWidth, borderStyle, Qt::FlatCap, borderJoin);
}

bool ArrowedWindowPrivate::isFilledToOutline() const
{
    return internalWidget && fillColor().alpha() == 255 && borderColor.alpha() == 255
        && !partialEnabled && bounds.contains(internalWidget->geometry());
}

void ArrowedWindowPrivate::makeLayout()
{
    layout = new FrameLayout(q_ptr);
    appliedGeneration = NeverApplied;
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void ArrowedWindowPrivate::makeShadow()
{
    shadow = new Internal::FrameShadow(*this, q_ptr);
    shadow->setBlurRadius(15.0);
    shadow->setOffset(0.0, 0.0);
    shadow->setColor(QColor(192, 192, 192, 166));
}

void ArrowedWindowPrivate::onContentResized()
{
    layoutDirty = true;
    if (!internalWidget->isVisible())
        return;
    // The layout of the window sizes the content in turn, which must not lead back here.
    internalWidget->removeEventFilter(q_ptr);
    layoutDirty = false;
    CalculateLayout();
    if (internalWidget)
        internalWidget->installEventFilter(q_ptr);
}

ArrowedWindow::ArrowedWindow(QWidget *parent)
    : ArrowedWindow(*new ArrowedWindowPrivate, parent)
{ }

ArrowedWindow::ArrowedWindow(ArrowedWindowPrivate &dd, QWidget *parent)
    : QWidget(parent, Qt::FramelessWindowHint)
    , d_ptr(&dd)
{
    d_ptr->q_ptr = this;
    ArrowedWindow::Initialize();
}

ArrowedWindow::~ArrowedWindow() = default;

void ArrowedWindow::Initialize()
{
    Q_D(ArrowedWindow);
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    if (!layout())
        d->makeLayout();
    if (!d->shadow)
        d->makeShadow();
    setGraphicsEffect(nullptr);
}

void ArrowedWindow::AttachWidget(QWidget *w)
{
    Q_D(ArrowedWindow);
    if (!w || w == d->internalWidget || isAround(w, this))
        return;
    // Hiding a content runs code of its owner.
    const QPointer<QWidget> content(w);
    auto *const holder = qobject_cast<ArrowedWindow *>(w->parentWidget());
    if (holder && holder->InternalWidget() == w)
        holder->DetachWidget();
    DetachWidget();
    if (!content)
        return;
    w->installEventFilter(this);
    d->internalWidget = w;
    d->backgroundColor = w->palette().color(QPalette::Window);
    delete layout();
    d->makeLayout();
    d->layout->setContentsMargins(0, 0, 0, 0);
    d->layout->addWidget(w);
    d->layout->setAlignment(w, Qt::AlignCenter);
    if (d->arrowParams.isEmpty())
        return;
    d->NormalizeArrowParam(d->currentArrow);
    d->CalculateLayout();
}

QWidget *ArrowedWindow::DetachWidget()
{
    Q_D(ArrowedWindow);
    QWidget *const content = d->internalWidget;
    if (!content)
        return nullptr;
    content->removeEventFilter(this);
    d->internalWidget.clear();
    content->hide();
    return content;
}

void ArrowedWindow::SetArrow(const SArrowParam &param)
{
    Q_D(ArrowedWindow);
    if (param.position == EArrowPosition::None)
        return;
    const SArrowParam given = param;
    d->arrowParams = {given};
    d->NormalizeArrowParam(d->arrowParams.first());
    d->currentArrow = given;
    d->CalculateLayout();
}

void ArrowedWindow::SetArrow(EArrowPosition position, int length, bool customAngle, int angle,
                             int apexAngle, bool offsetAlongX, int offset)
{
    Q_D(ArrowedWindow);
    if (position == EArrowPosition::None)
        return;
    d->arrowParams = {
        {position, length, customAngle, angle, apexAngle, offsetAlongX, offset, QPoint()}};
    d->NormalizeArrowParam(d->arrowParams.first());
    d->currentArrow = d->arrowParams.first();
    d->CalculateLayout();
}

void ArrowedWindow::AddArrow(const SArrowParam &param)
{
    Q_D(ArrowedWindow);
    if (param.position == EArrowPosition::None)
        return;
    d->arrowParams.append(param);
    d->NormalizeArrowParam(d->arrowParams.last());
    d->currentArrow = d->arrowParams.first();
    if (d->arrowParams.size() == 1)
        d->CalculateLayout();
}

void ArrowedWindow::AddArrow(EArrowPosition position, int length, bool customAngle, int angle,
                             int apexAngle, bool offsetAlongX, int offset)
{
    AddArrow({position, length, customAngle, angle, apexAngle, offsetAlongX, offset, QPoint()});
}

const QList<ArrowedWindow::SArrowParam> &ArrowedWindow::GetArrowParams() const
{
    QList<SArrowParam> &params = d_ptr->arrowParams;
    if (!params.contains(d_ptr->currentArrow))
        params.append(d_ptr->currentArrow);
    return params;
}

bool ArrowedWindow::GetCurrentArrowParam(SArrowParam &param) const
{
    param = d_func()->currentArrow;
    return true;
}

bool ArrowedWindow::GetArrowWindowSize(SArrowParam &param, QSize &size, QPoint &arrowPoint)
{
    Q_D(ArrowedWindow);
    if (!d->internalWidget || param.position == EArrowPosition::None)
        return false;
    d->NormalizeArrowParam(param);
    d->currentArrow = param;
    size = d->CalculateLayout();
    arrowPoint = d->arrowPoint;
    return true;
}

void ArrowedWindow::GenerateLayout()
{
    d_func()->CalculateLayout();
}

bool ArrowedWindow::AutoDecideArrowPosition() const
{
    return d_func()->autoDecide;
}

void ArrowedWindow::SetAutoDecideArrowPosition(bool autoDecide)
{
    d_func()->autoDecide = autoDecide;
}

QPoint ArrowedWindow::GetArrowPoint() const
{
    return d_func()->arrowPoint;
}

QRect ArrowedWindow::GetBounds() const
{
    return d_func()->bounds;
}

QGraphicsDropShadowEffect *ArrowedWindow::GetShadow() const
{
    return d_func()->shadow;
}

void ArrowedWindow::EnableShadow(bool enable)
{
    Q_D(ArrowedWindow);
    if (enable && !d->shadow)
        d->makeShadow();
    setGraphicsEffect(enable ? d->shadow : nullptr);
}

void ArrowedWindow::SetBorder(const QColor &color, int width, Qt::PenStyle style,
                              Qt::PenJoinStyle join)
{
    Q_D(ArrowedWindow);
    d->borderColor = color;
    d->borderWidth = width;
    d->borderStyle = style;
    d->borderJoin = join;
    d->takeShape();
    update();
}

void ArrowedWindow::SetContentMargin(int margin)
{
    d_func()->contentMargin = margin;
}

void ArrowedWindow::SetRoundCornerRadius(int radius)
{
    d_func()->cornerRadius = radius;
}

void ArrowedWindow::SetPartialBackgroundColor(bool enable, const QRect &rect, const QColor &color)
{
    Q_D(ArrowedWindow);
    d->partialEnabled = enable;
    if (enable) {
        const int top = d->layout ? d->layout->contentsMargins().top() : 0;
        d->partialRect = limited(rect).translated(d->bounds.left(), top);
        d->partialRect.setWidth(d->bounds.width());
        d->partialColor = color;
    }
    d->takeShape();
    update();
}

QWidget *ArrowedWindow::InternalWidget() const
{
    return d_func()->internalWidget;
}

bool ArrowedWindow::eventFilter(QObject *watched, QEvent *event)
{
    Q_D(ArrowedWindow);
    if (watched == d->internalWidget) {
        if (event->type() == QEvent::Resize)
            d->onContentResized();
        else if (event->type() == QEvent::Hide)
            hide();
    }
    return QWidget::eventFilter(watched, event);
}

void ArrowedWindow::paintEvent(QPaintEvent *)
{
    Q_D(ArrowedWindow);
    QPainter painter(this);
    if (!d->picture.draw(painter, *d, size()))
        d->paintFrame(painter);
}

void ArrowedWindow::showEvent(QShowEvent *event)
{
    Q_D(ArrowedWindow);
    if (d->internalWidget)
        d->internalWidget->show();
    if (d->layoutDirty) {
        d->layoutDirty = false;
        d->CalculateLayout();
    } else {
        d->takeShape();
    }
    QWidget::showEvent(event);
}

} // namespace Vela::UiBase
