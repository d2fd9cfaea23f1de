// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

namespace Lumo::Test {

/// Runs the event loop of the main thread until @p condition holds.
/// @return false when it did not hold within a generous limit, which only a failing test reaches
template<typename Condition>
bool runLoopUntil(const Condition &condition)
{
    const QDeadlineTimer limit(20'000);
    while (!condition()) {
        if (limit.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

} // namespace Lumo::Test
