// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/messagelog.h"

#include <tessel/dispatch.h>

#include <QTime>

#include <mutex>

namespace Workbench {
namespace {

void appendLater(const std::weak_ptr<MessageLog> &log, const QString &text)
{
    const auto work = [log, text] {
        if (const auto target = log.lock())
            target->append(text);
    };
    Tessel::dispatchAsync(work, Tessel::EQualityOfService::Main);
}

/// What the message handler, a plain function, has to know. Messages come from any thread.
struct Tap
{
    std::mutex mutex;
    std::weak_ptr<MessageLog> log;
    QtMessageHandler previous = nullptr;
};

Tap &tap()
{
    static Tap instance;
    return instance;
}

void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    std::weak_ptr<MessageLog> log;
    QtMessageHandler previous = nullptr;
    {
        const std::lock_guard<std::mutex> lock(tap().mutex);
        log = tap().log;
        previous = tap().previous;
    }
    appendLater(log, text);
    if (previous)
        previous(type, context, text);
}

} // namespace

std::shared_ptr<MessageLog> MessageLog::make()
{
    std::shared_ptr<MessageLog> log(new MessageLog);
    log->m_listener = std::make_unique<WaypointListener>(
        [target = std::weak_ptr<MessageLog>(log)](const std::wstring &text) {
            appendLater(target, QString::fromStdWString(text));
        });
    return log;
}

MessageLog::~MessageLog() = default;

void MessageLog::append(const QString &text)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    for (const QString &part : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QString line = time + QLatin1String("  ") + part.trimmed();
        m_lines.append(line);
        if (m_lines.size() > largestCount)
            m_lines.removeFirst();
        Q_EMIT appended(line);
    }
}

void MessageLog::clear()
{
    m_lines.clear();
    Q_EMIT cleared();
}

MessageTap::MessageTap(const std::shared_ptr<MessageLog> &log)
{
    const std::lock_guard<std::mutex> lock(tap().mutex);
    tap().log = log;
    tap().previous = qInstallMessageHandler(handle);
}

MessageTap::~MessageTap()
{
    const std::lock_guard<std::mutex> lock(tap().mutex);
    qInstallMessageHandler(tap().previous);
    tap().log.reset();
}

} // namespace Workbench
