// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "commandclock.h"
#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "commands/wireframecommand.h"
#include "mesh/meshreader.h"
#include "meshdocument.h"
#include "messagebanner.h"
#include "statusline.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>

namespace Workbench {
namespace {

/// The text of an action as a name: without the mark of its key in the menu and the dots that
/// promise a dialog.
QString nameOf(const Vela::UiBase::CommandBase &command)
{
    return command.iconText();
}

} // namespace

MainWindow::MainWindow()
    : m_document(std::make_shared<MeshDocument>())
    , m_clock(std::make_shared<CommandClock>())
    , m_banner(new MessageBanner)
    , m_pane(new ViewPane)
    , m_status(new StatusLine)
{
    setWindowTitle(tr("Workbench"));
    resize(QSize(1080, 700).boundedTo(screen()->availableSize() * 9 / 10));
    buildCommands();
    buildLayout();
    buildMenus();
    connectDocument();
    connectClock();
    updateEnabled();
}

MainWindow::~MainWindow()
{
    // The runs that are left live on without the window: they own the document they report to.
    cancelRuns();
}

void MainWindow::openFile(const QString &path)
{
    m_commands.open->open(path);
}

void MainWindow::buildCommands()
{
    m_commands.open = std::make_shared<OpenCommand>(m_document, [this] { return chooseFile(); });
    m_commands.smooth = std::make_shared<SmoothCommand>(m_document);
    m_commands.subdivide = std::make_shared<SubdivideCommand>(m_document);
    m_commands.flipNormals = std::make_shared<FlipNormalsCommand>(m_document);
    m_commands.wireframe = std::make_shared<WireframeCommand>(&m_pane->view());
    for (Vela::UiBase::CommandBase *command : m_commands.all())
        CommandClock::watch(m_clock, *command);
}

void MainWindow::buildLayout()
{
    auto *center = new QWidget(this);
    auto *column = new QVBoxLayout(center);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_banner);
    column->addWidget(m_pane, 1);
    setCentralWidget(center);
    setStatusBar(m_status);
}

void MainWindow::buildMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(m_commands.open.get());
    file->addSeparator();
    QAction *quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);

    QMenu *mesh = menuBar()->addMenu(tr("&Mesh"));
    mesh->addAction(m_commands.smooth.get());
    mesh->addAction(m_commands.subdivide.get());
    mesh->addSeparator();
    mesh->addAction(m_commands.flipNormals.get());

    QMenu *view = menuBar()->addMenu(tr("&View"));
    view->addAction(m_commands.wireframe.get());
}

void MainWindow::connectDocument()
{
    connect(m_document.get(), &MeshDocument::meshChanged, this, [this] {
        m_pane->view().setMesh(m_document->mesh());
        m_status->showMesh(m_document->mesh());
    });
    connect(m_document.get(), &MeshDocument::opened, this, &MainWindow::handleOpened);
    connect(m_document.get(), &MeshDocument::problemReported, this, [this](const QString &text) {
        m_banner->showMessage(text);
        std::fprintf(stderr, "workbench: %s\n", text.toLocal8Bit().constData());
    });
}

void MainWindow::connectClock()
{
    connect(m_clock.get(), &CommandClock::began, this, [this](const auto *command) {
        m_status->showRunning(nameOf(*command));
        updateEnabled();
    });
    connect(m_clock.get(), &CommandClock::ended, this, &MainWindow::handleEnded);
}

QString MainWindow::chooseFile()
{
    const QString endings =
        QStringLiteral("*.") + MeshReader::suffixes().join(QLatin1String(" *."));
    return QFileDialog::getOpenFileName(this, tr("Open a mesh"),
                                        QFileInfo(m_document->filePath()).path(),
                                        tr("Meshes (%1);;All files (*)").arg(endings));
}

void MainWindow::handleOpened()
{
    // What still works on the mesh of before works for nobody.
    m_commands.smooth->cancel();
    m_commands.subdivide->cancel();
    m_banner->dismiss();
    m_pane->view().frameMesh();
    setWindowTitle(tr("%1 - Workbench").arg(QFileInfo(m_document->filePath()).fileName()));
}

void MainWindow::handleEnded(Vela::UiBase::CommandBase *command, qint64 microseconds)
{
    const auto *background = qobject_cast<BackgroundCommand *>(command);
    if (background && background->wasCancelled())
        m_status->showStopped(nameOf(*command));
    else
        m_status->showFinished(nameOf(*command), microseconds);
    updateEnabled();
    if (m_isClosing && m_clock->running() == 0)
        close();
}

void MainWindow::updateEnabled()
{
    const bool isEditing = m_commands.smooth->isRunning() || m_commands.subdivide->isRunning();
    for (Vela::UiBase::CommandBase *command : m_commands.edits())
        command->setEnabled(!m_document->isEmpty() && !isEditing);
    m_commands.open->setEnabled(!m_commands.open->isRunning());
}

void MainWindow::cancelRuns()
{
    for (BackgroundCommand *command : m_commands.background())
        command->cancel();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    cancelRuns();
    m_isClosing = m_clock->running() > 0;
    if (!m_isClosing)
        return;
    hide();
    event->ignore();
}

} // namespace Workbench
