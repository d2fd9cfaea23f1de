// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// A window with as many commands on a tool bar as the argument says, which ends as soon as it has
// been painted.

#include "start/firstframe.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/startup.h"
#include "ui_base/toolbar/toolbar.h"

#include <QApplication>

#include <cstdlib>
#include <memory>

using namespace Vela::UiBase;

namespace {

class IdleCommand : public CommandBase
{
public:
    explicit IdleCommand(const QString &id)
        : CommandBase(nullptr)
        , m_id(id)
    { }

    const QString commandId() const override { return m_id; }
    bool onExecuteAsync(bool) override { return true; }

private:
    const QString m_id;
};

std::shared_ptr<CommandGroup> groupOf(int count)
{
    auto group = std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("Commands"));
    group->setVirtualGroup(true);
    const QIcon icon = Lumo::Bench::commandIcon();
    for (int i = 0; i < count; ++i) {
        auto *const command = new IdleCommand(QStringLiteral("Command%1").arg(i));
        command->setText(QStringLiteral("Command %1").arg(i));
        command->setIcon(icon);
        command->setBaseGroupName(QStringLiteral("tools"));
        group->addCommand(command, i + 1);
    }
    return group;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    StartUp();
    const auto group = groupOf(argc > 1 ? std::atoi(argv[1]) : 0);
    QWidget window;
    auto *const bar = new ToolBar(&window, Qt::TopToolBarArea);
    bar->AddCommandGroup(group.get());
    return Lumo::Bench::showUntilFirstFrame(window);
}
