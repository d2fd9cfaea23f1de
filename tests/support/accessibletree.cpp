// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/accessibletree.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QAccessibleInterface>
#include <QAction>
#include <QKeySequence>
#include <QLabel>
#include <QMap>
#include <QMenu>
#include <QSpinBox>
#include <QWidget>

#include <functional>
#include <set>

namespace Lumo::Test {
namespace {

using Visitor = std::function<void(QAccessibleInterface &, const QString &path)>;

bool isControl(QAccessible::Role role)
{
    static const std::set<QAccessible::Role> roles {
        QAccessible::PushButton, QAccessible::ButtonMenu,   QAccessible::ButtonDropDown,
        QAccessible::CheckBox,   QAccessible::RadioButton,  QAccessible::MenuItem,
        QAccessible::ComboBox,   QAccessible::EditableText, QAccessible::Slider,
        QAccessible::SpinBox,    QAccessible::Dial,         QAccessible::List,
        QAccessible::Tree,       QAccessible::Table,        QAccessible::PageTab,
        QAccessible::Link,       QAccessible::HotkeyField,  QAccessible::ColorChooser};
    return roles.count(role) > 0;
}

QString label(const QAccessibleInterface &accessible)
{
    const QObject *const object = accessible.object();
    if (!object)
        return accessible.text(QAccessible::Name);
    const QString type = QString::fromLatin1(object->metaObject()->className());
    const QString name = object->objectName();
    return name.isEmpty() ? type : type + QLatin1Char('#') + name;
}

bool isHiddenPart(const QObject *object)
{
    const auto *const widget = qobject_cast<const QWidget *>(object);
    return widget && widget->isHidden() && !widget->isWindow();
}

// The parts of a control, like the field of a combo box, are named by the control itself.
void walk(QAccessibleInterface &accessible, const QString &path, const Visitor &visit)
{
    for (int i = 0; i < accessible.childCount(); ++i) {
        QAccessibleInterface *const child = accessible.child(i);
        if (!child || !child->isValid() || isHiddenPart(child->object()))
            continue;
        const QString childPath = path + QLatin1String(" > ") + label(*child);
        const bool isComposed =
            child->role() == QAccessible::ComboBox || child->role() == QAccessible::SpinBox;
        if (isControl(child->role()))
            visit(*child, childPath);
        if (!isComposed)
            walk(*child, childPath, visit);
    }
}

void walkControls(QWidget &window, const Visitor &visit)
{
    if (QAccessibleInterface *const root = QAccessible::queryAccessibleInterface(&window))
        walk(*root, label(*root), visit);
}

bool isNamed(const QAccessibleInterface &control)
{
    if (!control.relations(QAccessible::Label).isEmpty())
        return true;
    // Where labels are told by relations, a combo box has its present choice for a name.
    const auto *const widget = qobject_cast<const QWidget *>(control.object());
    if (control.role() == QAccessible::ComboBox && widget)
        return !widget->accessibleName().isEmpty();
    return !control.text(QAccessible::Name).trimmed().isEmpty();
}

QString faultOf(QAbstractButton &button, QAccessibleInterface &control)
{
    const QAccessible::State state = control.state();
    if (state.checkable != button.isCheckable() || state.checked != button.isChecked())
        return QStringLiteral("check");
    if (state.disabled == button.isEnabled())
        return QStringLiteral("enabled");
    const bool offersSomething =
        control.actionInterface() && !control.actionInterface()->actionNames().isEmpty();
    return offersSomething || state.disabled ? QString() : QStringLiteral("nothing to be done");
}

QString faultOf(QAction &action, QAccessibleInterface &control)
{
    const QAccessible::State state = control.state();
    if (state.checkable != action.isCheckable() || state.checked != action.isChecked())
        return QStringLiteral("check");
    return state.disabled == action.isEnabled() ? QStringLiteral("enabled") : QString();
}

QString faultOfValue(const QVariant &value, QAccessibleInterface &control)
{
    const bool isTold =
        control.valueInterface() && control.valueInterface()->currentValue() == value;
    return isTold ? QString() : QStringLiteral("value");
}

QString faultOf(QAccessibleInterface &control)
{
    QObject *const object = control.object();
    if (auto *const button = qobject_cast<QAbstractButton *>(object))
        return faultOf(*button, control);
    if (auto *const action = qobject_cast<QAction *>(object))
        return faultOf(*action, control);
    if (const auto *const slider = qobject_cast<QAbstractSlider *>(object))
        return faultOfValue(slider->value(), control);
    if (const auto *const box = qobject_cast<QSpinBox *>(object))
        return faultOfValue(box->value(), control);
    return {};
}

using Keys = QMap<QString, QStringList>;

void addKey(Keys &keys, const QString &text)
{
    const QKeySequence key = QKeySequence::mnemonic(text);
    if (!key.isEmpty())
        keys[key.toString()] << text;
}

Keys keysOfMenu(const QMenu &menu)
{
    Keys keys;
    const auto actions = menu.actions();
    for (const QAction *action : actions) {
        if (action->isVisible() && action->isEnabled())
            addKey(keys, action->text());
    }
    return keys;
}

Keys keysOfWindow(const QWidget &window)
{
    Keys keys;
    const auto widgets = window.findChildren<const QWidget *>();
    for (const QWidget *widget : widgets) {
        if (widget->window() != &window || !widget->isVisible() || !widget->isEnabled())
            continue;
        if (const auto *const button = qobject_cast<const QAbstractButton *>(widget))
            addKey(keys, button->text());
        const auto *const label = qobject_cast<const QLabel *>(widget);
        if (label && label->buddy())
            addKey(keys, label->text());
    }
    return keys;
}

} // namespace

QStringList namelessControls(QWidget &window)
{
    QStringList nameless;
    walkControls(window, [&nameless](QAccessibleInterface &control, const QString &path) {
        if (!isNamed(control))
            nameless << path;
    });
    return nameless;
}

QStringList misreadControls(QWidget &window)
{
    QStringList misread;
    walkControls(window, [&misread](QAccessibleInterface &control, const QString &path) {
        const QString fault = faultOf(control);
        if (!fault.isEmpty())
            misread << path + QLatin1String(": ") + fault;
    });
    return misread;
}

QStringList sharedMnemonics(QWidget &window)
{
    const auto *const menu = qobject_cast<const QMenu *>(&window);
    const Keys keys = menu ? keysOfMenu(*menu) : keysOfWindow(window);
    QStringList shared;
    for (const QStringList &texts : keys) {
        if (texts.size() > 1)
            shared << texts.join(QLatin1String(", "));
    }
    return shared;
}

int controlCount(QWidget &window)
{
    int count = 0;
    walkControls(window, [&count](QAccessibleInterface &, const QString &) { ++count; });
    return count;
}

} // namespace Lumo::Test
