// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QRect>
#include <QTest>
#include <QWidget>

#include <algorithm>

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

QRect placeOf(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

bool isBefore(const QWidget &one, const QWidget &other)
{
    const QRect a = placeOf(one);
    const QRect b = placeOf(other);
    if (a.bottom() < b.top() || b.bottom() < a.top())
        return a.bottom() < b.top();
    return one.isRightToLeft() ? a.right() > b.right() : a.left() < b.left();
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

QStringList missedByTab(QWidget &part)
{
    const QVector<QWidget *> stops = tabStops(*part.window());
    const auto passesOn = [&stops](const QWidget *widget) {
        return std::any_of(stops.begin(), stops.end(),
                           [widget](const QWidget *stop) { return widget->isAncestorOf(stop); });
    };
    QStringList missed;
    const auto widgets = part.findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->window() == part.window() && isForTab(*widget) && !stops.contains(widget)
            && !passesOn(widget))
            missed << nameOf(*widget);
    }
    return missed;
}

int stepsBack(const QVector<QWidget *> &stops)
{
    int count = 0;
    for (int i = 0; i < stops.size(); ++i)
        count += isBefore(*stops.at(i), *stops.at((i + 1) % stops.size())) ? 0 : 1;
    return count;
}

QStringList namesOf(const QVector<QWidget *> &widgets)
{
    QStringList names;
    for (const QWidget *widget : widgets)
        names << nameOf(*widget);
    return names;
}

} // namespace Lumo::Test
