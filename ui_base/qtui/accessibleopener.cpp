// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/accessibleopener_p.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QMetaObject>

#include <utility>

namespace Vela::UiBase::Internal {

AccessibleOpener::AccessibleOpener(QAbstractButton &button, Opens opens)
    : QAccessibleWidget(&button)
    , m_opens(std::move(opens))
{ }

void AccessibleOpener::tellState(QAbstractButton &button, bool isOpen)
{
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent expanded(&button, changed);
    QAccessible::updateAccessibility(&expanded);
    if (!isOpen)
        return;
    changed = {};
    changed.collapsed = true;
    QAccessibleStateChangeEvent collapsed(&button, changed);
    QAccessible::updateAccessibility(&collapsed);
}

QAbstractButton &AccessibleOpener::button() const
{
    return *static_cast<QAbstractButton *>(object());
}

QAccessible::Role AccessibleOpener::role() const
{
    if (const SOpened opened = m_opens(); opened.widget)
        return opened.kind == EKind::Menu ? QAccessible::ButtonMenu : QAccessible::Button;
    return button().isCheckable() ? QAccessible::CheckBox : QAccessible::Button;
}

QAccessible::State AccessibleOpener::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button().isCheckable();
    state.checked = button().isChecked();
    state.pressed = button().isDown();
    if (const SOpened opened = m_opens(); opened.widget) {
        state.hasPopup = opened.kind != EKind::Section;
        state.expandable = true;
        state.expanded = opened.widget->isVisible();
        state.collapsed = !opened.widget->isVisible();
    }
    return state;
}

QString AccessibleOpener::text(QAccessible::Text type) const
{
    if (type == QAccessible::Accelerator)
        return button().shortcut().toString(QKeySequence::NativeText);
    const QString text = QAccessibleWidget::text(type);
    const bool isUnnamed = type == QAccessible::Name && text.isEmpty();
    return isUnnamed ? QAction(button().text()).iconText() : text;
}

QString AccessibleOpener::mainAction() const
{
    if (const SOpened opened = m_opens(); opened.widget)
        return opened.kind == EKind::Menu ? showMenuAction() : pressAction();
    return button().isCheckable() ? toggleAction() : pressAction();
}

QStringList AccessibleOpener::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (button().isEnabled())
        names.prepend(mainAction());
    return names;
}

void AccessibleOpener::doAction(const QString &actionName)
{
    const bool isOurs = actionName == mainAction() || actionName == pressAction();
    if (!isOurs)
        QAccessibleWidget::doAction(actionName);
    else if (button().isEnabled())
        QMetaObject::invokeMethod(&button(), "click", Qt::QueuedConnection);
}

QStringList AccessibleOpener::keyBindingsForAction(const QString &actionName) const
{
    const QString key = text(QAccessible::Accelerator);
    if (actionName != mainAction() || key.isEmpty())
        return QAccessibleWidget::keyBindingsForAction(actionName);
    return {key};
}

QWidget *AccessibleOpener::ownMenu() const
{
    auto *const menu = qobject_cast<QMenu *>(m_opens().widget);
    return menu && menu->parent() == object() ? menu : nullptr;
}

int AccessibleOpener::childCount() const
{
    return QAccessibleWidget::childCount() + (ownMenu() ? 1 : 0);
}

QAccessibleInterface *AccessibleOpener::child(int index) const
{
    if (index != QAccessibleWidget::childCount() || !ownMenu())
        return QAccessibleWidget::child(index);
    return QAccessible::queryAccessibleInterface(ownMenu());
}

int AccessibleOpener::indexOfChild(const QAccessibleInterface *child) const
{
    if (child && ownMenu() && child->object() == ownMenu())
        return QAccessibleWidget::childCount();
    return QAccessibleWidget::indexOfChild(child);
}

} // namespace Vela::UiBase::Internal
