// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tracing.h"

#include <lumo_app_service/ApplicationService>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Workbench {
namespace {

Orrin::Core::Kernel &kernel()
{
    return Vela::Services::ApplicationService::GetInstance().kernel();
}

} // namespace

Tracing::Tracing(const QString &file)
    : m_file(file)
    , m_writer(file.toStdU16String(), L"workbench")
{
    kernel().setWaypointSink(m_writer.sink());
}

Tracing::~Tracing()
{
    kernel().setWaypointSink({});
}

QString Tracing::errorText() const
{
    if (m_writer.isOpen())
        return {};
    return QCoreApplication::translate("Workbench::Tracing", "%1 could not be written: %2.")
        .arg(m_file, QString::fromStdString(m_writer.errorText()));
}

void Tracing::flush()
{
    m_writer.flush();
}

} // namespace Workbench
