// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/startup.h"

#include "ui_base/popup/direction.h"
#include "ui_base/qtui/icontype.h"

#include <lumo_common_res/Styles>

#include <QApplication>
#include <QFile>
#include <QPointer>

namespace Vela::UiBase {
namespace {

// Images and sheets register themselves when their library is loaded; a linker that drops libraries
// nobody calls would leave it out.
void registerResources()
{
    Vela::Resource::Styles::Instance();
}

void registerMetatypes()
{
    qRegisterMetaType<EDirection>();
    qRegisterMetaType<EWidgetsAlign>();
    qRegisterMetaType<EIconType>();
}

void setStyleSheet(QApplication &application)
{
    if (!application.styleSheet().isEmpty())
        return;
    QFile file(QStringLiteral(":/qss/libuitoolkit.css"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray text = file.readAll();
    const QString sheet = QString::fromUtf8(text.constData(), text.size());
    if (!sheet.isEmpty())
        application.setStyleSheet(sheet);
}

void warnOnWayland()
{
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        qWarning("lumo_ui_base: popups cannot be placed on a native Wayland window system; "
                 "set QT_QPA_PLATFORM=xcb");
    }
}

} // namespace

void StartUp()
{
    static QPointer<QCoreApplication> startedFor;
    auto *application = qobject_cast<QApplication *>(QCoreApplication::instance());
    if (!application || application == startedFor)
        return;
    startedFor = application;
    registerResources();
    registerMetatypes();
    setStyleSheet(*application);
    warnOnWayland();
}

} // namespace Vela::UiBase
