// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace Workbench {
namespace {

class Text
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::Options)
};

/// The bunny beside the program, as in an installation, or else where it was built from.
QString defaultFile()
{
    const QDir beside(QCoreApplication::applicationDirPath());
    const QString installed = beside.filePath(QStringLiteral("data/bunny.obj"));
    return QFile::exists(installed) ? installed : QStringLiteral(WORKBENCH_DATA "/bunny.obj");
}

} // namespace

Options readOptions(const QCoreApplication &application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Text::tr("Shows a mesh and what can be done to it, and images."));
    parser.addHelpOption();
    parser.addPositionalArgument(
        QStringLiteral("FILE"),
        Text::tr(
            "The mesh to open: OBJ, STL, PLY, OFF, glTF or GLB, or an image. The bunny when left "
            "out."),
        QStringLiteral("[FILE]"));
    const QCommandLineOption tour(
        QStringLiteral("tour"),
        Text::tr("Show every command without a user, save a picture per step and report.json in "
                 "<folder>, and end; with success if all was as it should be."),
        Text::tr("folder"));
    const QCommandLineOption trace(
        QStringLiteral("trace"),
        Text::tr("Write the runs of all commands to <file>, for ui.perfetto.dev or "
                 "chrome://tracing. The tour writes one anyway."),
        Text::tr("file"));
    const QCommandLineOption dark(QStringLiteral("dark"),
                                  Text::tr("Have dark colours in this run."));
    parser.addOptions({tour, trace, dark});
    parser.process(application);

    const QStringList files = parser.positionalArguments();
    if (files.size() > 1)
        parser.showHelp(2);
    Options options;
    options.file = files.isEmpty() ? defaultFile() : files.first();
    options.tourFolder = parser.value(tour);
    options.traceFile = parser.value(trace);
    options.isDark = parser.isSet(dark);
    if (options.traceFile.isEmpty() && !options.tourFolder.isEmpty())
        options.traceFile = QDir(options.tourFolder).filePath(QStringLiteral("trace.json"));
    return options;
}

} // namespace Workbench
