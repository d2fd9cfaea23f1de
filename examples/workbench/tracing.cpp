// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tracing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace Workbench {

Tracing::Tracing(const QString &file)
    : m_file(file)
    , m_writer(file.toStdU16String(), L"workbench")
    , m_listener(m_writer.sink())
{ }

Tracing::~Tracing() = default;

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
