// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "shared/look.h"

#include <ui_base/StartUp>

#include <lumo_common_res/Styles>

#include <QApplication>

void chooseLook(QApplication &application, bool dark)
{
    auto &styles = Vela::Resource::Styles::Instance();
    if (dark)
        styles.SetPalette(Vela::Resource::EPalette::Dark);
    application.setPalette(styles.ApplicationPalette());
    application.setStyleSheet(styles.ApplicationStyleSheet());
    Vela::UiBase::StartUp();
}
