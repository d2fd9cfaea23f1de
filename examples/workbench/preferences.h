// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "language.h"
#include "view/appearance.h"

#include <QObject>
#include <QString>

namespace Workbench {

/// What the user has chosen for good.
struct SPreferences
{
    ELanguage language = ELanguage::System;
    EBackground background = EBackground::Light;
    bool hasCards = true;         ///< whether the buttons of the strip explain themselves
    bool hasNotifications = true; ///< whether edits tell of themselves over the view
    bool isDark = false;          ///< whether the next start has dark colours

    bool operator==(const SPreferences &other) const
    {
        return language == other.language && background == other.background
            && hasCards == other.hasCards && hasNotifications == other.hasNotifications
            && isDark == other.isDark;
    }
};

/// The preferences in force. Main thread only.
class Preferences : public QObject
{
    Q_OBJECT

public:
    Preferences() = default;

    const SPreferences &values() const { return m_values; }
    /// Emits changed() if they are others.
    void setValues(const SPreferences &values);
    /// Makes the present values last. Emits kept().
    void keep();

Q_SIGNALS:
    void changed();
    void kept();

private:
    SPreferences m_values;
};

/// Reads the preferences of the file at @p path. What is missing there or makes no sense has its
/// default value.
SPreferences readPreferences(const QString &path);

/// Writes the preferences to the file at @p path and leaves alone what else is in it.
/// @return whether that worked
bool writePreferences(const QString &path, const SPreferences &values);

} // namespace Workbench
