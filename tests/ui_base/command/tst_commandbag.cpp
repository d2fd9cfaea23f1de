// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandBag>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

using Lumo::Test::TestCommand;
using Vela::UiBase::CommandBag;
using Vela::UiBase::CommandBase;

namespace {

const QString cut = QStringLiteral("cut");
const QString copy = QStringLiteral("copy");
const QString paste = QStringLiteral("paste");

QStringList idsOf(const CommandBag &bag)
{
    QStringList ids;
    for (const auto &[id, command] : bag)
        ids << id;
    return ids;
}

CommandBag fullBag()
{
    CommandBag bag;
    for (const QString &id : {cut, copy, paste})
        bag.addCommand(new TestCommand(id));
    return bag;
}

} // namespace

class TestCommandBag : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keepsTheOrderOfAdding()
    {
        const CommandBag bag = fullBag();
        QCOMPARE(idsOf(bag), QStringList({cut, copy, paste}));
        QCOMPARE(bag[1].second->commandId(), copy);
    }

    void ownsWhatItHolds()
    {
        bool isDead = false;
        CommandBag bag;
        auto *const command = new TestCommand(cut);
        command->ended = [&isDead] { isDead = true; };
        QVERIFY(bag.addCommand(command));
        CommandBag other(bag);
        bag.clear();
        QVERIFY(!isDead);
        other.clear();
        QVERIFY(isDead);
    }

    void refusesTheSameCommandTwice()
    {
        CommandBag bag;
        const auto command = std::make_shared<TestCommand>(cut);
        QVERIFY(bag.addCommand(command));
        QVERIFY(!bag.addCommand(command));
        QVERIFY(!bag.addCommand(command.get()));
        QCOMPARE(bag.size(), std::size_t(1));
        QCOMPARE(command.use_count(), 2L);
    }

    void tellsIdsApartThatEndAlike()
    {
        const QStringList ids {cut, QStringLiteral("put"), QStringLiteral("t"), QString()};
        CommandBag bag;
        for (const QString &id : ids)
            QVERIFY(bag.addCommand(new TestCommand(id)));
        int index = 0;
        for (int i = 0; i < ids.size(); ++i) {
            QVERIFY(bag.hasCommand(ids[i], index));
            QCOMPARE(index, i);
        }
        QVERIFY(!bag.hasCommand(QStringLiteral("hut")));
    }

    void takesAnotherCommandOfTheSameId()
    {
        CommandBag bag;
        const auto first = std::make_shared<TestCommand>(cut);
        const auto second = std::make_shared<TestCommand>(cut);
        QVERIFY(bag.addCommand(first));
        QVERIFY(bag.addCommand(second));
        QCOMPARE(bag.size(), std::size_t(2));
        QCOMPARE(bag.getCommand(cut), first.get());
        QVERIFY(bag.removeCommand(cut));
        QCOMPARE(bag.getCommand(cut), second.get());
    }

    void sharesACommandThatIsOwned()
    {
        const auto command = std::make_shared<TestCommand>(cut);
        {
            CommandBag bag;
            QVERIFY(bag.addCommand(command.get()));
            QCOMPARE(command.use_count(), 2L);
        }
        QCOMPARE(command.use_count(), 1L);
    }

    void ignoresNull()
    {
        CommandBag bag;
        QVERIFY(!bag.addCommand(nullptr));
        QVERIFY(!bag.addCommand(std::shared_ptr<CommandBase>()));
        QVERIFY(bag.empty());
    }

    void findsCommandsById()
    {
        CommandBag bag = fullBag();
        CommandBase *const second = bag[1].second.get();
        QCOMPARE(bag[copy], second);
        QCOMPARE(bag.getCommand(copy), second);
        int index = -1;
        QCOMPARE(bag.getCommand(copy, index), second);
        QCOMPARE(index, 1);
        QVERIFY(bag.hasCommand(copy));
        QVERIFY(bag.hasCommand(paste, index));
        QCOMPARE(index, 2);
    }

    void findsNothingUnderAnotherId()
    {
        CommandBag bag = fullBag();
        int index = -1;
        QCOMPARE(bag[QStringLiteral("Copy")], nullptr);
        QCOMPARE(bag.getCommand(QString(), index), nullptr);
        QCOMPARE(index, 3);
        index = -1;
        QVERIFY(!bag.hasCommand(QStringLiteral("Copy"), index));
        QCOMPARE(index, 3);
        QVERIFY(!bag.hasCommand(QStringLiteral("Copy")));
    }

    void commandAtIsNullOutOfRange()
    {
        const CommandBag bag = fullBag();
        QCOMPARE(bag.commandAt(0), bag[0].second.get());
        QCOMPARE(bag.commandAt(2), bag[2].second.get());
        QCOMPARE(bag.commandAt(-1), nullptr);
        QCOMPARE(bag.commandAt(3), nullptr);
    }

    void removalKeepsTheOrderOfTheOthers()
    {
        CommandBag bag = fullBag();
        QVERIFY(bag.removeCommand(copy));
        QCOMPARE(idsOf(bag), QStringList({cut, paste}));
        QVERIFY(!bag.removeCommand(copy));
        QCOMPARE(idsOf(bag), QStringList({cut, paste}));
    }

    void commandThatEndsInItsRemovalIsOutOfTheBag()
    {
        CommandBag bag;
        auto *const command = new TestCommand(cut);
        bool wasFound = true;
        std::size_t sizeAtTheEnd = 0;
        command->ended = [&] {
            wasFound = bag.hasCommand(cut);
            sizeAtTheEnd = bag.size();
        };
        bag.addCommand(command);
        bag.addCommand(new TestCommand(copy));
        const QString &idInTheBag = bag.front().first;
        QVERIFY(bag.removeCommand(idInTheBag));
        QVERIFY(!wasFound);
        QCOMPARE(sizeAtTheEnd, std::size_t(1));
    }
};

LUMO_TEST_MAIN(TestCommandBag)
#include "tst_commandbag.moc"
