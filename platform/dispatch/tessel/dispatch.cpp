// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tessel/dispatch.h"

#include <QCoreApplication>
#include <QThread>
#include <QThreadPool>

namespace Tessel {

bool dispatchAsync(const std::function<void()> &work, EQualityOfService qos)
{
    return dispatchAsync(std::function<void()>(work), qos);
}

bool dispatchAsync(std::function<void()> &&work, EQualityOfService qos)
{
    if (!work || !QCoreApplication::instance())
        return false;
    if (qos == EQualityOfService::Main)
        return QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(work),
                                         Qt::QueuedConnection);
    QThreadPool::globalInstance()->start(std::move(work));
    return true;
}

bool dispatchSync(const std::function<void()> &work, EQualityOfService)
{
    if (!work || !QCoreApplication::instance())
        return false;
    if (QThread::currentThread() == QCoreApplication::instance()->thread()) {
        work();
        return true;
    }
    return QMetaObject::invokeMethod(QCoreApplication::instance(), work,
                                     Qt::BlockingQueuedConnection);
}

} // namespace Tessel
