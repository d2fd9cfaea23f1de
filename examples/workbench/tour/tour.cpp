// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tour/tour.h"

#include "commandclock.h"
#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "commands/wireframecommand.h"
#include "mainwindow.h"
#include "mesh/meshoperations.h"
#include "mesh/meshtopology.h"
#include "meshdocument.h"
#include "messagebanner.h"
#include "options.h"
#include "statusline.h"
#include "tour/picture.h"
#include "tracing.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <algorithm>

namespace Workbench {
namespace {

/// Vertices minus edges plus faces: it tells how many holes and handles there are, which no command
/// here changes.
int eulerNumber(const Mesh &mesh)
{
    return mesh.positions.size() - int(MeshTopology(mesh).edges().size()) + mesh.faces.size();
}

bool areNegated(const QVector<QVector3D> &one, const QVector<QVector3D> &other)
{
    const auto isNegated = [](const QVector3D &a, const QVector3D &b) { return a == -b; };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isNegated);
}

bool areReversed(const QVector<Face> &one, const QVector<Face> &other)
{
    const auto isReversed = [](const Face &a, const Face &b) {
        return a == Face {b[0], b[2], b[1]};
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(), isReversed);
}

bool isSameMesh(const Mesh &one, const Mesh &other)
{
    return one.positions == other.positions && one.normals == other.normals
        && one.faces == other.faces;
}

QString writeFile(const QTemporaryDir &folder, const char *name, const QByteArray &contents)
{
    QFile file(folder.filePath(QLatin1String(name)));
    if (file.open(QIODevice::WriteOnly))
        file.write(contents);
    return file.fileName();
}

/// How many complete slices of each name the trace in @p path holds; nothing when it is no trace.
QHash<QString, int> slicesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    const QJsonArray events = document.isArray()
        ? document.array()
        : document.object().value(QStringLiteral("traceEvents")).toArray();
    QHash<QString, int> open;
    QHash<QString, int> complete;
    for (const QJsonValue &value : events) {
        const QString phase = value[QStringLiteral("ph")].toString().toLower();
        const QString name = value[QStringLiteral("name")].toString();
        if (phase == QLatin1String("b"))
            ++open[name];
        else if (phase == QLatin1String("e") && open[name]-- > 0)
            ++complete[name];
    }
    return complete;
}

} // namespace

Tour::Tour(MainWindow &window, const Options &options, Tracing *tracing)
    : m_window(window)
    , m_tracing(tracing)
    , m_file(options.file)
    , m_traceFile(options.traceFile)
    , m_report(options.tourFolder)
{
    connect(&window.clock(), &CommandClock::ended, this,
            [this](const Vela::UiBase::CommandBase *command) {
                ++m_ends[QString::fromLatin1(command->metaObject()->className())];
                ++m_endCount;
            });
}

Tour::~Tour() = default;

int Tour::run()
{
    m_report.note(QStringLiteral("file"), QFileInfo(m_file).fileName());
    m_report.note(QStringLiteral("platform"), QGuiApplication::platformName());
    m_report.note(QStringLiteral("devicePixelRatio"), m_window.devicePixelRatioF());
    showStart();
    openFirst();
    if (!mesh().isEmpty())
        useCommands();
    return m_report.finish() ? 0 : 1;
}

void Tour::useCommands()
{
    showMenu();
    toggleWireframe();
    flipTwice();
    smooth();
    subdivide();
    refuseBadFiles();
    openDuringRun();
    closeDuringRun();
    compareTrace();
}

void Tour::begin(const QString &title)
{
    m_report.beginStep(title);
}

void Tour::check(const QString &claim, bool holds)
{
    m_report.check(claim, holds);
}

void Tour::finishWithPicture()
{
    settle();
    m_report.savePicture(windowPicture());
}

void Tour::showStart()
{
    begin(tr("Start"));
    const auto isShown = [this] {
        return !m_window.pane().message().isEmpty()
            || (m_window.windowHandle()->isExposed() && isSettled());
    };
    check(tr("the window shows a picture or says why not"), waitUntil(isShown));
    m_report.note(QStringLiteral("graphics"), hasGraphics());
    m_emptyView = viewPicture();
    if (hasGraphics()) {
        check(tr("the background is lighter at the top"), topLight(m_emptyView) > 0.1);
    } else {
        check(tr("the view says that it needs OpenGL"),
              m_window.pane().message().contains(QLatin1String("OpenGL")));
    }
    checkStatus();
    for (const Vela::UiBase::CommandBase *command : m_window.commands().edits())
        check(tr("%1 is disabled without a mesh").arg(command->iconText()), !command->isEnabled());
    finishWithPicture();
}

void Tour::openFirst()
{
    begin(tr("Open"));
    openAndWait(m_file);
    check(tr("the mesh has faces"), !mesh().isEmpty());
    if (QFileInfo(m_file).fileName() == QLatin1String("bunny.obj")) {
        check(tr("the bunny has 1839 vertices"), mesh().positions.size() == 1839);
        check(tr("the bunny has 3674 faces"), mesh().faces.size() == 3674);
        check(tr("the bunny is closed and has no handle"), eulerNumber(mesh()) == 2);
    }
    check(tr("the title names the file"),
          m_window.windowTitle().startsWith(QFileInfo(m_file).fileName()));
    checkStatus();
    checkViewChanged(tr("the mesh fills a good part of the view"), m_emptyView, 0.1, 0.8);
    finishWithPicture();
}

void Tour::showMenu()
{
    for (QAction *title : m_window.menuBar()->actions()) {
        begin(tr("Menu %1").arg(title->iconText()));
        const QImage before = viewPicture();
        QMenu *menu = title->menu();
        m_window.menuBar()->setActiveAction(title);
        check(tr("the menu is shown"),
              waitUntil([menu] { return menu->isVisible() && menu->windowHandle()->isExposed(); }));
        checkMenu(*menu);
        finishWithPicture();

        begin(tr("Menu %1 closed").arg(title->iconText()));
        menu->close();
        settle();
        // Later steps compare with what the screen shows now.
        checkViewChanged(tr("the menu is gone from the screen"), before, 0.0, 0.0);
    }
}

void Tour::checkMenu(const QMenu &menu)
{
    for (const Vela::UiBase::CommandBase *command : m_window.commands().all()) {
        if (!menu.actions().contains(const_cast<Vela::UiBase::CommandBase *>(command)))
            continue;
        check(tr("%1 has an icon").arg(command->iconText()),
              !command->icon().pixmap(16, 16).isNull());
        check(tr("%1 can be chosen").arg(command->iconText()), command->isEnabled());
    }
}

void Tour::toggleWireframe()
{
    WireframeCommand &command = *m_window.commands().wireframe;
    begin(tr("Wireframe"));
    const QImage shaded = viewPicture();
    runAndWait(command);
    check(tr("the command is checked"), command.isChecked());
    checkViewChanged(tr("the edges are drawn"), shaded, 0.03, 0.8);
    finishWithPicture();

    begin(tr("Wireframe off"));
    runAndWait(command);
    check(tr("the command is not checked"), !command.isChecked());
    checkViewChanged(tr("the view is as it was before"), shaded, 0.0, 0.0);
    finishWithPicture();
}

void Tour::flipTwice()
{
    FlipNormalsCommand &command = *m_window.commands().flipNormals;
    begin(tr("Flip normals"));
    const QImage before = viewPicture();
    const Mesh original = mesh();
    runAndWait(command);
    check(tr("every normal is negated"), areNegated(mesh().normals, original.normals));
    check(tr("every face turns the other way"), areReversed(mesh().faces, original.faces));
    checkViewChanged(tr("the inside is seen"), before, 0.1, 0.8);
    finishWithPicture();

    begin(tr("Flip normals back"));
    runAndWait(command);
    check(tr("the mesh is as it was before"), isSameMesh(mesh(), original));
    checkViewChanged(tr("the view is as it was before"), before, 0.0, 0.0);
    finishWithPicture();
}

void Tour::smooth()
{
    begin(tr("Smooth"));
    const QImage before = viewPicture();
    const Mesh original = mesh();
    runAndWait(*m_window.commands().smooth);
    check(tr("the surface is less rough"), roughness(mesh()) < roughness(original));
    check(tr("the faces are the same"), mesh().faces == original.faces);
    checkStatus();
    checkViewChanged(tr("the surface looks different"), before, 0.005, 0.8);
    finishWithPicture();
}

void Tour::subdivide()
{
    begin(tr("Subdivide"));
    runAndWait(*m_window.commands().wireframe);
    const QImage before = viewPicture();
    const Mesh original = mesh();
    runAndWait(*m_window.commands().subdivide);
    check(tr("there are four times as many faces"),
          mesh().faces.size() == 4 * original.faces.size());
    check(tr("each edge has become a vertex"),
          mesh().positions.size() - original.positions.size()
              == int(MeshTopology(original).edges().size()));
    check(tr("the Euler number is the same"), eulerNumber(mesh()) == eulerNumber(original));
    checkStatus();
    checkViewChanged(tr("the edges are closer together"), before, 0.03, 0.8);
    finishWithPicture();
    runAndWait(*m_window.commands().wireframe);
}

void Tour::refuseBadFiles()
{
    const QTemporaryDir folder;
    refuse(tr("Missing file"), folder.filePath(QStringLiteral("missing.obj")));
    refuse(tr("Empty file"), writeFile(folder, "empty.stl", {}));
    refuse(tr("File without faces"),
           writeFile(folder, "points.obj", "# Points only.\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"));
    refuse(tr("Malformed file"),
           writeFile(folder, "letter.ply", "Dear reader, this is not a mesh.\n"));
    refuse(tr("Damaged file"),
           writeFile(folder, "damaged.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 99\n"));
}

void Tour::refuse(const QString &title, const QString &path)
{
    begin(title);
    const Mesh original = mesh();
    const QString originalPath = m_window.document().filePath();
    openAndWait(path);
    const QString message = m_window.banner().message();
    check(tr("the window shows a message"), m_window.banner().isVisible());
    check(tr("the message names the file"), message.startsWith(path));
    check(tr("the message is a sentence with a reason"),
          message.endsWith(QLatin1Char('.')) && message.size() > path.size() + 10);
    check(tr("what was open stays open"),
          isSameMesh(mesh(), original) && m_window.document().filePath() == originalPath);
    finishWithPicture();

    m_window.banner().findChild<QAbstractButton *>(QStringLiteral("dismiss"))->click();
    settle();
    check(tr("the message can be dismissed"), !m_window.banner().isVisible());
}

void Tour::openDuringRun()
{
    begin(tr("Open during a run"));
    SubdivideCommand &command = *m_window.commands().subdivide;
    const QImage before = viewPicture();
    command.trigger();
    check(tr("the window is free while the command runs"), command.isRunning());
    for (const Vela::UiBase::CommandBase *edit : m_window.commands().edits())
        check(tr("%1 is disabled meanwhile").arg(edit->iconText()), !edit->isEnabled());
    openAndWait(QStringLiteral(WORKBENCH_DATA "/teapot.obj"));
    waitUntil([this] { return m_window.clock().running() == 0; });
    settle();
    check(tr("the teapot is open"),
          m_window.document().filePath().endsWith(QLatin1String("teapot.obj")));
    check(tr("the teapot has its 992 faces"), mesh().faces.size() == 992);
    checkStatus();
    checkViewChanged(tr("the view shows another mesh"), before, 0.1, 0.9);
    finishWithPicture();
}

void Tour::closeDuringRun()
{
    begin(tr("Close during a run"));
    SubdivideCommand &command = *m_window.commands().subdivide;
    const Mesh original = mesh();
    command.trigger();
    m_window.close();
    check(tr("the run is cancelled"), command.wasCancelled());
    check(tr("the window is gone at once"), !m_window.isVisible());
    check(tr("the run ends"), waitUntil([this] { return m_window.clock().running() == 0; }));
    check(tr("its result is dropped"), isSameMesh(mesh(), original));
}

void Tour::compareTrace()
{
    begin(tr("Trace"));
    if (!m_tracing) {
        check(tr("there is a trace to compare"), false);
        return;
    }
    m_tracing->flush();
    const QHash<QString, int> slices = slicesOf(m_traceFile);
    for (const Vela::UiBase::CommandBase *command : m_window.commands().all()) {
        const QString name = command->commandId();
        check(tr("each run of %1 is a slice of the trace").arg(name),
              m_ends.value(name) > 0 && slices.value(name) == m_ends.value(name));
    }
}

bool Tour::waitUntil(const std::function<bool()> &isReached, int milliseconds)
{
    // What the screen shows changes without an event, so the condition is looked at now and then.
    QTimer pulse;
    pulse.start(20);
    const QDeadlineTimer deadline(milliseconds);
    while (!isReached()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Lets the window lay out, paint and present what changed.
void Tour::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    check(tr("the view presents what changed"), waitUntil([this] { return isSettled(); }));
}

bool Tour::isSettled() const
{
    return !hasGraphics() || !m_window.pane().view().isFrameDue();
}

bool Tour::hasGraphics() const
{
    return m_window.pane().message().isEmpty();
}

void Tour::runAndWait(Vela::UiBase::CommandBase &command)
{
    const int before = m_endCount;
    command.trigger();
    check(tr("%1 ends").arg(command.iconText()),
          waitUntil([this, before] { return m_endCount > before; }));
    check(tr("the status line names %1").arg(command.iconText()),
          m_window.statusLine().commandText().startsWith(command.iconText()));
    settle();
}

void Tour::openAndWait(const QString &path)
{
    const QString name = OpenCommand::className();
    const int before = m_ends.value(name);
    m_window.openFile(path);
    check(tr("Open ends"), waitUntil([this, name, before] { return m_ends.value(name) > before; }));
    settle();
}

QImage Tour::windowPicture() const
{
    return m_window.screen()->grabWindow(m_window.winId()).toImage();
}

QImage Tour::viewPicture() const
{
    const QImage picture = windowPicture();
    const ViewPane &pane = m_window.pane();
    const QRectF place(pane.mapTo(&m_window, QPoint(0, 0)), QSizeF(pane.size()));
    const qreal ratio = picture.devicePixelRatio();
    return picture.copy(QRectF(place.topLeft() * ratio, place.size() * ratio).toAlignedRect());
}

void Tour::checkViewChanged(const QString &claim, const QImage &before, double lowest,
                            double highest)
{
    if (!hasGraphics())
        return;
    const auto isChanged = [&] {
        const double share = changedShare(before, viewPicture());
        return share >= lowest && share <= highest;
    };
    check(claim, waitUntil(isChanged, 10'000));
}

void Tour::checkStatus()
{
    const QLocale locale;
    const QString text = m_window.statusLine().meshText();
    check(tr("the status line tells the size of the mesh"),
          mesh().isEmpty() ? text == QLatin1String("No mesh is open")
                           : text.contains(locale.toString(mesh().positions.size()))
                  && text.contains(locale.toString(mesh().faces.size())));
}

const Mesh &Tour::mesh() const
{
    return m_window.document().mesh();
}

} // namespace Workbench
