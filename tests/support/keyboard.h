// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QVector>

class QWidget;

namespace Lumo::Test {

/// Where Tab goes in a window: what has the focus after each press, from the widget that has it at
/// first until it comes round to a widget for the second time. The window is made the active one.
QVector<QWidget *> tabStops(QWidget &window);

/// The visible and enabled controls in @p part of a window that Tab does not get to, buttons that take
/// no focus included. Each is told by its object name, or by its class when it has none. What only
/// passes the focus on to a control in it is none itself.
QStringList missedByTab(QWidget &part);

/// How often a walk over @p stops goes against the reading direction: up, or back in a row. The last
/// one leads on to the first one, so a round in reading order goes back once, wherever it begins.
int stepsBack(const QVector<QWidget *> &stops);

/// The object names of widgets, and of one without any its class.
QStringList namesOf(const QVector<QWidget *> &widgets);

} // namespace Lumo::Test
