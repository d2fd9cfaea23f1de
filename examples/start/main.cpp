// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "window.h"

#include <ui_base/StartUp>

#include <lumo_common_res/Styles>

#include <QApplication>
#include <QTranslator>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);

    // The look comes before the first widget: widgets read it once, when they are made.
    auto &styles = Vela::Resource::Styles::Instance();
    if (application.arguments().contains(QStringLiteral("--dark")))
        styles.SetPalette(Vela::Resource::EPalette::Dark);
    application.setPalette(styles.ApplicationPalette());
    application.setStyleSheet(styles.ApplicationStyleSheet());
    Vela::UiBase::StartUp();

    // The texts of the library; those of the host have a catalogue of their own.
    QTranslator translator;
    if (translator.load(QLocale(), QStringLiteral("lumo_ui_base"), QStringLiteral("_"),
                        QStringLiteral(":/translations")))
        QCoreApplication::installTranslator(&translator);

    Window window;
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
