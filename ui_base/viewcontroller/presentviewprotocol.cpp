// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/presentviewprotocol.h"

namespace Vela::UiBase {

PresentViewProtocol::~PresentViewProtocol() = default;

bool PresentViewProtocol::presentViewController(BaseViewController *, ETransitionDirection)
{
    return false;
}

bool PresentViewProtocol::dismissViewController()
{
    return false;
}

} // namespace Vela::UiBase

template class Tessel::Broadcaster<Vela::UiBase::PresentViewProtocol>;
template class Tessel::Delegator<Vela::UiBase::PresentViewProtocol>;
