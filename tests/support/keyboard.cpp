// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QWidget>

namespace Lumo::Test {
namespace {

QString nameOf(const QWidget &widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className())
                                         : widget.objectName();
}

/// A button is to be reached even where it was made to take no focus.
bool isForTab(const QWidget &widget)
{
    const bool isControl = qobject_cast<const QAbstractButton *>(&widget)
        || (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    return isControl && !widget.focusProxy() && widget.isVisible() && widget.isEnabled();
}

} // namespace

QVector<QWidget *> tabStops(QWidget &window)
{
    window.activateWindow();
    // QTest::qWaitForWindowActive() is content with one that floats over it.
    if (!QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }))
        return {};
    QVector<QWidget *> stops;
    for (;;) {
        QWidget *const from = window.focusWidget() ? window.focusWidget() : &window;
        QTest::keyClick(from, Qt::Key_Tab);
        QWidget *const stop = QApplication::focusWidget();
        if (!stop || stops.contains(stop))
            return stops;
        stops << stop;
    }
}

QStringList missedByTab(QWidget &window)
{
    const QVector<QWidget *> stops = tabStops(window);
    QStringList missed;
    const auto widgets = window.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->window() == &window && isForTab(*widget) && !stops.contains(widget))
            missed << nameOf(*widget);
    }
    return missed;
}

QStringList namesOf(const QVector<QWidget *> &widgets)
{
    QStringList names;
    for (const QWidget *widget : widgets)
        names << nameOf(*widget);
    return names;
}

} // namespace Lumo::Test
