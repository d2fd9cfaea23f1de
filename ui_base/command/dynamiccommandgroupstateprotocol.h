// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/delegator.h"
#include "ui_base/uibaseexport.h"

namespace Vela::UiBase {

class CommandGroup;

/// Hears when groups of commands that are there for a while only come and go. The application
/// announces its groups through a broadcaster of its own; this library sends none by itself. All
/// operations do nothing by default, and copying or moving an observer copies no registration.
class LUMO_UI_BASE_EXPORT DynamicCommandGroupStateProtocol
{
public:
    DynamicCommandGroupStateProtocol() = default;
    DynamicCommandGroupStateProtocol(const DynamicCommandGroupStateProtocol &other) = default;
    DynamicCommandGroupStateProtocol(DynamicCommandGroupStateProtocol &&other) = default;
    virtual ~DynamicCommandGroupStateProtocol();

    DynamicCommandGroupStateProtocol &operator=(const DynamicCommandGroupStateProtocol &other) =
        default;
    DynamicCommandGroupStateProtocol &operator=(DynamicCommandGroupStateProtocol &&other) = default;

    /// The commands of @p group are offered from now on.
    virtual void commandGroupBegan(CommandGroup *group);
    /// The commands of @p group are no longer offered.
    virtual void commandGroupEnded(CommandGroup *group);
};

} // namespace Vela::UiBase

extern template class Tessel::Broadcaster<Vela::UiBase::DynamicCommandGroupStateProtocol>;
extern template class Tessel::Delegator<Vela::UiBase::DynamicCommandGroupStateProtocol>;
