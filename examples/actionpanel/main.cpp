// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// An action panel: large buttons at the left of a view, made of groups of commands. A group is a
// button that opens a grid; a command with settings opens its flyout from there.
//
//     actionpanel [--dark] [--open menu|flyout] [--shot FILE.png]

#include "shared/look.h"
#include "shared/picture.h"

#include <ui_base/ActionPanel>
#include <ui_base/ArrowedWindow>
#include <ui_base/CommandBag>
#include <ui_base/CommandBase>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/FlyoutCommand>
#include <ui_base/QtUiToolkit>
#include <ui_base/ToolButtonWithButtonMenu>
#include <ui_base/ToolButtonWithWidgetMenu>

#include <QApplication>
#include <QCommandLineParser>
#include <QFormLayout>
#include <QPainter>
#include <QSlider>
#include <QTimer>

using namespace Vela::UiBase;

namespace {

// 1. What the program can do. The icons are those of the library.
class ViewCommand : public CommandBase
{
public:
    ViewCommand(const QString &name, const QString &text)
        : CommandBase(nullptr)
        , m_name(name)
    {
        setObjectName(name);
        setToolTip(text);
        setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_") + name));
    }

    // Several commands have the same class.
    const QString commandId() const override { return QStringLiteral("ViewCommand") + m_name; }
    bool onExecuteAsync(bool) override { return true; }

private:
    const QString m_name;
};

// 2. One of them has settings.
class SmoothCommand : public FlyoutCommand
{
public:
    explicit SmoothCommand(FlyoutBase *flyout)
        : FlyoutCommand(flyout, nullptr)
    {
        setToolTip(tr("Smooth the surface"));
        setIcon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("cmd_smooth")));
    }

    const QString commandId() const override { return QStringLiteral("SmoothCommand"); }
    bool onExecuteAsync(bool) override { return true; }
};

FlyoutBase *makeFlyout(QWidget *window)
{
    auto *const settings = new QWidget;
    auto *const form = new QFormLayout(settings);
    for (const char *name : {"Strength", "Passes"})
        form->addRow(QString::fromLatin1(name), new QSlider(Qt::Horizontal));
    settings->setFixedSize(220, 70);
    return QtUiToolkit::Instance().CreateFlyout(QStringLiteral("Smooth"), settings, nullptr, true,
                                                true, true, false, window);
}

std::shared_ptr<CommandGroup> makeGroup(const QString &icon, const QString &text,
                                        const QStringList &names, int rank = 1)
{
    auto group = std::make_shared<CommandGroup>(icon, text, icon);
    group->setBaseGroupName(icon); // a plate for each
    for (const QString &name : names) {
        const auto command = std::make_shared<ViewCommand>(name, name);
        command->setCheckable(true);
        group->addCommand(command, rank++);
    }
    return group;
}

// 3. The panel belongs to the outermost group. A group in it becomes a button with a grid, a
// virtual one stands on the panel itself.
std::shared_ptr<CommandGroup> fill(ActionPanel *panel, SmoothCommand *smooth)
{
    auto all = std::make_shared<CommandGroup>();
    all->setToolbar(panel);
    const auto display =
        makeGroup(QStringLiteral("cmd_shaded"), QStringLiteral("Display"),
                  {QStringLiteral("shaded"), QStringLiteral("wireframe"), QStringLiteral("points"),
                   QStringLiteral("compare"), QStringLiteral("measure"), QStringLiteral("zoom")});
    display->commandBag().begin()->second->setChecked(true);
    all->addCommand(display, 1);

    const auto edit = makeGroup(
        QStringLiteral("cmd_subdivide"), QStringLiteral("Edit"),
        {QStringLiteral("subdivide"), QStringLiteral("decimate"), QStringLiteral("flip_normals")});
    edit->addCommand(smooth, 4);
    all->addCommand(edit, 2);

    const auto history = makeGroup(QStringLiteral("history"), {},
                                   {QStringLiteral("undo"), QStringLiteral("redo")}, 3);
    history->setVirtualGroup(true);
    for (const auto &[id, command] : history->commandBag()) {
        command->setCheckable(false);
        command->setBaseGroupName(QStringLiteral("history"));
    }
    panel->AddCommandGroup(all.get());
    panel->AddCommandGroup(history.get());
    all->addCommand(history, 3); // lives with the others
    return all;
}

class View : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        QLinearGradient light(0, 0, 0, height());
        light.setColorAt(0, palette().color(QPalette::Base));
        light.setColorAt(1, palette().color(QPalette::Mid));
        painter.fillRect(rect(), light);
    }
};

void openPopup(const QString &which, const CommandGroup &all, const CommandBase &smooth)
{
    if (which == QLatin1String("menu"))
        all.commandBag().begin()->second->toolButton()->click();
    else if (which == QLatin1String("flyout"))
        smooth.toolButton()->click();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("Dark palette.")});
    parser.addOption({QStringLiteral("open"), QStringLiteral("Open the <menu> or the flyout."),
                      QStringLiteral("menu")});
    parser.addOption({QStringLiteral("shot"), QStringLiteral("Save a picture and leave."),
                      QStringLiteral("file")});
    parser.process(application);
    chooseLook(application, parser.isSet(QStringLiteral("dark")));

    View window;
    window.setWindowTitle(QStringLiteral("Action panel"));
    window.resize(560, 380);
    auto *const panel = new ActionPanel(&window);
    const auto smooth = std::make_shared<SmoothCommand>(makeFlyout(&window));
    const auto all = fill(panel, smooth.get());
    window.show();
    panel->OnAutoPosition();
    openPopup(parser.value(QStringLiteral("open")), *all, *smooth);

    const QString file = parser.value(QStringLiteral("shot"));
    if (!file.isEmpty()) {
        QTimer::singleShot(300, &window, [&window, file] {
            QCoreApplication::exit(savePicture(window, file) ? 0 : 1);
        });
    }
    return QApplication::exec();
}
