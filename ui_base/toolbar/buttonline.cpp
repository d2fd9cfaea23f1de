// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/buttonline_p.h"

#include <QAbstractButton>
#include <QLayoutItem>
#include <QWidget>

#include <algorithm>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace Vela::UiBase::Internal {

namespace {

// The item of Qt asks the button for its size hint, and so its style, before it finds that the size
// is fixed.
class ButtonItem : public QWidgetItem
{
public:
    using QWidgetItem::QWidgetItem;

    QSize maximumSize() const override
    {
        const bool isFixed = wid->minimumSize() == wid->maximumSize();
        return isFixed && !alignment() && !isEmpty() ? wid->maximumSize()
                                                     : QWidgetItem::maximumSize();
    }
};

} // namespace

ButtonLine::~ButtonLine() = default;

ButtonLine *ButtonLine::of(const QWidget *panel)
{
    QLayout *const layout = panel ? panel->layout() : nullptr;
    if (!layout)
        return nullptr;
    // It is asked several times for each new button, and a dynamic_cast to a base class on the side
    // takes as long as making a small object.
    if (typeid(*layout) == typeid(ButtonRow))
        return static_cast<ButtonRow *>(layout);
    if (typeid(*layout) == typeid(ButtonColumn))
        return static_cast<ButtonColumn *>(layout);
    return nullptr;
}

ButtonLine::SettingUp::SettingUp(ButtonLine *line)
    : m_line(line)
{
    if (m_line)
        ++m_line->setups;
}

ButtonLine::SettingUp::~SettingUp()
{
    if (m_line)
        --m_line->setups;
}

ButtonLine::Resizing::Resizing(const QMap<QString, QWidget *> &panels)
{
    for (QWidget *const panel : panels) {
        if (ButtonLine *const line = of(panel)) {
            ++line->resizings;
            m_panels.append(panel);
        }
    }
}

ButtonLine::Resizing::~Resizing()
{
    for (const QPointer<QWidget> &panel : qAsConst(m_panels)) {
        ButtonLine *const line = of(panel);
        if (line && --line->resizings == 0 && line->isWaiting)
            line->place();
    }
}

template<typename Box>
ButtonLineOf<Box>::ButtonLineOf() = default;

template<typename Box>
void ButtonLineOf<Box>::insertButton(int index, QAbstractButton *button)
{
    const int place = index < 0 ? Box::count() : index;
    // A new child of a visible panel is hidden until somebody shows it.
    const bool isKeptHidden =
        button->isHidden() && button->testAttribute(Qt::WA_WState_ExplicitShowHide);
    auto *const item = new ButtonItem(button);
    button->setAttribute(Qt::WA_LaidOut);
    const bool isCounted = m_isSumValid && m_sum.isSimple;
    {
        const SettingUp guard(this);
        Box::insertItem(place, item);
        m_isBoxStale = true;
        m_firstMisplaced = std::min(m_firstMisplaced, place);
        if (isCounted)
            addToSum(*item, !isKeptHidden);
        if (!isKeptHidden && button->parentWidget()->isVisible())
            button->show();
    }
    if (!isCounted || !m_sum.isSimple)
        invalidate();
    else if (!m_isInPlace)
        placeAnew(*button->parentWidget());
}

// Buttons with more room than they need are spread over it, and a new one may just fill it: then the
// panel is not resized, which else has them placed.
template<typename Box>
void ButtonLineOf<Box>::placeAnew(QWidget &panel)
{
    if (panel.isVisible())
        Box::invalidate();
    else
        panel.setAttribute(Qt::WA_PendingResizeEvent); // comes when it is shown
}

template<typename Box>
void ButtonLineOf<Box>::removeButton(QAbstractButton *button)
{
    const int place = Box::indexOf(button);
    if (place < 0)
        return;
    bool isCounted = false;
    {
        const SettingUp guard(this);
        const std::unique_ptr<QLayoutItem> item(Box::takeAt(place));
        isCounted = m_isSumValid && takeFromSum(*item);
    }
    if (!isCounted) {
        invalidate();
        return;
    }
    m_isBoxStale = true;
    m_firstMisplaced = std::min(m_firstMisplaced, place);
    Box::update();
}

template<typename Box>
QSize ButtonLineOf<Box>::sizeHint() const
{
    return sum().isSimple ? totalSize() : upToDate().Box::sizeHint();
}

template<typename Box>
QSize ButtonLineOf<Box>::minimumSize() const
{
    return sum().isSimple ? totalSize() : upToDate().Box::minimumSize();
}

template<typename Box>
QSize ButtonLineOf<Box>::maximumSize() const
{
    return upToDate().Box::maximumSize();
}

template<typename Box>
Qt::Orientations ButtonLineOf<Box>::expandingDirections() const
{
    return sum().isSimple ? sum().expanding : upToDate().Box::expandingDirections();
}

template<typename Box>
bool ButtonLineOf<Box>::hasHeightForWidth() const
{
    return !sum().isSimple && upToDate().Box::hasHeightForWidth();
}

template<typename Box>
void ButtonLineOf<Box>::invalidate()
{
    if (setups > 0)
        return;
    m_isSumValid = false;
    m_firstMisplaced = 0;
    m_isBoxStale = false;
    Box::invalidate();
}

template<typename Box>
void ButtonLineOf<Box>::setGeometry(const QRect &rect)
{
    const QRect room = rect.marginsRemoved(Box::contentsMargins());
    const bool isFitting = fits(room);
    if (!isFitting && resizings > 0 && sum().isSimple) {
        isWaiting = true;
        return;
    }
    isWaiting = false;
    m_isInPlace = isFitting;
    if (!m_isInPlace) {
        m_firstMisplaced = 0;
        upToDate();
        Box::setGeometry(rect);
        return;
    }
    const bool isSamePlace = room.topLeft() == m_placedIn.topLeft()
        && (isHorizontal() ? room.height() == m_placedIn.height()
                           : room.width() == m_placedIn.width());
    placeFrom(isSamePlace ? m_firstMisplaced : 0, room);
    m_placedIn = room;
    m_firstMisplaced = Box::count();
    m_geometry = rect;
}

// A panel that is not seen has its new size, but is told of it only when it is shown.
template<typename Box>
void ButtonLineOf<Box>::place()
{
    setGeometry(Box::parentWidget()->contentsRect());
}

template<typename Box>
QRect ButtonLineOf<Box>::geometry() const
{
    return m_isInPlace ? m_geometry : Box::geometry();
}

// The box layout is not told of buttons while nobody asks it.
template<typename Box>
const ButtonLineOf<Box> &ButtonLineOf<Box>::upToDate() const
{
    if (std::exchange(m_isBoxStale, false))
        const_cast<ButtonLineOf *>(this)->Box::invalidate();
    return *this;
}

template<typename Box>
bool ButtonLineOf<Box>::isHorizontal() const
{
    return std::is_same_v<Box, QHBoxLayout>;
}

template<typename Box>
const ButtonLine::SSum &ButtonLineOf<Box>::sum() const
{
    if (m_isSumValid)
        return m_sum;
    m_isSumValid = true;
    m_sum = {};
    for (int i = 0; i < Box::count(); ++i) {
        addToSum(*Box::itemAt(i), !Box::itemAt(i)->isEmpty());
        m_sum.isSimple = m_sum.isSimple && Box::stretch(i) == 0;
    }
    return m_sum;
}

template<typename Box>
void ButtonLineOf<Box>::addToSum(const QLayoutItem &item, bool isSeen) const
{
    const QWidget *const widget = const_cast<QLayoutItem &>(item).widget();
    const bool isFixed = widget && widget->minimumSize() == widget->maximumSize();
    if (!isFixed || item.alignment() != Qt::Alignment()) {
        m_sum.isSimple = false;
        return;
    }
    if (!isSeen)
        return;
    const QSize size = widget->minimumSize();
    const int thickness = isHorizontal() ? size.height() : size.width();
    const Qt::Orientations expanding = widget->sizePolicy().expandingDirections();
    if (m_sum.count > 0 && (thickness != m_sum.thickness || expanding != m_sum.expanding))
        m_sum.isUniform = false;
    m_sum.length += isHorizontal() ? size.width() : size.height();
    m_sum.thickness = std::max(m_sum.thickness, thickness);
    m_sum.expanding |= expanding;
    ++m_sum.count;
}

// False when the sum has to be made anew without the item.
template<typename Box>
bool ButtonLineOf<Box>::takeFromSum(const QLayoutItem &item) const
{
    if (!m_sum.isSimple || !m_sum.isUniform || m_sum.count < 2)
        return false;
    if (item.isEmpty())
        return true;
    const QSize size = const_cast<QLayoutItem &>(item).widget()->minimumSize();
    m_sum.length -= isHorizontal() ? size.width() : size.height();
    --m_sum.count;
    return true;
}

template<typename Box>
QSize ButtonLineOf<Box>::totalSize() const
{
    const int length = m_sum.length + std::max(0, m_sum.count - 1) * Box::spacing();
    const QMargins margins = Box::contentsMargins();
    const QSize size =
        isHorizontal() ? QSize(length, m_sum.thickness) : QSize(m_sum.thickness, length);
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

template<typename Box>
bool ButtonLineOf<Box>::fits(const QRect &room) const
{
    const auto wanted = isHorizontal() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    const QWidget *const panel = Box::parentWidget();
    if (!sum().isSimple || Box::direction() != wanted || Box::alignment() != Qt::Alignment()
        || (isHorizontal() && panel && panel->isRightToLeft()))
        return false;
    const int length = m_sum.length + std::max(0, m_sum.count - 1) * Box::spacing();
    return length == (isHorizontal() ? room.width() : room.height());
}

template<typename Box>
void ButtonLineOf<Box>::placeFrom(int index, const QRect &room)
{
    int position = endOfItemBefore(index, room);
    for (int i = index; i < Box::count(); ++i) {
        QLayoutItem *const item = Box::itemAt(i);
        if (item->isEmpty())
            continue;
        const QSize size = item->widget()->minimumSize();
        const QRect place = isHorizontal()
            ? QRect(position, room.top(), size.width(), room.height())
            : QRect(room.left(), position, room.width(), size.height());
        item->setGeometry(place);
        position += (isHorizontal() ? size.width() : size.height()) + Box::spacing();
    }
}

template<typename Box>
int ButtonLineOf<Box>::endOfItemBefore(int index, const QRect &room) const
{
    for (int i = index - 1; i >= 0; --i) {
        const QLayoutItem *const item = Box::itemAt(i);
        if (item->isEmpty())
            continue;
        const QRect place = item->geometry();
        return (isHorizontal() ? place.right() : place.bottom()) + 1 + Box::spacing();
    }
    return isHorizontal() ? room.left() : room.top();
}

template class ButtonLineOf<QHBoxLayout>;
template class ButtonLineOf<QVBoxLayout>;

} // namespace Vela::UiBase::Internal
