// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "closebutton.h"

#include "language.h"

#include <ui_base/QtUiToolkit>

#include <QToolButton>

namespace Workbench {

QToolButton *makeCloseButton(const std::function<QString()> &text, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(QStringLiteral("close"));
    button->setIcon(
        Vela::UiBase::QtUiToolkit::Instance().CreateIcon(QStringLiteral("sys_close_18.png")));
    button->setIconSize({18, 18});
    button->setFixedSize(24, 24);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAutoRaise(true);
    inEveryLanguage(*button, [button, text] {
        button->setToolTip(text());
        button->setAccessibleName(text());
    });
    return button;
}

} // namespace Workbench
