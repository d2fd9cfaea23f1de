// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"

namespace Vela::UiBase {
namespace {

void forgetController(const CommandBag &bag)
{
    for (const auto &[id, command] : bag) {
        if (!command)
            continue;
        command->setViewController(nullptr);
        if (const auto *const group = qobject_cast<const CommandGroup *>(command.get()))
            forgetController(group->commandBag());
    }
}

} // namespace

CmdsViewController::CmdsViewController() = default;

CmdsViewController::CmdsViewController(BaseView *view)
    : BaseViewController(view)
{ }

CmdsViewController::~CmdsViewController()
{
    forgetController(commandBag());
}

std::shared_ptr<CmdsViewController> CmdsViewController::shared_from_this()
{
    return {BaseViewController::shared_from_this(), this};
}

} // namespace Vela::UiBase
