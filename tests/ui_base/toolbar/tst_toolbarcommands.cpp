// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolBar>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/qtui/tooltip/tooltipmanager.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/menubutton.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QLayout>
#include <QSignalSpy>
#include <QTest>

using Lumo::Test::MenuBar;
using Lumo::Test::MenuButton;
using Lumo::Test::TestCommand;
using Vela::UiBase::CommandGroup;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;
using Vela::UiBase::TooltipManager;

namespace {

const QString tools = QStringLiteral("tools");
const QString cut = QStringLiteral("cut");
const QString copy = QStringLiteral("copy");
const QString paste = QStringLiteral("paste");

class CommandsBar : public MenuBar
{
public:
    explicit CommandsBar(QWidget *parent = nullptr)
        : MenuBar(parent, Qt::TopToolBarArea)
    { }
    using ToolBar::AddSingleCommand;
    using ToolBar::getRefParent;
    using ToolBar::RemoveSingleCommand;

    QStringList idsOn()
    {
        QStringList ids;
        for (const ToolButton *const button : opened()->CollectButtons<ToolButton>())
            ids << button->property("CMDID_PROP").toString();
        return ids;
    }
};

std::shared_ptr<CommandGroup> makeGroup(const QString &name, const QStringList &ids)
{
    auto group = std::make_shared<CommandGroup>(QString(), QString(), name);
    int rank = 0;
    for (const QString &id : ids) {
        auto *const command = new TestCommand(id);
        command->setBaseGroupName(tools);
        group->addCommand(command, ++rank);
    }
    return group;
}

std::shared_ptr<CommandGroup> makeVirtualGroup(const QStringList &ids)
{
    auto group = makeGroup(QStringLiteral("Virtual"), ids);
    group->setVirtualGroup(true);
    return group;
}

/// Hears of the first id that is written to a button before the bar does, and writes others.
class Renamer : public QObject
{
public:
    explicit Renamer(ToolButton *other)
        : m_other(other)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange || !qobject_cast<ToolButton *>(watched))
            return false;
        qApp->removeEventFilter(this);
        m_other->setProperty("CMDID_PROP", copy);
        watched->setProperty("CMDID_PROP", paste);
        return false;
    }

private:
    ToolButton *const m_other;
};

class Handler : public ToolButton::IToolButtonCallbackHandler
{
public:
    bool IsActionEnabled(QAction *) override { return answer; }
    bool answer = false;
};

} // namespace

class TestToolBarCommands : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualGroupComesToTheBar();
    void commandStandsOnABarOnce();
    void duplicateIsFoundByTheProperty();
    void idsChangedWhileOneIsWrittenCount();
    void checkableCommandChecksItsButton();
    void groupWithoutABarIsRefused();
    void groupFillsItsOwnBar();
    void groupIsNoSingleCommand();
    void barMayEndWhileItIsFilled_data();
    void barMayEndWhileItIsFilled();
    void buttonMayGoWhileItIsAdded();

    void removedCommandLeavesTheBar();
    void lastButtonGoesWithItsPanel();
    void otherButtonsStayBehindAlive();
    void buttonIsRemovedWithItsTooltipUp_data();
    void buttonIsRemovedWithItsTooltipUp();
    void removalOfAGroupTriesAll();
    void removalFindsTheButtonOfASubMenu();
    void firstOfTheButtonsWithAnIdIsRemoved_data();
    void firstOfTheButtonsWithAnIdIsRemoved();
    void removalOfWhatIsNotThereFails();
    void removedCommandCanComeBack();
    void commandMayRemoveItselfAtAClick();
    void removalClosesThePopup();
    void barMayEndWhileItIsEmptied();

    void handlerGoesToTheFirstButtonOfItsAction();
    void handlersAreAskedWhenThePointerComesIn();
    void buttonIsFoundByItsText();
    void clickedButtonIsTheOnlyOneOfItsGroup();
    void clickOnAnyButtonClearsTheGroups();
    void clickIsTold();
    void lockingLeavesSubMenusAlone();

    void openedPopupClosesTheOthers();
    void togglingAButtonWithPopupClosesTheOthers_data();
    void togglingAButtonWithPopupClosesTheOthers();
    void clickHidesABarThatWantsIt_data();
    void clickHidesABarThatWantsIt();
    void clickOutsideClosesPopupBars();
    void hidingKeepsTheOpenPopupForTheNextShow();
    void hidingForGoodForgetsTheOpenPopup();
    void popupIsReopenedByItsOwner();
    void styleSheetReachesSubMenus();
    void baseBarIsFoundThroughParentButtons();
    void parentButtonsMapIsEmpty();
    void mouseEventsOfASubMenuReachTheBaseBar();
    void copiesOfMouseEventsEndAtTheBar();
    void resizeMovesTheOpenPopup_data();
    void resizeMovesTheOpenPopup();
};

void TestToolBarCommands::virtualGroupComesToTheBar()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    group->addCommand(makeVirtualGroup({paste}));
    group->setCommandRank(cut, 5);
    QSignalSpy changed(&bar, &ToolBar::LayoutChanged);
    QVERIFY(!bar.AddCommandGroup(group.get())); // the last entry is a group
    QCOMPARE(bar.idsOn(), QStringList({cut, copy}));
    QCOMPARE(changed.count(), 2);
    const ToolButton *const button = group->getCommand(cut)->toolButton();
    QCOMPARE(button->Action(), group->getCommand(cut));
    QCOMPARE(button->objectName(), cut);
    QCOMPARE(button->parentWidget()->objectName(), tools);
    QCOMPARE(button->parentWidget()->layout()->itemAt(1)->widget(), button);
    QCOMPARE(bar.AddCommandGroup(nullptr), nullptr);
}

void TestToolBarCommands::commandStandsOnABarOnce()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    ToolButton *const last = bar.AddCommandGroup(group.get());
    QCOMPARE(last, group->getCommand(copy)->toolButton());
    const auto again = makeVirtualGroup({cut});
    ToolButton *const first = bar.AddCommandGroup(again.get());
    QCOMPARE(first, group->getCommand(cut)->toolButton());
    QCOMPARE(again->getCommand(cut)->toolButton(), nullptr);
    QCOMPARE(bar.idsOn(), QStringList({cut, copy}));
}

void TestToolBarCommands::duplicateIsFoundByTheProperty()
{
    CommandsBar bar;
    QAction action(QStringLiteral("Cut"));
    ToolButton *const button = bar.AddAction(&action, tools);
    QVERIFY(!button->property("CMDID_PROP").isValid());
    button->setProperty("CMDID_PROP", cut);
    const auto group = makeVirtualGroup({cut});
    QCOMPARE(bar.AddCommandGroup(group.get()), button);
    button->setProperty("CMDID_PROP", copy);
    QVERIFY(bar.AddCommandGroup(group.get()) != button);
    QCOMPARE(bar.idsOn(), QStringList({copy, cut}));
    button->setProperty("CMDID_PROP", QVariant());
    const auto other = makeVirtualGroup({copy});
    QVERIFY(bar.AddCommandGroup(other.get()) != button);
}

void TestToolBarCommands::idsChangedWhileOneIsWrittenCount()
{
    CommandsBar bar;
    QAction action(QStringLiteral("Copy"));
    ToolButton *const other = bar.AddAction(&action, tools);
    Renamer renamer(other);
    const auto group = makeVirtualGroup({cut});
    ToolButton *const button = bar.AddCommandGroup(group.get());
    QCOMPARE(bar.AddCommandGroup(makeVirtualGroup({copy}).get()), other);
    QCOMPARE(bar.AddCommandGroup(makeVirtualGroup({paste}).get()), button);
    const auto again = makeVirtualGroup({cut});
    QVERIFY(bar.AddCommandGroup(again.get()) != button);
}

void TestToolBarCommands::checkableCommandChecksItsButton()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    group->getCommand(cut)->setCheckable(true);
    group->getCommand(cut)->setChecked(true);
    bar.AddCommandGroup(group.get());
    QVERIFY(group->getCommand(cut)->toolButton()->isCheckable());
    QVERIFY(group->getCommand(cut)->toolButton()->isChecked());
    QVERIFY(!group->getCommand(copy)->toolButton()->isCheckable());
}

void TestToolBarCommands::groupWithoutABarIsRefused()
{
    CommandsBar bar;
    const auto group = makeGroup(QStringLiteral("Edit"), {cut});
    QCOMPARE(bar.AddCommandGroup(group.get()), nullptr);
    QVERIFY(bar.idsOn().isEmpty());
}

void TestToolBarCommands::groupFillsItsOwnBar()
{
    CommandsBar bar;
    CommandsBar subBar;
    ToolButton button(nullptr);
    const auto group = makeGroup(QStringLiteral("Edit"), {cut, copy});
    group->addCommand(makeVirtualGroup({paste}));
    group->setToolbar(&subBar);
    group->setToolButton(&button);
    QCOMPARE(bar.AddCommandGroup(group.get()), &button);
    QVERIFY(bar.idsOn().isEmpty());
    QCOMPARE(subBar.idsOn(), QStringList({cut, copy, paste}));
}

void TestToolBarCommands::groupIsNoSingleCommand()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut});
    QCOMPARE(bar.AddSingleCommand(group.get(), group.get()), nullptr);
    QCOMPARE(bar.AddSingleCommand(nullptr, group.get()), nullptr);
    QVERIFY(bar.AddSingleCommand(group->getCommand(cut), nullptr));
    QVERIFY(!bar.RemoveSingleCommand(group.get()));
    QVERIFY(!bar.RemoveSingleCommand(nullptr));
}

void TestToolBarCommands::barMayEndWhileItIsFilled_data()
{
    QTest::addColumn<bool>("isVirtual");
    QTest::newRow("by a virtual group") << true;
    QTest::newRow("by a group with this bar") << false;
}

void TestToolBarCommands::barMayEndWhileItIsFilled()
{
    QFETCH(bool, isVirtual);
    const auto group = makeGroup(QStringLiteral("Edit"), {cut, copy});
    auto bar = std::make_unique<CommandsBar>();
    group->setVirtualGroup(isVirtual);
    group->setToolbar(bar.get());
    connect(bar.get(), &ToolBar::LayoutChanged, this, [&bar] { bar.reset(); });
    QCOMPARE(bar->AddCommandGroup(group.get()), nullptr);
    QVERIFY(!bar);
    QCOMPARE(group->getCommand(cut)->toolButton(), nullptr);
}

void TestToolBarCommands::buttonMayGoWhileItIsAdded()
{
    CommandsBar bar;
    QAction action;
    const auto group = makeVirtualGroup({cut});
    connect(&bar, &ToolBar::LayoutChanged, this, [&] {
        bar.RemoveButton(&action);
        bar.RemoveCommand(group->getCommand(cut));
    });
    QCOMPARE(bar.AddAction(&action, tools), nullptr);
    QCOMPARE(bar.AddCommandGroup(group.get()), nullptr);
    QVERIFY(bar.idsOn().isEmpty());
}

void TestToolBarCommands::removedCommandLeavesTheBar()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    bar.AddCommandGroup(group.get());
    QSignalSpy changed(&bar, &ToolBar::LayoutChanged);
    QVERIFY(bar.RemoveCommand(group->getCommand(cut)));
    QCOMPARE(bar.idsOn(), QStringList({copy}));
    QCOMPARE(changed.count(), 1);
}

void TestToolBarCommands::lastButtonGoesWithItsPanel()
{
    CommandsBar bar;
    QAction action(QStringLiteral("Smooth"));
    const QPointer<ToolButton> button = bar.AddAction(&action, tools);
    const QPointer<QWidget> panel = button->parentWidget();
    QVERIFY(bar.RemoveButton(&action));
    QVERIFY(!panel);
    QVERIFY(!button);
    QVERIFY(bar.opened()->panels.isEmpty());
    QVERIFY(bar.opened()->buttonsByGroup.isEmpty());
    QCOMPARE(bar.opened()->mainLayout->count(), 1);
}

void TestToolBarCommands::otherButtonsStayBehindAlive()
{
    QWidget window;
    CommandsBar bar(&window);
    QAction first;
    QAction second;
    const QPointer<ToolButton> button = bar.AddAction(&first, tools, 3);
    ToolButton *const other = bar.AddAction(&second, tools, 4);
    window.show();
    bar.SetTooltipGroup(tools);
    QWidget *const panel = button->parentWidget();
    QVERIFY(bar.RemoveButton(&first));
    QVERIFY(button);
    QCOMPARE(button->parentWidget(), panel);
    QVERIFY(!button->isHidden());
    QCOMPARE(panel->layout()->count(), 1);
    QCOMPARE(bar.opened()->buttonRanks.value(button), 3);
    QCOMPARE(other->parentWidget(), panel);
    // Its rank still counts, which is why a lower one finds no place in front of the other.
    QAction third;
    bar.AddAction(&third, tools, 2);
    QCOMPARE(panel->layout()->itemAt(0)->widget(), other);
    delete button;
    QCOMPARE(bar.opened()->buttonRanks.size(), 2);
}

void TestToolBarCommands::buttonIsRemovedWithItsTooltipUp_data()
{
    QTest::addColumn<bool>("isLast");
    QTest::newRow("goes with its panel") << true;
    QTest::newRow("stays behind") << false;
}

void TestToolBarCommands::buttonIsRemovedWithItsTooltipUp()
{
    QFETCH(bool, isLast);
    QWidget window;
    window.resize(300, 300);
    CommandsBar bar(&window);
    bar.SetTooltipGroup(tools);
    QAction first(QStringLiteral("Cut"));
    QAction second(QStringLiteral("Copy"));
    const QPointer<ToolButton> button = bar.AddAction(&first, tools);
    if (!isLast)
        bar.AddAction(&second, tools);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCursor::setPos(button->mapToGlobal(button->rect().center()));
    QTRY_VERIFY(button->GetTooltipObject()->IsVisible());
    const QPointer<QWidget> card = button->GetTooltipObject()->TooltipControl();
    QVERIFY(card && card->isVisible());
    QVERIFY(bar.RemoveButton(&first));
    QCOMPARE(button.isNull(), isLast);
    QCOMPARE(card.isNull(), isLast);
    QCursor::setPos(window.mapToGlobal(QPoint(290, 290)));
    QTRY_VERIFY(!card || !card->isVisible());
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(nullptr, tools);
}

void TestToolBarCommands::removalOfAGroupTriesAll()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    const auto more = makeVirtualGroup({paste, copy});
    bar.AddCommandGroup(group.get());
    QVERIFY(!bar.RemoveCommand(more.get()));
    QCOMPARE(bar.idsOn(), QStringList({cut}));
    QVERIFY(bar.RemoveCommand(makeVirtualGroup({}).get()));
    QVERIFY(bar.RemoveCommand(makeVirtualGroup({cut}).get()));
    QVERIFY(bar.idsOn().isEmpty());
}

void TestToolBarCommands::removalFindsTheButtonOfASubMenu()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    const auto *const owner = new MenuButton(&bar, subBar);
    QVERIFY(owner);
    const auto group = makeVirtualGroup({cut});
    subBar->AddCommandGroup(group.get());
    QVERIFY(bar.RemoveCommand(group->getCommand(cut)));
    QVERIFY(subBar->idsOn().isEmpty());
    const auto direct = makeVirtualGroup({copy});
    bar.AddCommandGroup(direct.get());
    QVERIFY(subBar->RemoveCommand(direct->getCommand(copy)));
}

void TestToolBarCommands::firstOfTheButtonsWithAnIdIsRemoved_data()
{
    QTest::addColumn<QString>("secondGroup");
    QTest::newRow("of a group by the order of adding") << tools;
    QTest::newRow("by the names of the groups") << QStringLiteral("a group before");
}

void TestToolBarCommands::firstOfTheButtonsWithAnIdIsRemoved()
{
    QFETCH(QString, secondGroup);
    CommandsBar bar;
    QAction actions[3];
    QList<ToolButton *> buttons;
    for (QAction &action : actions)
        buttons << bar.AddAction(&action, buttons.size() == 1 ? secondGroup : tools);
    for (ToolButton *const button : qAsConst(buttons))
        button->setProperty("CMDID_PROP", cut);
    ToolButton *const first = buttons[secondGroup == tools ? 0 : 1];
    const auto group = makeVirtualGroup({cut});
    QCOMPARE(bar.AddCommandGroup(group.get()), first);
    buttons.removeAll(first);
    QVERIFY(bar.RemoveCommand(group->getCommand(cut)));
    QCOMPARE(bar.opened()->CollectButtons<ToolButton>(), buttons);
}

void TestToolBarCommands::removalOfWhatIsNotThereFails()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut});
    QAction action;
    QVERIFY(!bar.RemoveCommand(group->getCommand(cut)));
    QVERIFY(!bar.RemoveCommand(nullptr));
    QVERIFY(!bar.RemoveButton(&action));
    QVERIFY(!bar.RemoveButton(nullptr));
}

void TestToolBarCommands::removedCommandCanComeBack()
{
    CommandsBar bar;
    const auto group = makeVirtualGroup({cut, copy});
    bar.AddCommandGroup(group.get());
    const ToolButton *const former = group->getCommand(cut)->toolButton();
    QVERIFY(bar.RemoveCommand(group->getCommand(cut)));
    bar.AddCommandGroup(group.get());
    QVERIFY(group->getCommand(cut)->toolButton() != former);
    QCOMPARE(bar.idsOn(), QStringList({copy, cut}));
}

void TestToolBarCommands::commandMayRemoveItselfAtAClick()
{
    QWidget window;
    CommandsBar bar(&window);
    const auto group = makeVirtualGroup({cut});
    const QPointer<ToolButton> button = bar.AddCommandGroup(group.get());
    window.show();
    static_cast<TestCommand *>(group->getCommand(cut))->work = [&](bool) {
        return bar.RemoveCommand(group->getCommand(cut));
    };
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!button);
}

void TestToolBarCommands::removalClosesThePopup()
{
    QWidget window;
    CommandsBar bar(&window);
    QWidget menu(&window);
    QAction action;
    auto *const button = new MenuButton(&bar, &menu);
    new MenuButton(&bar, nullptr);
    button->addAction(&action);
    window.show();
    button->ShowMenu();
    QVERIFY(bar.RemoveButton(&action));
    QVERIFY(!menu.isVisible());
}

void TestToolBarCommands::barMayEndWhileItIsEmptied()
{
    const auto group = makeVirtualGroup({cut, copy});
    auto bar = std::make_unique<CommandsBar>();
    bar->AddCommandGroup(group.get());
    connect(bar.get(), &ToolBar::LayoutChanged, this, [&bar] { bar.reset(); });
    QVERIFY(!bar->RemoveCommand(group.get()));
    QVERIFY(!bar);
}

void TestToolBarCommands::handlerGoesToTheFirstButtonOfItsAction()
{
    CommandsBar bar;
    QAction action;
    const ToolButton *const first = bar.AddAction(&action, QStringLiteral("a"));
    const ToolButton *const second = bar.AddAction(&action, QStringLiteral("b"));
    Handler handler;
    bar.AddCallbackHandler(&handler, &action);
    bar.AddCallbackHandler(nullptr, &action);
    bar.EnableActions();
    QVERIFY(!action.isEnabled());
    QVERIFY(!first->isEnabled());
    QVERIFY(!second->isEnabled()); // by the action
    handler.answer = true;
    bar.RemoveButton(&action);
    bar.EnableActions();
    QVERIFY(!action.isEnabled()); // the handler went with the first button
}

void TestToolBarCommands::handlersAreAskedWhenThePointerComesIn()
{
    CommandsBar bar;
    QAction action;
    bar.AddAction(&action, tools);
    Handler handler;
    bar.AddCallbackHandler(&handler, &action);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(&bar, &enter);
    QVERIFY(!action.isEnabled());
}

void TestToolBarCommands::buttonIsFoundByItsText()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    new MenuButton(&bar, subBar);
    QAction outer(QStringLiteral("Smooth"));
    QAction inner(QStringLiteral("Flip"));
    ToolButton *const smooth = bar.AddAction(&outer, tools);
    ToolButton *const flip = subBar->AddAction(&inner, tools);
    QCOMPARE(bar.FindOneButton(QStringLiteral("Smooth"), false), smooth);
    QCOMPARE(bar.FindOneButton(QStringLiteral("Flip"), false), nullptr);
    QCOMPARE(bar.FindOneButton(QStringLiteral("Flip"), true), flip);
}

void TestToolBarCommands::clickedButtonIsTheOnlyOneOfItsGroup()
{
    CommandsBar bar;
    QAction actions[3];
    QVector<ToolButton *> buttons;
    for (QAction &action : actions) {
        action.setCheckable(true);
        buttons << bar.AddAction(&action, tools);
    }
    actions[2].setCheckable(false);
    for (ToolButton *const button : qAsConst(buttons))
        bar.AddExclusiveGroupButton(tools, button);
    bar.AddExclusiveGroupButton(tools, buttons[0]);
    bar.AddExclusiveGroupButton(tools, nullptr);
    QCOMPARE(bar.opened()->exclusiveGroups.value(tools).size(), 3);
    buttons[0]->click();
    QVERIFY(buttons[0]->isChecked());
    buttons[1]->click();
    QVERIFY(!buttons[0]->isChecked());
    QVERIFY(buttons[1]->isChecked());
    buttons[1]->click(); // toggled off by the click, and on again by its group
    QVERIFY(buttons[1]->isChecked());
    QVERIFY(!buttons[2]->isChecked());
}

void TestToolBarCommands::clickOnAnyButtonClearsTheGroups()
{
    CommandsBar bar;
    QAction member;
    QAction outsider;
    member.setCheckable(true);
    ToolButton *const button = bar.AddAction(&member, tools);
    ToolButton *const other = bar.AddAction(&outsider, tools);
    bar.AddExclusiveGroupButton(tools, button);
    button->click();
    QVERIFY(button->isChecked());
    other->click();
    QVERIFY(!button->isChecked());
}

void TestToolBarCommands::clickIsTold()
{
    CommandsBar bar;
    QAction action;
    ToolButton *const button = bar.AddAction(&action, tools);
    QSignalSpy clicked(&bar, &ToolBar::ToolButtonClicked);
    button->click();
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.first().first().value<ToolButton *>(), button);
    bar.OnToolButtonClicked(); // from nobody
    QCOMPARE(clicked.count(), 1);
}

void TestToolBarCommands::lockingLeavesSubMenusAlone()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    new MenuButton(&bar, subBar);
    QAction outer;
    QAction inner;
    ToolButton *const button = bar.AddAction(&outer, tools);
    ToolButton *const subButton = subBar->AddAction(&inner, tools);
    bar.SetLocked(true);
    QSignalSpy clicked(button, &ToolButton::ToolButtonClicked);
    QSignalSpy subClicked(subButton, &ToolButton::ToolButtonClicked);
    button->click();
    subButton->click();
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(subClicked.count(), 1);
}

void TestToolBarCommands::openedPopupClosesTheOthers()
{
    QWidget window;
    CommandsBar bar(&window);
    QWidget firstMenu(&window);
    QWidget secondMenu(&window);
    auto *const first = new MenuButton(&bar, &firstMenu);
    auto *const second = new MenuButton(&bar, &secondMenu);
    firstMenu.hide();
    secondMenu.hide();
    window.show();
    first->click();
    QVERIFY(first->IsMenuShowing());
    second->click();
    QVERIFY(!first->IsMenuShowing());
    QVERIFY(second->IsMenuShowing());
    QVERIFY(!first->SaveMenuState());
    bar.HideAllButtonMenusExcept(true, second);
    QVERIFY(second->IsMenuShowing());
    bar.HideAllButtonMenusExcept(true, nullptr);
    QVERIFY(!second->IsMenuShowing());
    QVERIFY(first->SaveMenuState());
}

void TestToolBarCommands::togglingAButtonWithPopupClosesTheOthers_data()
{
    QTest::addColumn<bool>("marked");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("closes");
    QTest::newRow("to unchecked") << true << false << true;
    QTest::newRow("to checked, in spite of the name") << true << true << true;
    QTest::newRow("not marked") << false << false << false;
}

void TestToolBarCommands::togglingAButtonWithPopupClosesTheOthers()
{
    QFETCH(bool, marked);
    QFETCH(bool, checked);
    QWidget window;
    CommandsBar bar(&window);
    QWidget menu(&window);
    auto *const open = new MenuButton(&bar, &menu);
    auto *const toggled = new MenuButton(&bar, nullptr);
    menu.hide();
    window.show();
    const auto group = makeGroup(QStringLiteral("Edit"), {});
    if (marked)
        group->setToolButton(toggled);
    toggled->setCheckable(true);
    toggled->setChecked(!checked);
    open->ShowMenu();
    toggled->setChecked(checked);
    QTEST(!open->IsMenuShowing(), "closes");
    QCOMPARE(open->SaveMenuState(), marked);
    toggled->setCheckable(false);
    open->ShowMenu();
    toggled->OnToggled(true);
    QVERIFY(open->IsMenuShowing());
}

void TestToolBarCommands::clickHidesABarThatWantsIt_data()
{
    QTest::addColumn<bool>("hides");
    QTest::addColumn<bool>("isMenu");
    QTest::newRow("bar") << true << false;
    QTest::newRow("menu") << true << true;
    QTest::newRow("bar that stays") << false << false;
    QTest::newRow("menu that stays") << false << true;
}

void TestToolBarCommands::clickHidesABarThatWantsIt()
{
    QFETCH(bool, hides);
    QFETCH(bool, isMenu);
    QWidget window;
    CommandsBar base(&window);
    auto *const bar = new CommandsBar(&window);
    MenuButton *const owner = isMenu ? new MenuButton(&base, bar) : nullptr;
    QAction action;
    ToolButton *const button = bar->AddAction(&action, tools);
    auto *const subBar = new CommandsBar(&window);
    auto *const menuButton = new MenuButton(bar, subBar);
    bar->opened()->hideOnButtonClick = hides;
    window.show();
    bar->show();
    menuButton->click();
    QVERIFY(bar->isVisible()); // a button that opens a menu of buttons hides nothing
    auto *const widgetButton = new MenuButton(bar, new QWidget(&window));
    if (!isMenu) {
        widgetButton->click();
        QVERIFY(bar->isVisible()); // nor does one that opens a widget, on a bar that is no menu
    }
    button->click();
    QCOMPARE(bar->isVisible(), !hides);
    if (owner)
        QCOMPARE(owner->IsMenuShowing(), !hides);
}

void TestToolBarCommands::clickOutsideClosesPopupBars()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const closing = new CommandsBar(&window);
    auto *const keeping = new CommandsBar(&window);
    auto *const widget = new QWidget(&window);
    keeping->SetKeepStateOnClickOutside(true);
    auto *const first = new MenuButton(&bar, closing);
    auto *const second = new MenuButton(&bar, keeping);
    auto *const third = new MenuButton(&bar, widget);
    window.show();
    for (MenuButton *const button : {first, second, third})
        button->ShowMenu();
    bar.OnMouseClickedOutside();
    QVERIFY(!first->IsMenuShowing());
    QVERIFY(second->IsMenuShowing());
    QVERIFY(third->IsMenuShowing());
}

void TestToolBarCommands::hidingKeepsTheOpenPopupForTheNextShow()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const menu = new QWidget(&window);
    auto *const closed = new QWidget(&window);
    auto *const button = new MenuButton(&bar, menu);
    auto *const other = new MenuButton(&bar, closed);
    window.show();
    menu->hide();
    closed->hide();
    button->ShowMenu();
    button->SetSavedMenuOwner(button);
    bar.hide();
    QVERIFY(!button->IsMenuShowing());
    bar.show();
    QVERIFY(button->IsMenuShowing());
    QVERIFY(!other->IsMenuShowing());
}

void TestToolBarCommands::hidingForGoodForgetsTheOpenPopup()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const menu = new QWidget(&window);
    auto *const button = new MenuButton(&bar, menu);
    window.show();
    menu->hide();
    button->ShowMenu();
    button->SetSavedMenuOwner(button);
    bar.HideMe(false);
    QVERIFY(!bar.isVisible());
    QVERIFY(!button->IsMenuShowing());
    bar.ShowMe();
    QVERIFY(bar.isVisible());
    QVERIFY(!button->IsMenuShowing());
    QVERIFY(bar.opened()->keepMenuStateOnHide);
    bar.hide();
    button->SetSavedMenuOwner(button);
    button->SetSaveMenuState(false);
    bar.show();
    QVERIFY(!button->IsMenuShowing());
}

void TestToolBarCommands::popupIsReopenedByItsOwner()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const menu = new QWidget(&window);
    auto *const ownersMenu = new QWidget(&window);
    auto *const button = new MenuButton(&bar, menu);
    MenuButton owner(nullptr, ownersMenu);
    owner.setParent(&window);
    window.show();
    menu->hide();
    ownersMenu->hide();
    bar.hide();
    button->SetSaveMenuState(true);
    button->SetSavedMenuOwner(&owner);
    bar.show();
    QVERIFY(owner.IsMenuShowing());
    QVERIFY(!button->IsMenuShowing());
    QVERIFY(!button->SaveMenuState());
    QCOMPARE(button->SavedMenuOwner(), nullptr);
}

void TestToolBarCommands::styleSheetReachesSubMenus()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    new MenuButton(&bar, subBar);
    QAction action;
    const ToolButton *const button = subBar->AddAction(&action, tools);
    const QString sheet = QStringLiteral("QToolButton { border: none; }");
    bar.SetButtonStyleSheet(sheet, false);
    QVERIFY(button->styleSheet() != sheet);
    bar.SetButtonStyleSheet(sheet, true);
    QCOMPARE(button->styleSheet(), sheet);
}

void TestToolBarCommands::baseBarIsFoundThroughParentButtons()
{
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    auto *const leaf = new CommandsBar(&window);
    new MenuButton(&bar, subBar);
    new MenuButton(subBar, leaf);
    QCOMPARE(leaf->GetBaseToolBar(), &bar);
    QCOMPARE(subBar->GetBaseToolBar(), &bar);
    QCOMPARE(bar.GetBaseToolBar(), &bar);
    QCOMPARE(bar.getRefParent(), &window);
}

void TestToolBarCommands::parentButtonsMapIsEmpty()
{
    CommandsBar bar;
    QAction action;
    QVERIFY(bar.GetAllParentButtonsMap(bar.AddAction(&action)).isEmpty());
}

void TestToolBarCommands::mouseEventsOfASubMenuReachTheBaseBar()
{
    class Recorder : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (auto *const mouse = dynamic_cast<QMouseEvent *>(event))
                heard << qMakePair(mouse->type(), mouse->globalPos());
            return false;
        }
        QVector<QPair<QEvent::Type, QPoint>> heard;
    } recorder;
    QWidget window;
    CommandsBar bar(&window);
    auto *const subBar = new CommandsBar(&window);
    new MenuButton(&bar, subBar);
    bar.installEventFilter(&recorder);
    const QPoint global(40, 50);
    QVector<QPair<QEvent::Type, QPoint>> sent;
    for (const QEvent::Type type :
         {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPoint(1, 1), global, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(subBar, &event);
        sent << qMakePair(type, global);
    }
    QVERIFY(recorder.heard.isEmpty());
    QCoreApplication::sendPostedEvents(&bar);
    QCOMPARE(recorder.heard, sent);
}

void TestToolBarCommands::copiesOfMouseEventsEndAtTheBar()
{
    class Counter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            const QEvent::Type type = event->type();
            if (type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease)
                ++count;
            return false;
        }
        int count = 0;
    } onBar, onWindow;
    QWidget window;
    CommandsBar bar(&window);
    QAction action;
    ToolButton *const button = bar.AddAction(&action, tools);
    window.show();
    bar.installEventFilter(&onBar);
    window.installEventFilter(&onWindow);
    QTest::mouseClick(button, Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(onBar.count, 2);
    QCOMPARE(onWindow.count, 0);
    // A press beside the buttons goes through to what the bar stands on, as on any widget.
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(0, 0));
    QCOMPARE(onWindow.count, 1);
}

void TestToolBarCommands::resizeMovesTheOpenPopup_data()
{
    QTest::addColumn<bool>("delayed");
    QTest::newRow("at once") << false;
    QTest::newRow("after the last resize") << true;
}

void TestToolBarCommands::resizeMovesTheOpenPopup()
{
    QFETCH(bool, delayed);
    QWidget window;
    CommandsBar bar(&window);
    auto *const menu = new QWidget(&window);
    auto *const button = new MenuButton(&bar, menu);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    button->ShowMenu();
    bar.setDelayRelocationOnResize(delayed);
    const int asked = button->asked;
    for (int i = 0; i < 3; ++i)
        window.resize(window.size() + QSize(10, 10));
    if (delayed) {
        QCOMPARE(button->asked, asked);
        QTRY_COMPARE(button->asked, asked + 1);
    } else {
        QCOMPARE(button->asked, asked + 3);
    }
}

LUMO_TEST_MAIN(TestToolBarCommands)
#include "tst_toolbarcommands.moc"
