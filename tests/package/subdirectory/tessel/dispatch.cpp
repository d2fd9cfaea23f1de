// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/dispatch.h"

#include <QCoreApplication>

static int calls = 0;

int ownDispatchCalls()
{
    return calls;
}

namespace Tessel {

bool dispatchAsync(const std::function<void()> &work, EQualityOfService qos)
{
    return dispatchAsync(std::function<void()>(work), qos);
}

bool dispatchAsync(std::function<void()> &&work, EQualityOfService)
{
    ++calls;
    return QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work),
                                     Qt::QueuedConnection);
}

bool dispatchSync(const std::function<void()> &work, EQualityOfService)
{
    ++calls;
    work();
    return true;
}

} // namespace Tessel
