// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"

namespace Vela::UiBase {

CmdsViewController::CmdsViewController() = default;

CmdsViewController::CmdsViewController(BaseView *view)
    : BaseViewController(view)
{ }

CmdsViewController::~CmdsViewController()
{
    for (const auto &[id, command] : commandBag())
        command->setViewController(nullptr);
}

std::shared_ptr<CmdsViewController> CmdsViewController::shared_from_this()
{
    return {BaseViewController::shared_from_this(), this};
}

} // namespace Vela::UiBase
