// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/testcommand.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QSemaphore>
#include <QThread>

#include <memory>

using Lumo::Test::TestCommand;
using Tessel::EQualityOfService;

namespace {

class CommandsAtExit : public testing::Test
{
protected:
    int argc = 1;
    char name[19] = "tst_commandsatexit";
    char *argv[2] = {name, nullptr};
    std::unique_ptr<QApplication> application = std::make_unique<QApplication>(argc, argv);
    QThread *diedOn = nullptr;

    std::shared_ptr<TestCommand> makeBackgroundCommand()
    {
        auto command = std::make_shared<TestCommand>(QStringLiteral("cut"));
        command->setExecutionQoS(EQualityOfService::Utility);
        command->ended = [this] { diedOn = QThread::currentThread(); };
        return command;
    }
};

TEST_F(CommandsAtExit, aRunThatTheEndCatchesAtWorkLetsGoOfItsCommandOnTheMainThread)
{
    QSemaphore started;
    auto command = makeBackgroundCommand();
    command->work = [&started](bool) {
        started.release();
        while (Tessel::dispatchAsync([] {}, EQualityOfService::Main))
            QThread::yieldCurrentThread();
        return true;
    };
    ASSERT_TRUE(command->onExecute());
    command.reset();
    started.acquire();
    application.reset();
    EXPECT_EQ(diedOn, QThread::currentThread());
}

TEST_F(CommandsAtExit, aRunWhoseEndIsDroppedLetsGoOfItsCommandOnTheMainThread)
{
    QSemaphore atWork;
    auto command = makeBackgroundCommand();
    command->work = [&atWork](bool) {
        atWork.release();
        return true;
    };
    ASSERT_TRUE(command->onExecute());
    command.reset();
    atWork.acquire();
    application.reset();
    EXPECT_EQ(diedOn, QThread::currentThread());
}

} // namespace
