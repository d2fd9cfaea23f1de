// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/waypointtexts_p.h"

#include <QString>

#include <cstring>
#include <map>
#include <mutex>

namespace Vela::UiBase {
namespace {

std::wstring waypoint(const QString &format, const char *className, bool checked)
{
    const QString checkedText = checked ? QStringLiteral("true") : QStringLiteral("false");
    return format.arg(QString::fromUtf8(className), checkedText).toStdWString();
}

} // namespace

const WaypointTexts &WaypointTexts::ofClass(const char *className)
{
    // Left to the end of the process, so that a command which runs while statics die is served too.
    static auto &mutex = *new std::mutex;
    static auto &known = *new std::map<std::string, WaypointTexts>;
    const std::lock_guard<std::mutex> lock(mutex);
    return known.try_emplace(className, className).first->second;
}

WaypointTexts::WaypointTexts(const char *className)
    : m_className(className)
{
    static const QString beginFormat = QStringLiteral("CMD BEGIN %1(%2)");
    static const QString endFormat = QStringLiteral("CMD END   %1(%2)");
    for (const bool checked : {false, true}) {
        m_begin[checked] = waypoint(beginFormat, className, checked);
        m_end[checked] = waypoint(endFormat, className, checked);
    }
}

bool WaypointTexts::isOfClass(const char *className) const
{
    return std::strcmp(m_className.c_str(), className) == 0;
}

} // namespace Vela::UiBase
