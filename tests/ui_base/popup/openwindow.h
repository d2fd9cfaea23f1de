// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/arrowedwindow_p.h"

#include <QVBoxLayout>

namespace Lumo::Test {

/// A window that tells what its subclasses know.
class OpenWindow : public Vela::UiBase::ArrowedWindow
{
public:
    using ArrowedWindow::ArrowedWindow;
    using ArrowedWindow::InternalWidget;

    Vela::UiBase::ArrowedWindowPrivate &data() { return *d_ptr; }
    const QPainterPath &outline() { return d_ptr->Outline(); }
    QMargins margins() const { return layout()->contentsMargins(); }
};

} // namespace Lumo::Test
