// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "waypoints.h"

#include <QObject>
#include <QStringList>

#include <memory>

namespace Workbench {

/// The latest lines of what the program says: the waypoints that the commands write, and what else
/// it is given. Each line begins with the time of day. Main thread, but for the waypoints, which
/// come from any.
class MessageLog : public QObject
{
    Q_OBJECT

public:
    /// More than that nobody reads. The oldest lines go.
    static constexpr int largestCount = 2000;

    static std::shared_ptr<MessageLog> make();
    ~MessageLog() override;

    const QStringList &lines() const { return m_lines; }

    /// Appends the lines of @p text.
    void append(const QString &text);
    void clear();

Q_SIGNALS:
    void appended(const QString &line);
    void cleared();

private:
    MessageLog() = default;

    QStringList m_lines;
    std::unique_ptr<WaypointListener> m_listener;
};

/// Appends to a log what is written with qDebug() and the like, as long as it lives. Everything
/// still goes to where it went before. There is one at a time.
class MessageTap
{
public:
    explicit MessageTap(const std::shared_ptr<MessageLog> &log);
    ~MessageTap();

    MessageTap(const MessageTap &) = delete;
    MessageTap &operator=(const MessageTap &) = delete;
};

} // namespace Workbench
