// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/DialogEx>

namespace Workbench {

/// What program this is and what it is made of.
class AboutDialog : public Vela::UiBase::DialogEx
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent);

private:
    static QString description();
};

} // namespace Workbench
