// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/atooltipex.h"

#include "ui_base/qtui/tooltip/atooltipex_p.h"

#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/enumproperty_p.h"
#include "ui_base/qtui/tooltip/atooltipobject.h"

#include <QBitmap>
#include <QFont>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QStackedWidget>

#include <algorithm>
#include <limits>

namespace Vela::UiBase {
namespace {

const char *const WidgetTypeProperty = "widget_type";
const char *const KeywordProperty = "keyword";

// The nearest width that a widget can have.
int possibleWidth(int width)
{
    return std::clamp(width, 0, QWIDGETSIZE_MAX);
}

void fitText(QWidget *page, int width)
{
    QFont font = page->font();
    font.setFamily(QStringLiteral("Arial"));
    font.setPixelSize(12);
    page->setFont(font);
    const QSize size = ATooltipEx::FindTextLabelSize(page, width);
    page->setMaximumSize(size);
    page->resize(width, size.height());
}

void fitPicture(QWidget *page, int width)
{
    const auto *const label = qobject_cast<QLabel *>(page);
    const QPixmap picture = label ? label->pixmap(Qt::ReturnByValue) : QPixmap();
    const QSize size = Internal::logicalSize(picture);
    const int fitted = std::min(size.width(), width);
    if (!picture.isNull() && fitted != 0)
        page->setFixedSize(fitted, size.height() * fitted / size.width());
}

} // namespace

int horizontalMargins(const QLayout *layout)
{
    if (!layout)
        return 0;
    const QMargins margins = layout->contentsMargins();
    return margins.left() + margins.right();
}

ATooltipExPrivate::ATooltipExPrivate() = default;

ATooltipExPrivate::~ATooltipExPrivate() = default;

void ATooltipExPrivate::SetWidth()
{
    const bool isWide = alwaysMaxWidth || q_ptr->IsAdvancedWidgetVisible();
    q_ptr->setFixedWidth(possibleWidth(isWide ? maxWidth : minWidth));
}

// The preferred size of a card goes with a width of its own, at which wrapped texts have another
// height.
void ATooltipExPrivate::FitHeight()
{
    QLayout *const layout = q_ptr->layout();
    if (!layout)
        return;
    // The part was given a size by hand.
    layout->invalidate();
    layout->activate();
    const int width = q_ptr->width();
    q_ptr->resize(width,
                  layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                              : layout->totalSizeHint().height());
}

void ATooltipExPrivate::FitCard()
{
    SetWidth();
    FitHeight();
}

void ATooltipExPrivate::InternalSetAdvancedWidgetWidth(QWidget *page, int width)
{
    const int room = possibleWidth(width);
    page->setFixedWidth(room);
    switch (Internal::enumProperty<ATooltipEx::EWidgetType>(page, WidgetTypeProperty)) {
    case ATooltipEx::EWidgetType::Text:
        fitText(page, room);
        break;
    case ATooltipEx::EWidgetType::Picture:
        fitPicture(page, room);
        break;
    case ATooltipEx::EWidgetType::Custom:
        break;
    }
}

void ATooltipExPrivate::ReleaseHeight()
{
    q_ptr->setMinimumHeight(0);
    q_ptr->setMaximumHeight(QWIDGETSIZE_MAX);
}

// The layouts give a page that comes to the front the room of the one before.
void ATooltipExPrivate::TurnTo(int index) const
{
    QWidget *const page = advancedWidgets->widget(index);
    const QSize size = page ? page->size() : QSize();
    advancedWidgets->setCurrentIndex(index);
    if (page)
        page->resize(size);
}

// A page that was never given a width, and a text, which may be another one now.
void ATooltipExPrivate::FitPage(QWidget &page) const
{
    const auto type = Internal::enumProperty<ATooltipEx::EWidgetType>(&page, WidgetTypeProperty);
    const bool hasWidth = page.minimumWidth() == page.maximumWidth();
    if (!hasWidth || type == ATooltipEx::EWidgetType::Text)
        q_ptr->SetAdvancedWidgetWidth(&page);
}

void ATooltipExPrivate::ShowPart(QWidget *part, QLayout *room, bool visible) const
{
    QWidget *const page = visible && advancedWidgets ? advancedWidgets->currentWidget() : nullptr;
    if (page)
        FitPage(*page);
    // Before the layouts come to life, which would squeeze the page into what room there is.
    QSize size = page ? page->size() : QSize();
    if (page)
        advancedWidgets->setFixedSize(size);
    room->setEnabled(visible);
    part->setVisible(visible);
    if (!page)
        return;
    page->setVisible(true);
    const QMargins margins = part->layout() ? part->layout()->contentsMargins() : QMargins();
    size += QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    part->resize(size);
}

QPainterPath ATooltipExPrivate::Outline() const
{
    constexpr int radius = 6;
    QPainterPath path;
    path.addRoundedRect(QRectF(q_ptr->rect().adjusted(0, 0, -1, -1)), radius, radius);
    return path;
}

QRegion ATooltipExPrivate::SeenRegion() const
{
    QBitmap seen(q_ptr->size());
    if (seen.isNull())
        return {};
    seen.clear();
    QPainter painter(&seen);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawPath(Outline());
    painter.end();
    return seen;
}

void ATooltipExPrivate::TakeShape()
{
    if (q_ptr->isVisible())
        shape.follow(*q_ptr, [this] { return SeenRegion(); });
}

ATooltipEx::ATooltipEx(QWidget *parent)
    : ATooltipEx(*new ATooltipExPrivate, parent)
{ }

ATooltipEx::ATooltipEx(ATooltipExPrivate &dd, QWidget *parent)
    : QFrame(parent)
    , d_ptr(&dd)
{
    Q_D(ATooltipEx);
    d->q_ptr = this;
    d->minWidth = width();
    d->maxWidth = width();
    setMouseTracking(true);
}

ATooltipEx::~ATooltipEx()
{
    Q_D(ATooltipEx);
    if (!d->advancedWidgets)
        return;
    disconnect(d->advancedWidgets, &QObject::destroyed, this, nullptr);
    // One without a page has not found its place in the card.
    if (!d->advancedWidgets->parent())
        delete d->advancedWidgets;
}

void ATooltipEx::ConnectTo(QObject *tooltip)
{
    const auto *const source = qobject_cast<ATooltipObject *>(tooltip);
    if (!source)
        return;
    connect(source, &ATooltipObject::SetPageIndex, this, &ATooltipEx::OnIndexChanged,
            Qt::UniqueConnection);
    connect(source, &ATooltipObject::SetKeyword, this, &ATooltipEx::OnKeywordChanged,
            Qt::UniqueConnection);
}

void ATooltipEx::DisconnectFrom(QObject *tooltip)
{
    const auto *const source = qobject_cast<ATooltipObject *>(tooltip);
    if (!source)
        return;
    disconnect(source, &ATooltipObject::SetPageIndex, this, &ATooltipEx::OnIndexChanged);
    disconnect(source, &ATooltipObject::SetKeyword, this, &ATooltipEx::OnKeywordChanged);
}

QSize ATooltipEx::FindTextLabelSize(QWidget *label, int width)
{
    const auto *const text = qobject_cast<QLabel *>(label);
    if (!text)
        return {0, 0};
    const QRect room(0, 0, width, std::numeric_limits<int>::max());
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
    return text->fontMetrics().boundingRect(room, flags, text->text()).size();
}

void ATooltipEx::SetAdvancedWidgetWidth(QWidget *page)
{
    Q_D(ATooltipEx);
    if (page && d->advancedWidgets)
        d->InternalSetAdvancedWidgetWidth(page,
                                          possibleWidth(d->maxWidth) - GetAdvancedWidgetMargins());
}

void ATooltipEx::SetMaxWidthForAllAdvancedWidgets(int width)
{
    Q_D(ATooltipEx);
    if (width <= 0)
        return;
    d->maxWidth = width;
    d->SetWidth();
    const int count = d->advancedWidgets ? d->advancedWidgets->count() : 0;
    for (int i = 0; i < count; ++i)
        SetAdvancedWidgetWidth(d->advancedWidgets->widget(i));
    if (count == 0 || !IsAdvancedWidgetVisible())
        return;
    OnAdvancedWidgetVisibilityChange(true);
    d->FitCard();
}

QStackedWidget *const &ATooltipEx::AdvancedWidgets() const
{
    return d_ptr->advancedWidgets;
}

void ATooltipEx::SetAdvancedWidget(QStackedWidget *stack)
{
    Q_D(ATooltipEx);
    if (!stack || d->advancedWidgets)
        return;
    d->advancedWidgets = stack;
    connect(stack, &QObject::destroyed, this, [d] { d->advancedWidgets = nullptr; });
    if (!stack->currentWidget())
        return;
    stack->setParent(this);
    SetAdvancedWidgetWidth(stack->currentWidget());
    AddWidgetToLayout(stack);
}

void ATooltipEx::SetAdvancedWidgetVisibility(bool visible)
{
    Q_D(ATooltipEx);
    if (!d->advancedWidgets)
        return;
    d->ReleaseHeight();
    OnAdvancedWidgetVisibilityChange(visible);
    d->FitCard();
    if (isVisible() && !visible)
        SetHeightOnAdvancedWidgetHidden(width());
}

void ATooltipEx::UpdateContent()
{
    Q_D(ATooltipEx);
    if (!d->advancedWidgets || !d->advancedWidgets->isVisible())
        return;
    OnAdvancedWidgetVisibilityChange(true);
    d->FitCard();
}

void ATooltipEx::OnIndexChanged(int index)
{
    Q_D(ATooltipEx);
    if (!d->advancedWidgets || index >= d->advancedWidgets->count())
        return;
    d->TurnTo(index);
    UpdateContent();
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is what others connect to.
void ATooltipEx::OnKeywordChanged(QString keyword)
{
    Q_D(ATooltipEx);
    if (!d->advancedWidgets)
        return;
    for (int i = 0; i < d->advancedWidgets->count(); ++i) {
        if (!d->advancedWidgets->widget(i))
            continue;
        const QString own = d->advancedWidgets->property(KeywordProperty).toString();
        if (own.compare(keyword, Qt::CaseInsensitive) == 0) {
            d->TurnTo(i);
            break;
        }
    }
    UpdateContent();
}

void ATooltipEx::showEvent(QShowEvent *event)
{
    Q_D(ATooltipEx);
    setAutoFillBackground(true);
    d->SetWidth();
    if (!d->advancedWidgets)
        d->FitHeight();
    const int count = d->advancedWidgets ? d->advancedWidgets->count() : 0;
    if (count > 1)
        OnIndexChanged((d->advancedWidgets->currentIndex() + 1) % count);
    SetAdvancedWidgetVisibility(d->visibility != EWidgetExVisibility::ExHidden);
    d->TakeShape();
    QFrame::showEvent(event);
}

void ATooltipEx::resizeEvent(QResizeEvent *event)
{
    d_func()->TakeShape();
    QFrame::resizeEvent(event);
}

void ATooltipEx::hideEvent(QHideEvent *event)
{
    Q_D(ATooltipEx);
    if (d->advancedWidgets) {
        OnAdvancedWidgetVisibilityChange(false);
        d->FitCard();
        if (isVisible())
            SetHeightOnAdvancedWidgetHidden(width());
    }
    QFrame::hideEvent(event);
}

void ATooltipEx::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_F1)
        event->accept();
    else
        QFrame::keyReleaseEvent(event);
}

void ATooltipEx::mousePressEvent(QMouseEvent *event)
{
    Q_D(ATooltipEx);
    if (d->visibility != EWidgetExVisibility::ExAlwaysShown)
        SetAdvancedWidgetVisibility(!IsAdvancedWidgetVisible());
    QFrame::mousePressEvent(event);
}

} // namespace Vela::UiBase
