// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "commandclock.h"
#include "commands/attributecommand.h"
#include "commands/barscommand.h"
#include "commands/comparecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/flipnormalscommand.h"
#include "commands/meshcommand.h"
#include "commands/opencommand.h"
#include "commands/pickcommand.h"
#include "commands/savecommand.h"
#include "commands/selectioncommand.h"
#include "commands/showallcommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/meshviewcontroller.h"
#include "dialogs/changesquestion.h"
#include "dialogs/messagelog.h"
#include "dialogs/problemdialog.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/smoothflyout.h"
#include "flyouts/subdivideflyout.h"
#include "image/imagedocument.h"
#include "image/imagepage.h"
#include "image/imagereader.h"
#include "image/openimagecommand.h"
#include "language.h"
#include "menu/mainmenu.h"
#include "mesh/meshreader.h"
#include "meshdocument.h"
#include "preferences.h"
#include "statusline.h"
#include "toolbar/commandbars.h"
#include "toolbar/viewingbar.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <lumo_app_service/ApplicationService>
#include <tessel/dispatch.h>
#include <ui_base/CommandGroup>
#include <ui_base/CycleCheckableCommand>

#include <QActionGroup>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>

#include <cstdio>

namespace Workbench {
namespace {

/// With room for the panel at the left and for whatever opens beside it.
const QSize smallestSize(640, 540);

} // namespace

MainWindow::MainWindow()
    : m_document(std::make_shared<MeshDocument>())
    , m_images(std::make_shared<ImageDocument>())
    , m_clock(std::make_shared<CommandClock>())
    , m_manager(std::make_unique<AppManager>(
          m_document, m_images, [this] { return chooseFile(); }, [this] { return chooseTarget(); },
          [this] { return chooseImage(); }))
    , m_pane(new ViewPane(m_document))
    , m_imagePage(new ImagePage(m_images, commands().images))
    , m_status(new StatusLine)
    , m_menu(new MainMenu(*this, commands(), m_recent))
{
    setMinimumSize(smallestSize);
    resize(QSize(1080, 700).boundedTo(screen()->availableSize() * 9 / 10));
    m_pane->controller()->setClosingQuestion([this] { return mayLoseChanges(); });
    buildLayout();
    connectMenu();
    connectDocument();
    connectImages();
    connectClock();
    connect(&preferences(), &Preferences::changed, this, &MainWindow::applyPreferences);
    inEveryLanguage(*this, [this] { showTitle(); });
    updateEnabled();
}

MainWindow::~MainWindow()
{
    // The runs that are left live on without the window: they own the document they report to.
    cancelRuns();
    disconnect(m_clock.get(), nullptr, this, nullptr);
    disconnect(m_document.get(), nullptr, this, nullptr);
    disconnect(m_images.get(), nullptr, this, nullptr);
    disconnect(&preferences(), nullptr, this, nullptr);
    // A panel that is open ends when the window is hidden.
    for (MeshPanelCommand *command : commands().meshFlyouts())
        disconnect(command, nullptr, this, nullptr);
}

Vela::UiToolkit::TaskDialog *MainWindow::problem() const
{
    return m_problem;
}

void MainWindow::openFile(const QString &path)
{
    if (ImageReader::isImage(path))
        commands().images.open->open(path);
    else
        commands().open->open(path);
}

void MainWindow::openRecent(const QString &path)
{
    // One that has gone is offered no more; opening it tells so.
    if (!QFileInfo::exists(path))
        m_recent.remove(path);
    openFile(path);
}

void MainWindow::buildLayout()
{
    auto *center = new QWidget(this);
    auto *column = new QVBoxLayout(center);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_pane, 1);
    column->addWidget(m_imagePage, 1);
    m_imagePage->hide();
    setCentralWidget(center);
    // The panel floats over the pane, whose windows are made for that where they stand now.
    m_bars = std::make_unique<CommandBars>(commands(), m_document, m_pane, this);
    column->addWidget(&m_bars->strip());
    setStatusBar(m_status);
}

void MainWindow::connectMenu()
{
    QAction *const entry = m_menu->addPanel(*m_status);
    inEveryLanguage(*entry, [entry] { entry->setText(tr("S&tatus Line")); });
    connect(m_menu, &MainMenu::recentChosen, this, &MainWindow::openRecent);
}

void MainWindow::connectDocument()
{
    connect(m_document.get(), &MeshDocument::meshChanged, this, &MainWindow::showSizes);
    connect(m_document.get(), &MeshDocument::selectionChanged, this, &MainWindow::showSizes);
    connect(m_document.get(), &MeshDocument::selectionChanged, this, &MainWindow::updateEnabled);
    connect(m_document.get(), &MeshDocument::opened, this, &MainWindow::handleOpened);
    connect(m_document.get(), &MeshDocument::saved, this, &MainWindow::showTitle);
    connect(m_document.get(), &MeshDocument::saved, this,
            [this] { m_recent.add(m_document->filePath()); });
    connect(m_document.get(), &MeshDocument::problemReported, this, &MainWindow::tellProblem);
}

void MainWindow::connectImages()
{
    connect(m_images.get(), &ImageDocument::opened, this, &MainWindow::handleImageOpened);
    connect(m_images.get(), &ImageDocument::problemReported, this, &MainWindow::tellProblem);
    connect(m_imagePage, &ImagePage::closeRequested, this, [this] { showImage(false); });
}

void MainWindow::connectClock()
{
    for (Vela::UiBase::CommandBase *command : commands().all())
        CommandClock::watch(m_clock, *command);
    for (Vela::UiBase::CommandBase *command : commands().images.ofTheView())
        CommandClock::watch(m_clock, *command);
    for (MeshPanelCommand *command : commands().meshFlyouts()) {
        CommandClock::watch(m_clock, *command);
        connect(command, &PanelCommand::activeChanged, this, &MainWindow::updateEnabledLater);
    }
    connect(m_clock.get(), &CommandClock::began, this, [this](const auto *command) {
        m_status->showRunning(*command);
        commands().open->setEnabled(!commands().open->isRunning());
        commands().images.open->setEnabled(!commands().images.open->isRunning());
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

QString MainWindow::chooseTarget()
{
    const QFileInfo file(m_document->filePath());
    QFileDialog dialog(this, tr("Save the mesh"), file.path(), tr("OBJ meshes (*.obj)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("obj"));
    dialog.selectFile(file.completeBaseName() + QStringLiteral(".obj"));
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString MainWindow::chooseImage()
{
    const QString endings =
        QStringLiteral("*.") + ImageReader::suffixes().join(QLatin1String(" *."));
    return QFileDialog::getOpenFileName(this, tr("Open an image"),
                                        QFileInfo(m_images->filePath()).path(),
                                        tr("Images (%1);;All files (*)").arg(endings));
}

/// Whether nothing is lost by closing the view, or the user wants it so.
bool MainWindow::mayLoseChanges()
{
    if (!m_document->isModified())
        return true;
    switch (askAboutChanges(this, QFileInfo(m_document->filePath()).fileName())) {
    case EChanges::Save:
        return commands().save->saveNow();
    case EChanges::Discard:
        m_document->giveUpChanges();
        return true;
    case EChanges::Keep:
        break;
    }
    return false;
}

void MainWindow::applyPreferences()
{
    const SPreferences &values = preferences().values();
    Language::instance().choose(values.language);
    m_bars->setCardsEnabled(values.hasCards);
    commands().smooth->enableExecutionNotification(values.hasNotifications);
    commands().subdivide->enableExecutionNotification(values.hasNotifications);
    for (MeshPanelCommand *command : commands().meshFlyouts())
        command->enableExecutionNotification(values.hasNotifications);
    if (MeshView *const view = m_pane->view()) {
        Appearance appearance = view->appearance();
        appearance.background = values.background;
        view->setAppearance(appearance);
    }
}

/// The latest problem takes the place of the one before: nobody clicks through a pile of dialogs.
void MainWindow::tellProblem(const QString &text)
{
    std::fprintf(stderr, "workbench: %s\n", text.toLocal8Bit().constData());
    log()->append(text);
    delete m_problem.data();
    if (!m_isClosing)
        m_problem = showProblem(this, text);
}

void MainWindow::handleOpened()
{
    // What still works on the mesh of before works for nobody.
    commands().smooth->cancel();
    commands().subdivide->cancel();
    closePanels();
    delete m_problem.data();
    m_recent.add(m_document->filePath());
    showTitle();
    updateEnabled();
    showImage(false);
}

void MainWindow::handleImageOpened()
{
    delete m_problem.data();
    m_recent.add(m_images->filePath());
    showImage(true);
}

void MainWindow::handleEnded(Vela::UiBase::CommandBase *command, qint64 microseconds)
{
    const auto *background = qobject_cast<BackgroundCommand *>(command);
    const auto *withPanel = qobject_cast<MeshPanelCommand *>(command);
    if ((background && background->wasCancelled()) || (withPanel && withPanel->wasCancelled()))
        m_status->showStopped(*command);
    else
        m_status->showFinished(*command, microseconds);
    updateEnabledLater();
    if (m_isClosing && m_clock->running() == 0)
        close();
}

bool MainWindow::isShowingImage() const
{
    return !m_imagePage->isHidden();
}

/// Lets the image take the place of the mesh, or the other way round.
void MainWindow::showImage(bool show)
{
    // The one that comes takes the focus when it is shown.
    if (show) {
        closePanels();
        m_pane->hide();
        m_bars->strip().hide();
        m_imagePage->show();
    } else {
        m_imagePage->hide();
        m_pane->show();
        m_bars->strip().setVisible(commands().bars->isChecked());
    }
    showTitle();
    showSizes();
    updateEnabled();
}

void MainWindow::showSizes()
{
    if (isShowingImage())
        m_status->showImage(m_images->image().size());
    else
        m_status->showMesh(m_document->mesh(), m_document->selection().size());
    setWindowModified(m_document->isModified());
}

void MainWindow::showTitle()
{
    const QString file =
        QFileInfo(isShowingImage() ? m_images->filePath() : m_document->filePath()).fileName();
    const QString name = m_manager->applicationName();
    setWindowTitle(file.isEmpty() ? name : tr("%1[*] - %2").arg(file, name));
    setWindowModified(m_document->isModified());
}

void MainWindow::updateEnabled()
{
    const CommandSet &all = commands();
    // What can't be seen is not to be changed.
    const bool isMeshShown = !isShowingImage();
    const bool hasMesh = isMeshShown && !m_document->isEmpty();
    bool isEditing = all.smooth->isRunning() || all.subdivide->isRunning();
    bool hasPanel = false;
    for (const MeshPanelCommand *command : all.meshFlyouts()) {
        isEditing = isEditing || command->isRunning();
        hasPanel = hasPanel || command->isActive();
    }
    for (Vela::UiBase::CommandBase *command : all.edits())
        command->setEnabled(hasMesh && !isEditing && !hasPanel);
    for (MeshPanelCommand *command : all.meshFlyouts())
        command->setEnabled(hasMesh && (!isEditing || command->isRunning()));
    for (const auto &change : all.selectionChanges) {
        const bool isEdit = change->commandTags().contains(MeshCommand::editTag());
        change->setEnabled(hasMesh && !m_document->selection().isEmpty()
                           && !(isEdit && (isEditing || hasPanel)));
    }
    all.measureFlyout->setEnabled(hasMesh);
    for (QAction *action : std::initializer_list<QAction *> {all.save.get(), all.pick.get(),
                                                             all.showAll.get(), all.compare.get()})
        action->setEnabled(hasMesh);
    for (const auto &mode : all.modes)
        mode->setEnabled(isMeshShown);
    for (const auto &attribute : all.attributes)
        attribute->setEnabled(isMeshShown);
    all.open->setEnabled(!all.open->isRunning());
    all.images.open->setEnabled(!all.images.open->isRunning());
}

/// The context of a run that ended is about to put back what the commands looked like when it began.
/// What is true now has the last word.
void MainWindow::updateEnabledLater()
{
    const auto update = [window = QPointer<MainWindow>(this)] {
        if (window)
            window->updateEnabled();
    };
    Tessel::dispatchAsync(update, Tessel::EQualityOfService::Main);
}

/// A panel that is open belongs to the mesh of before.
void MainWindow::closePanels()
{
    for (PanelCommand *command : std::initializer_list<PanelCommand *> {
             commands().smoothFlyout.get(), commands().subdivideFlyout.get(),
             commands().decimateFlyout.get(), commands().measureFlyout.get()})
        command->onExitCommand();
}

void MainWindow::cancelRuns()
{
    for (MeshPanelCommand *command : commands().meshFlyouts())
        command->cancel();
    for (BackgroundCommand *command : commands().background())
        command->cancel();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    m_isClosing = false;
    if (!Vela::Services::ApplicationService::GetInstance().requestShutdown())
        return;
    cancelRuns();
    m_isClosing = m_clock->running() > 0;
    if (m_isClosing)
        hide();
    else if (!m_pane->controller() || m_pane->controller()->close())
        event->accept();
}

} // namespace Workbench
