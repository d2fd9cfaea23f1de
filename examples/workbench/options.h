// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QCoreApplication;

namespace Workbench {

/// What the command line asks for.
struct Options
{
    QString file;        ///< the mesh to open first; the bunny when none is given
    QString tourFolder;  ///< where the tour leaves its pictures; empty for no tour
    QString traceFile;   ///< where the trace goes; empty for no trace
    bool isDark = false; ///< whether dark colours are asked for
};

/// Reads the command line of @p application. Ends the process after --help, and with a message
/// after a command line that makes no sense.
Options readOptions(const QCoreApplication &application);

} // namespace Workbench
