// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/accessibletree.h"

#include <QAccessible>
#include <QAccessibleInterface>
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

// The parts of a control, like the field of a combo box, are named by the control itself.
void walk(QAccessibleInterface &accessible, const QString &path, const Visitor &visit)
{
    for (int i = 0; i < accessible.childCount(); ++i) {
        QAccessibleInterface *const child = accessible.child(i);
        if (!child || !child->isValid())
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

} // namespace

QStringList namelessControls(QWidget &window)
{
    QStringList nameless;
    walkControls(window, [&nameless](QAccessibleInterface &control, const QString &path) {
        if (control.text(QAccessible::Name).trimmed().isEmpty())
            nameless << path;
    });
    return nameless;
}

int controlCount(QWidget &window)
{
    int count = 0;
    walkControls(window, [&count](QAccessibleInterface &, const QString &) { ++count; });
    return count;
}

} // namespace Lumo::Test
