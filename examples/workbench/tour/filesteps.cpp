// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/savecommand.h"
#include "commands/subdividecommand.h"
#include "mainwindow.h"
#include "mesh/meshreader.h"
#include "meshdocument.h"
#include "tour/steps.h"
#include "tour/tourguide.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QWindow>

#include <algorithm>

namespace Workbench {
namespace {

QString writeFile(const QTemporaryDir &folder, const char *name, const QByteArray &contents)
{
    QFile file(folder.filePath(QLatin1String(name)));
    if (file.open(QIODevice::WriteOnly))
        file.write(contents);
    return file.fileName();
}

void refuse(TourGuide &guide, const QString &title, const QString &path)
{
    guide.begin(title);
    const MainWindow &window = guide.window();
    const int faces = guide.mesh().faces.size();
    const QString originalPath = window.document().filePath();
    guide.openAndWait(path);
    QDialog *const dialog = window.problem();
    guide.check(TourGuide::tr("a dialog tells of the problem"), dialog && guide.waitUntil([dialog] {
        return dialog->windowHandle()->isExposed();
    }));
    if (!dialog)
        return;
    const QString message = dialog->accessibleName();
    guide.check(TourGuide::tr("the message names the file"), message.startsWith(path));
    guide.check(TourGuide::tr("the message is a sentence with a reason"),
                message.endsWith(QLatin1Char('.')) && message.size() > path.size() + 10);
    guide.check(TourGuide::tr("what was open stays open"),
                guide.mesh().faces.size() == faces && window.document().filePath() == originalPath);
    guide.finishWithPicture();

    dialog->findChild<QAbstractButton *>(QStringLiteral("button1"))->click();
    guide.settle();
    guide.check(TourGuide::tr("the dialog can be closed"), !window.problem());
}

void refuseBadFiles(TourGuide &guide)
{
    const QTemporaryDir folder;
    refuse(guide, TourGuide::tr("Missing file"), folder.filePath(QStringLiteral("missing.obj")));
    refuse(guide, TourGuide::tr("Empty file"), writeFile(folder, "empty.stl", {}));
    refuse(guide, TourGuide::tr("File without faces"),
           writeFile(folder, "points.obj", "# Points only.\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"));
    refuse(guide, TourGuide::tr("Malformed file"),
           writeFile(folder, "letter.ply", "Dear reader, this is not a mesh.\n"));
    refuse(guide, TourGuide::tr("Damaged file"),
           writeFile(folder, "damaged.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 99\n"));
}

void openDuringRun(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Open during a run"));
    SubdivideCommand &command = *guide.window().commands().subdivide;
    const QImage before = guide.viewPictureAtRest();
    const int ends = guide.endsOf(command);
    command.trigger();
    guide.check(TourGuide::tr("the window is free while the command runs"), command.isRunning());
    guide.openAndWait(QStringLiteral(WORKBENCH_DATA "/teapot.obj"));
    guide.check(TourGuide::tr("the run ends"),
                guide.waitUntil([&] { return guide.endsOf(command) > ends; }));
    guide.check(TourGuide::tr("the teapot is open"),
                guide.window().document().filePath().endsWith(QLatin1String("teapot.obj")));
    guide.check(TourGuide::tr("the teapot has its 992 faces"), guide.mesh().faces.size() == 992);
    guide.checkStatus();
    guide.checkViewChanged(TourGuide::tr("the view shows another mesh"), before, 0.1, 0.9);
    guide.finishWithPicture();
}

/// Types @p path and accepts. A list of files that was still being read may select the file that is
/// open meanwhile, which then counts instead of what is typed, and must not be written over.
void nameFile(TourGuide &guide, QDialog &dialog, const QString &path)
{
    auto &files = static_cast<QFileDialog &>(dialog);
    auto *const field = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
    const auto isNamed = [&] {
        files.selectFile(path);
        field->setText(path);
        return files.selectedFiles() == QStringList(path);
    };
    const bool canSave = guide.waitUntil(isNamed);
    guide.check(TourGuide::tr("the dialog has the name that is typed"), canSave);
    if (canSave)
        dialog.accept();
    else
        dialog.reject();
}

void save(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Save"));
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("copy.obj"));
    SaveCommand &command = *guide.window().commands().save;
    guide.answerDialog([&](QDialog &dialog) {
        guide.finishWithPicture();
        nameFile(guide, dialog, path);
    });
    guide.runAndWait(command);
    guide.check(TourGuide::tr("the file holds the mesh"),
                MeshReader::read(path).mesh.faces.size() == guide.mesh().faces.size());
    guide.check(TourGuide::tr("the window shows that file"),
                guide.window().windowTitle().startsWith(QLatin1String("copy.obj")));
    guide.check(TourGuide::tr("there are no changes to save"),
                !guide.window().document().isModified());
}

} // namespace

void visitFiles(TourGuide &guide)
{
    refuseBadFiles(guide);
    openDuringRun(guide);
    save(guide);
}

} // namespace Workbench
