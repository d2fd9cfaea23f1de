// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessible>
#include <QVector>

#include <dlfcn.h>

#include <algorithm>

namespace Lumo::Test {

/// Takes the place of a screen reader: hears what the accessible tree announces as long as it lives.
/// There may be one at a time.
class AccessibleEvents
{
public:
    struct SEvent
    {
        const QObject *object;
        QAccessible::Event type;
        QAccessible::State changed; ///< of a change of state, empty otherwise
    };

    AccessibleEvents()
    {
        heard().clear();
        QAccessible::installUpdateHandler(hear);
        m_isPossible = setActive(true);
    }
    ~AccessibleEvents()
    {
        setActive(false);
        QAccessible::installUpdateHandler(nullptr);
        heard().clear();
    }

    /// Whether Qt could be told that somebody listens; it announces nothing otherwise.
    bool isPossible() const { return m_isPossible; }

    /// How often @p object announced that it was expanded or collapsed.
    int expansionsOf(const QObject *object) const
    {
        const auto &events = heard();
        return int(std::count_if(events.begin(), events.end(), [object](const SEvent &event) {
            return event.object == object && event.changed.expanded;
        }));
    }

    bool hasHeard(const QObject *object, QAccessible::Event type) const
    {
        const auto &events = heard();
        return std::any_of(events.begin(), events.end(), [object, type](const SEvent &event) {
            return event.object == object && event.type == type;
        });
    }

private:
    static QVector<SEvent> &heard()
    {
        static QVector<SEvent> events;
        return events;
    }

    static void hear(QAccessibleEvent *event)
    {
        SEvent next {event->object(), event->type(), {}};
        if (event->type() == QAccessible::StateChanged)
            next.changed = static_cast<QAccessibleStateChangeEvent *>(event)->changedStates();
        heard().append(next);
    }

    // Only a plug-in of the platform may do that, by classes of which Qt installs no header.
    static bool setActive(bool active)
    {
        using Ask = void *(*)(const void *);
        using Set = void (*)(void *, bool);
        auto *const integration = static_cast<void **>(
            dlsym(RTLD_DEFAULT, "_ZN22QGuiApplicationPrivate20platform_integrationE"));
        const auto ask = reinterpret_cast<Ask>(
            dlsym(RTLD_DEFAULT, "_ZNK20QPlatformIntegration13accessibilityEv"));
        const auto set =
            reinterpret_cast<Set>(dlsym(RTLD_DEFAULT, "_ZN22QPlatformAccessibility9setActiveEb"));
        if (!integration || !ask || !set)
            return false;
        set(ask(*integration), active);
        return QAccessible::isActive() == active;
    }

    bool m_isPossible = false;

    Q_DISABLE_COPY(AccessibleEvents)
};

} // namespace Lumo::Test
