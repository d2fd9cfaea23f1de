// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "appmanager.h"

#include "commands/attributecommand.h"
#include "commands/barscommand.h"
#include "commands/comparecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/pickcommand.h"
#include "commands/savecommand.h"
#include "commands/selectioncommand.h"
#include "commands/showallcommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/meshviewcontroller.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/logcommand.h"
#include "dialogs/messagelog.h"
#include "dialogs/preferencescommand.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/smoothflyout.h"
#include "flyouts/subdivideflyout.h"
#include "image/imageviewcontroller.h"
#include "image/openimagecommand.h"
#include "language.h"
#include "preferences.h"

#include <lumo_app_service/ApplicationService>
#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/CycleCheckableCommand>

#include <QActionGroup>
#include <QCoreApplication>
#include <QSignalBlocker>

#include <utility>

// The icons of commands and the pictures of their cards stand in a static library, from which the
// linker takes only what is asked for.
static void initResources()
{
    Q_INIT_RESOURCE(toolbar);
}

namespace Workbench {

using Vela::Services::ApplicationService;
using Vela::UiBase::CommandBase;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::CycleCheckableCommand;

namespace {

template<typename Command>
void addTo(CommandGroup &group, const std::shared_ptr<Command> &command)
{
    group.addCommand(command, int(group.groupActionGroup()->actions().size()) + 1);
}

std::shared_ptr<CommandGroup> makeGroup(const QString &name)
{
    return std::make_shared<CommandGroup>(QString(), QString(), name);
}

/// A group whose commands have their buttons side by side on a panel of the bar that it comes to.
std::shared_ptr<CommandGroup> makePanelGroup(const QString &name)
{
    auto group = makeGroup(name);
    group->setVirtualGroup(true);
    group->groupActionGroup()->setExclusive(false);
    return group;
}

template<typename Command>
void addToPanel(CommandGroup &group, const std::shared_ptr<Command> &command)
{
    command->setBaseGroupName(group.objectName());
    addTo(group, command);
}

/// Panels float over the view in windows of their own, in which its keys count as well.
void handOver(CommandBase &command, Vela::UiBase::CmdsViewController *controller)
{
    command.setViewController(controller);
    command.setShortcutContext(Qt::ApplicationShortcut);
}

} // namespace

AppManager::AppManager(const std::shared_ptr<MeshDocument> &document,
                       const std::shared_ptr<ImageDocument> &images, Chooser openChooser,
                       Chooser saveChooser, Chooser imageChooser)
    : m_log(MessageLog::make())
    , m_preferences(std::make_shared<Preferences>())
{
    initResources();
    m_commands.images = makeImageCommands(images, std::move(imageChooser));
    makeCommands(document, std::move(openChooser), std::move(saveChooser));
    makeDisplayCommands();
    makeGroups();
    ApplicationService::GetInstance().setAppManager(this);
}

AppManager::~AppManager()
{
    if (ApplicationService::GetInstance().GetAppManager() == this)
        ApplicationService::GetInstance().setAppManager(nullptr);
}

QString AppManager::applicationName() const
{
    return QCoreApplication::translate("Workbench::AppManager", "Workbench");
}

void AppManager::makeCommands(const std::shared_ptr<MeshDocument> &document, Chooser openChooser,
                              Chooser saveChooser)
{
    m_commands.open = std::make_shared<OpenCommand>(document, std::move(openChooser));
    m_commands.save = std::make_shared<SaveCommand>(document, std::move(saveChooser));
    m_commands.smooth = std::make_shared<SmoothCommand>(document);
    m_commands.subdivide = std::make_shared<SubdivideCommand>(document);
    m_commands.flipNormals = std::make_shared<FlipNormalsCommand>(document);
    for (const ESelectionChange change : {ESelectionChange::Grow, ESelectionChange::Invert,
                                          ESelectionChange::Clear, ESelectionChange::Delete})
        m_commands.selectionChanges.push_back(std::make_shared<SelectionCommand>(change, document));
    m_commands.pick = std::make_shared<PickCommand>();
    m_commands.showAll = std::make_shared<ShowAllCommand>();
    m_commands.compare = std::make_shared<CompareCommand>();
    m_commands.smoothFlyout = std::make_shared<SmoothFlyout>(document);
    m_commands.subdivideFlyout = std::make_shared<SubdivideFlyout>(document);
    m_commands.decimateFlyout = std::make_shared<DecimateFlyout>(document);
    m_commands.measureFlyout = std::make_shared<MeasureFlyout>(document);
    m_commands.bars = std::make_shared<BarsCommand>();
    m_commands.preferences = std::make_shared<PreferencesCommand>(m_preferences);
    m_commands.log = std::make_shared<LogCommand>(m_log);
    m_commands.about = std::make_shared<AboutCommand>();
}

void AppManager::makeDisplayCommands()
{
    for (const EDisplayMode mode :
         {EDisplayMode::Shaded, EDisplayMode::Flat, EDisplayMode::Wireframe, EDisplayMode::Points})
        m_commands.modes.push_back(std::make_shared<DisplayModeCommand>(mode));
    // The view begins with this mode, so there is nothing to run.
    const QSignalBlocker blocker(m_commands.modes.front().get());
    m_commands.modes.front()->setChecked(true);
    for (const EAttribute attribute :
         {EAttribute::Edges, EAttribute::Normals, EAttribute::Box, EAttribute::Axes})
        m_commands.attributes.push_back(std::make_shared<AttributeCommand>(attribute));
}

void AppManager::makeGroups()
{
    m_commands.files = makePanelGroup(QStringLiteral("1 files"));
    addToPanel(*m_commands.files, m_commands.open);
    addToPanel(*m_commands.files, m_commands.images.open);
    addToPanel(*m_commands.files, m_commands.save);

    m_commands.editing = makePanelGroup(QStringLiteral("3 editing"));
    addToPanel(*m_commands.editing, m_commands.smooth);
    addToPanel(*m_commands.editing, m_commands.subdivide);
    addToPanel(*m_commands.editing, m_commands.flipNormals);

    m_commands.flyouts = makeGroup(QStringLiteral("2 flyouts"));
    m_commands.flyouts->setVirtualGroup(true); // with its buttons side by side; one panel at a time
    addToPanel(*m_commands.flyouts, m_commands.smoothFlyout);
    addToPanel(*m_commands.flyouts, m_commands.subdivideFlyout);
    addToPanel(*m_commands.flyouts, m_commands.decimateFlyout);
    addToPanel(*m_commands.flyouts, m_commands.measureFlyout);

    m_commands.selection = makePanelGroup(QStringLiteral("selection"));
    for (const auto &change : m_commands.selectionChanges)
        addToPanel(*m_commands.selection, change);

    m_commands.program = makeGroup(QStringLiteral("program"));
    m_commands.program->groupActionGroup()->setExclusive(false);
    addTo(*m_commands.program, m_commands.preferences);
    addTo(*m_commands.program, m_commands.log);
    addTo(*m_commands.program, m_commands.about);
    makeViewingGroups();
}

void AppManager::makeViewingGroups()
{
    m_commands.display = std::make_shared<CommandGroup>(QStringLiteral("cmd_shaded"), QString(),
                                                        QStringLiteral("display"));
    m_commands.display->setBaseGroupName(QStringLiteral("1 display"));
    m_commands.display->setGrid(true);
    m_commands.display->setGridSize(2);
    for (const auto &mode : m_commands.modes)
        addTo(*m_commands.display, mode);
    m_commands.nextMode = std::make_shared<CycleCheckableCommand>(nullptr, QKeySequence(Qt::Key_M),
                                                                  m_commands.display.get());
    nameDisplayCommands();

    m_commands.drawn = makePanelGroup(QStringLiteral("2 drawn"));
    for (const auto &attribute : m_commands.attributes)
        addToPanel(*m_commands.drawn, attribute);

    m_commands.watching = makePanelGroup(QStringLiteral("3 watching"));
    addToPanel(*m_commands.watching, m_commands.pick);
    addToPanel(*m_commands.watching, m_commands.showAll);
    addToPanel(*m_commands.watching, m_commands.compare);

    m_commands.viewing = makeGroup(QStringLiteral("viewing"));
    m_commands.viewing->groupActionGroup()->setExclusive(false);
    addTo(*m_commands.viewing, m_commands.display);
    addTo(*m_commands.viewing, m_commands.drawn);
    addTo(*m_commands.viewing, m_commands.watching);
}

void AppManager::nameDisplayCommands()
{
    CommandGroup &display = *m_commands.display;
    inEveryLanguage(display, [&display] {
        display.setToolTip(
            QCoreApplication::translate("Workbench::AppManager", "How the surface is drawn"));
    });
    CommandBase &next = *m_commands.nextMode;
    inEveryLanguage(next, [&next] {
        next.setText(QCoreApplication::translate("Workbench::AppManager", "Ne&xt Display Mode"));
    });
}

QList<CommandBase *> AppManager::commands(Vela::UiBase::CmdsViewController *controller)
{
    if (qobject_cast<ImageViewController *>(controller)) {
        for (CommandBase *command : m_commands.images.ofTheView())
            handOver(*command, controller);
        return {m_commands.images.viewing.get()};
    }
    if (!qobject_cast<MeshViewController *>(controller))
        return {};
    QList<CommandBase *> groups;
    for (CommandGroup *group : m_commands.groups())
        groups.append(group);
    groups.append(m_commands.flyouts.get());
    groups.append(m_commands.program.get());
    groups.append(m_commands.nextMode.get());
    groups.append(m_commands.bars.get());
    for (CommandBase *command : m_commands.all())
        handOver(*command, controller);
    for (const CommandGroup *group : {m_commands.flyouts.get(), m_commands.program.get()}) {
        for (const auto &[id, command] : group->commandBag())
            handOver(*command, controller);
    }
    for (CommandBase *command :
         std::initializer_list<CommandBase *> {m_commands.nextMode.get(), m_commands.bars.get()})
        handOver(*command, controller);
    return groups;
}

} // namespace Workbench
