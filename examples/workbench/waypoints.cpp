// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "waypoints.h"

#include <lumo_app_service/ApplicationService>

#include <algorithm>
#include <utility>
#include <vector>

namespace Workbench {
namespace {

using Sinks = std::vector<std::shared_ptr<const WaypointListener::Sink>>;

Sinks &sinks()
{
    static Sinks instance;
    return instance;
}

/// The kernel gets a list of its own, which nobody changes while waypoints come.
void tellKernel()
{
    WaypointListener::Sink shared;
    if (!sinks().empty()) {
        shared = [all = sinks()](const std::wstring &text) {
            for (const auto &sink : all)
                (*sink)(text);
        };
    }
    Vela::Services::ApplicationService::GetInstance().kernel().setWaypointSink(std::move(shared));
}

} // namespace

WaypointListener::WaypointListener(Sink sink)
    : m_sink(std::make_shared<const Sink>(std::move(sink)))
{
    sinks().push_back(m_sink);
    tellKernel();
}

WaypointListener::~WaypointListener()
{
    sinks().erase(std::remove(sinks().begin(), sinks().end(), m_sink), sinks().end());
    tellKernel();
}

} // namespace Workbench
