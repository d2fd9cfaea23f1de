// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace Vela::UiBase {

/// The profiler waypoints of one command class, written out once, because every run of a command
/// needs two of them.
class WaypointTexts
{
public:
    /// The texts of the class with this name, made on first use and kept for ever: there are as
    /// many as there are command classes. Any thread.
    static const WaypointTexts &ofClass(const char *className);

    explicit WaypointTexts(const char *className);

    /// Compares the text, not the pointer: that of a class out of a plugin or of a meta-object made
    /// at run time can come back with another text behind it.
    bool isOfClass(const char *className) const;

    const wchar_t *begin(bool checked) const { return m_begin[checked].c_str(); }
    const wchar_t *end(bool checked) const { return m_end[checked].c_str(); }

private:
    std::string m_className;
    std::wstring m_begin[2];
    std::wstring m_end[2];
};

} // namespace Vela::UiBase
