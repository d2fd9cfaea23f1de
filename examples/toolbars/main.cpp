// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// Tool bars made of commands: a horizontal bar with plates and a grid menu, a vertical one with a
// menu, and a row of bars that come and go with the tool.
//
//     toolbars [--dark] [--shot FILE.png]

#include "shared/look.h"
#include "shared/picture.h"

#include <core/Broadcaster>
#include <ui_base/CommandBase>
#include <ui_base/CommandGroup>
#include <ui_base/DynamicCommandGroupStateProtocol>
#include <ui_base/QtUiToolkit>
#include <ui_base/ToolBar>
#include <ui_base/ToolbarManager>
#include <ui_base/ToolButton>

#include <QApplication>
#include <QCommandLineParser>
#include <QLabel>
#include <QTimer>

#include <functional>
#include <memory>

using namespace Vela::UiBase;

namespace {

using Work = std::function<void(bool checked)>;
using Group = std::shared_ptr<CommandGroup>;
using GroupStates = Tessel::Broadcaster<DynamicCommandGroupStateProtocol>;

// 1. A command is an action with an id. The name of its base group is that of the panel on which
// its button stands.
class Command : public CommandBase
{
public:
    Command(const QString &id, const QString &text, const QString &panel, Work work)
        : CommandBase(nullptr)
        , m_id(id)
        , m_work(std::move(work))
    {
        setText(text);
        setToolTip(text);
        setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_") + id));
        setBaseGroupName(panel);
    }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool checked) override
    {
        m_work(checked);
        return true;
    }

private:
    const QString m_id;
    const Work m_work;
};

Group makeGroup(const QString &name)
{
    return std::make_shared<CommandGroup>(QString(), QString(), name);
}

/// A view with its tool bars and the groups of commands on them.
class Host : public QLabel
{
public:
    Host();

    /// Chooses the tool with commands of its own and opens both menus, for a picture.
    void showAll();

private:
    std::shared_ptr<CommandBase> makeCommand(const QString &id, const QString &text,
                                             const QString &panel = {});
    std::shared_ptr<CommandBase> makeTool(const QString &id, const QString &text);
    Group makeMenu(const QString &name, const QString &text, const QString &icon,
                   const QString &panel, const QStringList &ids);
    ToolBar *addBar(Qt::ToolBarArea area);
    ToolBar *addMainBar();
    void addToolsBar();
    void addDynamicBars(ToolBar *mainBar);
    void announce(bool active);

    Group m_main = makeGroup(QStringLiteral("main"));
    Group m_tools = makeGroup(QStringLiteral("tools"));
    Group m_measuring = makeGroup(QStringLiteral("measuring"));
    Group m_display;
    Group m_mesh;
    std::shared_ptr<CommandBase> m_measure;
    GroupStates m_states;
};

Host::Host()
{
    setWindowTitle(QStringLiteral("Tool bars"));
    setAlignment(Qt::AlignCenter);
    setAutoFillBackground(true);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, colors.color(QPalette::Window).darker(125));
    setPalette(colors);
    resize(560, 330);
    addToolsBar();
    addDynamicBars(addMainBar());
}

std::shared_ptr<CommandBase> Host::makeCommand(const QString &id, const QString &text,
                                               const QString &panel)
{
    return std::make_shared<Command>(id, text, panel, [this, text](bool) { setText(text); });
}

std::shared_ptr<CommandBase> Host::makeTool(const QString &id, const QString &text)
{
    auto tool = makeCommand(id, text, QStringLiteral("tools"));
    tool->setCheckable(true);
    return tool;
}

// 2. A group in a group becomes a button with a menu of its commands: a grid, unless it is told to be
// a line.
Group Host::makeMenu(const QString &name, const QString &text, const QString &icon,
                     const QString &panel, const QStringList &ids)
{
    auto menu = std::make_shared<CommandGroup>(icon, text, name);
    menu->setBaseGroupName(panel);
    for (const QString &id : ids)
        menu->addCommand(makeCommand(id, id));
    return menu;
}

// 3. Bars keep their place at a side of their parent. Plates with round corners have no frame.
ToolBar *Host::addBar(Qt::ToolBarArea area)
{
    auto *const bar = new ToolBar(this, area);
    bar->SetBackColor(Qt::transparent);
    bar->SetRoundCorner(ToolBar::EToolBarRoundCorner::NoRoundCorners,
                        ToolBar::EToolBarRoundCorner::RoundAllCorners, 4);
    bar->SetBorder(0, {}, true);
    bar->SetOffset({14, 14});
    bar->SetEnableAutoPosition(true);
    return bar;
}

// 4. A group that was given a bar fills it when it is added. Ranks order the buttons of a panel, and
// the panels by the lowest of their buttons.
ToolBar *Host::addMainBar()
{
    const QString files = QStringLiteral("files");
    const QString history = QStringLiteral("history");
    const QString display = QStringLiteral("display");
    m_main->addCommand(makeCommand(QStringLiteral("open"), tr("Open"), files), 10);
    m_main->addCommand(makeCommand(QStringLiteral("save"), tr("Save"), files), 20);
    m_main->addCommand(makeCommand(QStringLiteral("undo"), tr("Undo"), history), 30);
    m_main->addCommand(makeCommand(QStringLiteral("redo"), tr("Redo"), history), 40);
    m_main->addCommand(makeCommand(QStringLiteral("fit"), tr("Show all"), display), 50);
    m_display = makeMenu(QStringLiteral("display"), tr("Display"), QStringLiteral("cmd_shaded"),
                         display, {"shaded", "wireframe", "points", "zoom"});
    m_display->setGridSize(2);
    m_main->addCommand(m_display, 60);

    ToolBar *const bar = addBar(Qt::BottomToolBarArea);
    bar->SetCentered(false);
    m_main->setToolbar(bar);
    bar->AddCommandGroup(m_main.get());
    return bar;
}

// 5. The checkable commands of a group exclude each other. A virtual group gives a command a panel of
// its own.
void Host::addToolsBar()
{
    m_tools->addCommand(makeTool(QStringLiteral("orbit"), tr("Orbit")), 10);
    m_tools->addCommand(makeTool(QStringLiteral("pan"), tr("Pan")), 20);
    m_mesh = makeMenu(QStringLiteral("mesh"), tr("Mesh"), QStringLiteral("cmd_smooth"),
                      QStringLiteral("tools"), {"smooth", "decimate", "subdivide"});
    m_mesh->setGrid(false);
    m_tools->addCommand(m_mesh, 30);
    m_measure = std::make_shared<Command>(QStringLiteral("measure"), tr("Measure"), QString(),
                                          [this](bool checked) { announce(checked); });
    m_measure->setCheckable(true);
    m_tools->addCommand(CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(m_measure.get(), 40,
                                                                       QStringLiteral("measure"),
                                                                       QStringLiteral("measure")),
                        40);

    ToolBar *const bar = addBar(Qt::LeftToolBarArea);
    m_tools->setToolbar(bar);
    bar->AddCommandGroup(m_tools.get());
}

// 6. This group has a bar in the row behind the main one, which is there while the group is active.
void Host::addDynamicBars(ToolBar *mainBar)
{
    m_measuring->addCommand(makeCommand(QStringLiteral("pick"), tr("Pick a vertex")));
    m_measuring->addCommand(makeCommand(QStringLiteral("select"), tr("Select a part")));
    m_measuring->addCommand(makeCommand(QStringLiteral("info"), tr("Distances")));

    auto *const manager = new ToolbarManager(mainBar);
    manager->addDynamicCommandGroup(m_measuring.get());
    m_states.addObserver(manager);
}

// 7. Whoever begins or ends a group only announces it.
void Host::announce(bool active)
{
    m_states.broadcast(active ? &DynamicCommandGroupStateProtocol::commandGroupBegan
                              : &DynamicCommandGroupStateProtocol::commandGroupEnded,
                       m_measuring.get());
}

void Host::showAll()
{
    m_measure->setChecked(true);
    for (const Group &group : {m_display, m_mesh}) {
        if (ToolButton *const button = group->toolButton())
            button->click();
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    Host host;
    host.show();
    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        host.showAll();
        QTimer::singleShot(
            500, &host, [&host, file] { QCoreApplication::exit(savePicture(host, file) ? 0 : 1); });
    }
    return QApplication::exec();
}
