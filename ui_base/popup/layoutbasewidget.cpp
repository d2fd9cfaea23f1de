// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/layoutbasewidget.h"

namespace Vela::UiBase {

LayoutBaseWidget::LayoutBaseWidget(QWidget *parent)
    : QWidget(parent)
{ }

LayoutBaseWidget::~LayoutBaseWidget() = default;

} // namespace Vela::UiBase
