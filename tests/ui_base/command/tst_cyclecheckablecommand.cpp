// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/CycleCheckableCommand>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

#include <QKeySequence>
#include <QPointer>
#include <QTest>

#include <memory>

using Lumo::Test::ControllerFixture;
using Lumo::Test::TestCommand;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::CycleCheckableCommand;

namespace {

const QString className = QStringLiteral("Vela::UiBase::CycleCheckableCommand");

/// A group whose members are told by letters: in upper case enabled, and checked with a plus.
std::shared_ptr<CommandGroup> makeGroup(const QString &members)
{
    auto group = std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("Views"));
    for (const QString &member : members.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        auto *const command = new TestCommand(member.left(1).toLower());
        command->setCheckable(true);
        group->addCommand(command);
        command->setChecked(member.endsWith(QLatin1Char('+')));
        command->setEnabled(member.at(0).isUpper());
    }
    group->setEnabled(true);
    return group;
}

QString checkedOf(const CommandGroup &group)
{
    QString checked;
    for (const auto &[id, command] : group.commandBag())
        checked += command->isChecked() ? id : QString();
    return checked;
}

} // namespace

class TestCycleCheckableCommand : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void newCommandHasItsShortcut();
    void idIsTheClassNameAndTheNameOfTheGroup();
    void nextMemberIsToggled_data();
    void nextMemberIsToggled();
    void pressesStepThroughTheGroup();
    void checkedArgumentIsNotUsed();
    void nothingIsToggledWithoutAnEnabledGroup();
    void emptyGroupRefuses();
    void missingMembersArePassedOver();
    void groupMayDieFirst();
    void idOutlivesTheGroup();
    void toggledMemberMayLeaveTheGroup();
};

void TestCycleCheckableCommand::newCommandHasItsShortcut()
{
    const CycleCheckableCommand command(nullptr, QKeySequence(Qt::Key_F2), nullptr);
    QVERIFY(!command.isCheckable());
    QCOMPARE(command.shortcut(), QKeySequence(Qt::Key_F2));
}

void TestCycleCheckableCommand::idIsTheClassNameAndTheNameOfTheGroup()
{
    const auto group = makeGroup({});
    QCOMPARE(CycleCheckableCommand::className(), className);
    QCOMPARE(CycleCheckableCommand(nullptr, {}, group.get()).commandId(),
             className + QStringLiteral("Views"));
    QCOMPARE(CycleCheckableCommand(nullptr, {}, nullptr).commandId(), className);
}

void TestCycleCheckableCommand::nextMemberIsToggled_data()
{
    QTest::addColumn<QString>("members");
    QTest::addColumn<QString>("checked");
    QTest::newRow("behind the checked one") << "A+ B C"
                                            << "b";
    QTest::newRow("from the last to the first") << "A B C+"
                                                << "a";
    QTest::newRow("none checked") << "A B C"
                                  << "a";
    QTest::newRow("none checked, first disabled") << "a B C"
                                                  << "b";
    QTest::newRow("next one disabled") << "A+ b C"
                                       << "c";
    QTest::newRow("disabled up to the end") << "A B+ c"
                                            << "a";
    QTest::newRow("all disabled") << "a+ b c"
                                  << "b";
    QTest::newRow("all disabled, last checked") << "a b c+"
                                                << "a";
    QTest::newRow("all disabled, none checked") << "a b"
                                                << "a";
    QTest::newRow("checked one disabled") << "a+ B"
                                          << "b";
    QTest::newRow("only the checked one enabled") << "A+ b"
                                                  << "";
    QTest::newRow("one member") << "A"
                                << "a";
    QTest::newRow("one member, checked") << "A+"
                                         << "";
}

void TestCycleCheckableCommand::nextMemberIsToggled()
{
    QFETCH(QString, members);
    QFETCH(QString, checked);
    const auto group = makeGroup(members);
    CycleCheckableCommand command(nullptr, {}, group.get());
    QVERIFY(command.onExecute());
    QCOMPARE(checkedOf(*group), checked);
}

void TestCycleCheckableCommand::pressesStepThroughTheGroup()
{
    ControllerFixture fixture;
    const auto group = makeGroup(QStringLiteral("A B C"));
    const auto command = std::make_shared<CycleCheckableCommand>(
        fixture.controller(), QKeySequence(Qt::Key_F2), group.get());
    QWidget *const view = command->getViewQtWidget();
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view));
    QString seen;
    for (int press = 0; press < 4; ++press) {
        QTest::keyClick(view, Qt::Key_F2);
        seen += checkedOf(*group);
    }
    QCOMPARE(seen, QStringLiteral("abca"));
}

void TestCycleCheckableCommand::checkedArgumentIsNotUsed()
{
    const auto group = makeGroup(QStringLiteral("A+ B"));
    CycleCheckableCommand command(nullptr, {}, group.get());
    QVERIFY(command.onExecuteAsync(true));
    QCOMPARE(checkedOf(*group), QStringLiteral("b"));
    QVERIFY(command.onExecuteAsync(false));
    QCOMPARE(checkedOf(*group), QStringLiteral("a"));
}

void TestCycleCheckableCommand::nothingIsToggledWithoutAnEnabledGroup()
{
    QVERIFY(!CycleCheckableCommand(nullptr, {}, nullptr).onExecute());
    const auto group = makeGroup(QStringLiteral("A+ B"));
    group->setEnabled(false);
    QVERIFY(!CycleCheckableCommand(nullptr, {}, group.get()).onExecute());
    QCOMPARE(checkedOf(*group), QStringLiteral("a"));
}

void TestCycleCheckableCommand::emptyGroupRefuses()
{
    const auto group = makeGroup({});
    QVERIFY(!CycleCheckableCommand(nullptr, {}, group.get()).onExecute());
}

void TestCycleCheckableCommand::missingMembersArePassedOver()
{
    const auto group = makeGroup(QStringLiteral("A+ B"));
    const auto &bag = group->commandBag();
    group->commandBag().insert(bag.begin() + 1, {QStringLiteral("none"), nullptr});
    CycleCheckableCommand command(nullptr, {}, group.get());
    QVERIFY(command.onExecute());
    QVERIFY(group->getCommand(QStringLiteral("b"))->isChecked());
    group->commandBag().pop_back();
    group->commandBag().erase(bag.begin());
    QVERIFY(!command.onExecute());
    group->commandBag().clear();
}

void TestCycleCheckableCommand::groupMayDieFirst()
{
    auto group = makeGroup(QStringLiteral("A"));
    CycleCheckableCommand command(nullptr, {}, group.get());
    group.reset();
    QVERIFY(!command.onExecute());
}

void TestCycleCheckableCommand::idOutlivesTheGroup()
{
    ControllerFixture fixture;
    auto group = makeGroup(QStringLiteral("A"));
    group->setObjectName(QStringLiteral("Shadings"));
    QPointer<CycleCheckableCommand> command =
        new CycleCheckableCommand(fixture.controller(), {}, group.get());
    group->setObjectName(QStringLiteral("Looks"));
    fixture.controller()->addCommand(command);
    group.reset();
    QCOMPARE(command->commandId(), className + QStringLiteral("Looks"));
    fixture.controller()->removeCommand(className + QStringLiteral("Looks"));
    QVERIFY(!command);
}

void TestCycleCheckableCommand::toggledMemberMayLeaveTheGroup()
{
    const auto group = makeGroup(QStringLiteral("A+ B"));
    auto *const next = static_cast<TestCommand *>(group->getCommand(QStringLiteral("b")));
    next->work = [&group](bool) { return group->removeCommand(QStringLiteral("b")); };
    CycleCheckableCommand command(nullptr, {}, group.get());
    QVERIFY(command.onExecute());
    QVERIFY(!group->hasCommand(QStringLiteral("b")));
}

LUMO_TEST_MAIN(TestCycleCheckableCommand)
#include "tst_cyclecheckablecommand.moc"
