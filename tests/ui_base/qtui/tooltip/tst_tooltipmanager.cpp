// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ATooltipObject>
#include <ui_base/BaseView>
#include <ui_base/FloatingLayer>
#include <ui_base/TooltipManager>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/tooltipmanager_p.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <type_traits>

using namespace Vela::UiBase;

static_assert(std::is_base_of_v<QObject, TooltipManager>);
static_assert(!std::is_copy_constructible_v<TooltipManager>);
static_assert(!std::is_constructible_v<TooltipManager, TooltipManagerPrivate &, QObject *>);

namespace {

const QString A = QStringLiteral("a");
const QString B = QStringLiteral("b");

// Counts how often it is hidden, and may do something then.
class Tip : public ATooltipObject
{
public:
    explicit Tip(const QString &group = QStringLiteral("unused"), QWidget *parent = nullptr)
        : ATooltipObject(group, parent)
    { }

    void HideTooltip() override
    {
        ++hides;
        if (onHide)
            onHide();
    }

    int hides = 0;
    std::function<void()> onHide;
};

class Register : public TooltipManager
{
public:
    Register()
        : TooltipManager(nullptr)
    { }
    const QMap<QString, QList<ATooltipObject *>> &groups() const { return d_ptr->groups; }
};

// The groups of the process; the way to them is that of a subclass.
const QMap<QString, QList<ATooltipObject *>> &groupsOfProcess()
{
    struct Opened : TooltipManager
    {
        static auto member() { return &Opened::d_ptr; }
    };
    return (TooltipManager::GetInstance().*Opened::member())->groups;
}

using Members = QList<ATooltipObject *>;

} // namespace

class TooltipManagerTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsOneOfTheProcess();
    void tooltipsEnterTheOneOfTheProcess();
    void membersStandInOrderOfRegistration();
    void registeringTwiceKeepsOneEntry();
    void nullIsNoMember();
    void removingLeavesTheEmptyGroup();
    void removingAnUnknownTooltipChangesNothing();
    void removingTakesTheFirstNamedGroupOnly();
    void removingDoesNotFindTheGroupWithoutName();
    void theDeadLeaveEveryGroup();
    void theDeadLeaveRegistersOfTheirOwn();
    void hidesTheOthersOfTheGroup();
    void hidesAllWithoutAnException();
    void anEmptyNameStandsForTheGroupOfTheException();
    void tooltipsWithoutGroupDoNotClearEachOther();
    void anUnknownGroupIsNoOp();
    void aWalkSurvivesTheDeathOfMembers();
    void aWalkHidesThoseWhoLeaveMeanwhile();
    void aWalkLeavesOutThoseWhoComeMeanwhile();
    void nestedWalksSurviveTheDeathOfMembers();
    void withoutParentThereIsNoRoot();
    void outsideOfAnyViewThereIsNoRoot();
    void theRootIsTheNearestView();
    void theRootOfAFloatingOwnerIsWhereItCameFrom();
};

void TooltipManagerTest::thereIsOneOfTheProcess()
{
    QCOMPARE(&TooltipManager::GetInstance(), &TooltipManager::GetInstance());
    QObject parent;
    QCOMPARE((new TooltipManager(&parent))->parent(), &parent);
}

void TooltipManagerTest::tooltipsEnterTheOneOfTheProcess()
{
    Tip tip(QStringLiteral("entered"));
    QCOMPARE(groupsOfProcess().value(QStringLiteral("entered")), Members {&tip});
}

void TooltipManagerTest::membersStandInOrderOfRegistration()
{
    Tip first;
    Tip second;
    Tip third;
    Register manager;
    manager.AddTooltip(&second, A);
    manager.AddTooltip(&first, A);
    manager.AddTooltip(&third, B);
    QCOMPARE(manager.groups().value(A), (Members {&second, &first}));
    QCOMPARE(manager.groups().value(B), Members {&third});
}

void TooltipManagerTest::registeringTwiceKeepsOneEntry()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(&tip, A);
    manager.AddTooltip(&tip, B);
    manager.AddTooltip(&tip, A);
    QCOMPARE(manager.groups().value(A), Members {&tip});
    QCOMPARE(manager.groups().value(B), Members {&tip});
}

void TooltipManagerTest::nullIsNoMember()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(nullptr, A);
    manager.AddTooltip(&tip, A);
    manager.RemoveTooltip(nullptr);
    manager.HideAllTooltipsInGroupExcept(nullptr, QString());
    QCOMPARE(manager.groups().value(A), Members {&tip});
    QCOMPARE(tip.hides, 0);
}

void TooltipManagerTest::removingLeavesTheEmptyGroup()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(&tip, A);
    manager.RemoveTooltip(&tip);
    QVERIFY(manager.groups().contains(A));
    QVERIFY(manager.groups().value(A).isEmpty());

    manager.AddTooltip(&tip, A);
    QCOMPARE(manager.groups().value(A), Members {&tip});
}

void TooltipManagerTest::removingAnUnknownTooltipChangesNothing()
{
    Tip tip;
    Tip stranger;
    Register manager;
    manager.AddTooltip(&tip, A);
    manager.RemoveTooltip(&stranger);
    QCOMPARE(manager.groups().value(A), Members {&tip});
}

void TooltipManagerTest::removingTakesTheFirstNamedGroupOnly()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(&tip, B);
    manager.AddTooltip(&tip, QString());
    manager.AddTooltip(&tip, A);
    manager.RemoveTooltip(&tip);
    QVERIFY(manager.groups().value(A).isEmpty());
    QCOMPARE(manager.groups().value(B), Members {&tip});
    QCOMPARE(manager.groups().value(QString()), Members {&tip});
}

void TooltipManagerTest::removingDoesNotFindTheGroupWithoutName()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(&tip, QString());
    manager.RemoveTooltip(&tip);
    QCOMPARE(manager.groups().value(QString()), Members {&tip});
}

void TooltipManagerTest::theDeadLeaveEveryGroup()
{
    const QStringList names {QString(), A, B};
    auto tip = std::make_unique<Tip>(QString());
    TooltipManager::GetInstance().AddTooltip(tip.get(), A);
    TooltipManager::GetInstance().AddTooltip(tip.get(), B);
    for (const QString &name : names)
        QCOMPARE(groupsOfProcess().value(name), Members {tip.get()});

    tip.reset();
    for (const QString &name : names)
        QVERIFY(groupsOfProcess().value(name).isEmpty());
}

void TooltipManagerTest::theDeadLeaveRegistersOfTheirOwn()
{
    Register manager;
    {
        Tip tip;
        manager.AddTooltip(&tip, A);
    }
    QVERIFY(manager.groups().value(A).isEmpty());
}

void TooltipManagerTest::hidesTheOthersOfTheGroup()
{
    Tip shown;
    Tip second;
    Tip third;
    Tip elsewhere;
    Register manager;
    for (Tip *tip : {&second, &shown, &third})
        manager.AddTooltip(tip, A);
    manager.AddTooltip(&elsewhere, B);

    manager.HideAllTooltipsInGroupExcept(&shown, A);
    manager.HideAllTooltipsInGroupExcept(&shown, A);
    QCOMPARE(shown.hides, 0);
    QCOMPARE(second.hides, 2);
    QCOMPARE(third.hides, 2);
    QCOMPARE(elsewhere.hides, 0);
}

void TooltipManagerTest::hidesAllWithoutAnException()
{
    Tip tip;
    Register manager;
    manager.AddTooltip(&tip, A);
    manager.HideAllTooltipsInGroupExcept(nullptr, A);
    QCOMPARE(tip.hides, 1);
}

void TooltipManagerTest::anEmptyNameStandsForTheGroupOfTheException()
{
    Tip shown;
    Tip second;
    Tip nameless;
    Register manager;
    manager.AddTooltip(&shown, QString());
    manager.AddTooltip(&nameless, QString());
    manager.AddTooltip(&shown, A);
    manager.AddTooltip(&second, A);
    manager.HideAllTooltipsInGroupExcept(&shown, QString());
    QCOMPARE(second.hides, 1);
    QCOMPARE(shown.hides, 0);
    QCOMPARE(nameless.hides, 0);
}

void TooltipManagerTest::tooltipsWithoutGroupDoNotClearEachOther()
{
    Tip shown;
    Tip second;
    Register manager;
    manager.AddTooltip(&shown, QString());
    manager.AddTooltip(&second, QString());
    manager.HideAllTooltipsInGroupExcept(&shown, QString());
    QCOMPARE(second.hides, 0);
}

void TooltipManagerTest::anUnknownGroupIsNoOp()
{
    Tip shown;
    Tip second;
    Register manager;
    manager.AddTooltip(&shown, A);
    manager.AddTooltip(&second, A);
    manager.HideAllTooltipsInGroupExcept(&shown, QStringLiteral("unknown"));
    QCOMPARE(second.hides, 0);
    QVERIFY(!manager.groups().contains(QStringLiteral("unknown")));
}

void TooltipManagerTest::aWalkSurvivesTheDeathOfMembers()
{
    Tip first(A);
    auto second = std::make_unique<Tip>(A);
    Tip third(A);
    first.onHide = [&second] { second.reset(); };
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(nullptr, A);
    QVERIFY(!second);
    QCOMPARE(third.hides, 1);
}

void TooltipManagerTest::aWalkHidesThoseWhoLeaveMeanwhile()
{
    Tip first;
    Tip second;
    Register manager;
    manager.AddTooltip(&first, A);
    manager.AddTooltip(&second, A);
    first.onHide = [&] { manager.RemoveTooltip(&second); };
    manager.HideAllTooltipsInGroupExcept(nullptr, A);
    QCOMPARE(second.hides, 1);
}

void TooltipManagerTest::aWalkLeavesOutThoseWhoComeMeanwhile()
{
    Tip first;
    Tip late;
    Register manager;
    manager.AddTooltip(&first, A);
    first.onHide = [&] { manager.AddTooltip(&late, A); };
    manager.HideAllTooltipsInGroupExcept(nullptr, A);
    QCOMPARE(late.hides, 0);
    QCOMPARE(manager.groups().value(A), (Members {&first, &late}));
}

void TooltipManagerTest::nestedWalksSurviveTheDeathOfMembers()
{
    Tip first(A);
    auto second = std::make_unique<Tip>(A);
    Tip third(A);
    first.onHide = [&] {
        if (first.hides == 1)
            TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(&third, A);
        else
            second.reset();
    };
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(nullptr, A);
    QCOMPARE(first.hides, 2);
    QCOMPARE(third.hides, 1);
}

void TooltipManagerTest::withoutParentThereIsNoRoot()
{
    TooltipManager &manager = TooltipManager::GetInstance();
    QVERIFY(!manager.getRootViewOfTooltip(nullptr));
    Tip tip;
    QVERIFY(!manager.getRootViewOfTooltip(&tip));
    QObject noWidget;
    tip.setParent(&noWidget);
    QVERIFY(!manager.getRootViewOfTooltip(&tip));
    tip.setParent(nullptr);
}

void TooltipManagerTest::outsideOfAnyViewThereIsNoRoot()
{
    QWidget window;
    auto *const owner = new QWidget(&window);
    Tip tip(A, owner);
    QVERIFY(!TooltipManager::GetInstance().getRootViewOfTooltip(&tip));
}

void TooltipManagerTest::theRootIsTheNearestView()
{
    QWidget window;
    auto *const outer = new BaseView(&window, Qt::Widget);
    auto *const inner = new BaseView(outer, Qt::Widget);
    auto *const owner = new QWidget(new QWidget(inner->getQtWidget()));
    Tip tip(A, owner);
    QCOMPARE(TooltipManager::GetInstance().getRootViewOfTooltip(&tip), inner->getQtWidget());

    Tip ofTheView(A, outer->getQtWidget());
    QCOMPARE(TooltipManager::GetInstance().getRootViewOfTooltip(&ofTheView), outer->getQtWidget());
}

void TooltipManagerTest::theRootOfAFloatingOwnerIsWhereItCameFrom()
{
    QWidget window;
    auto *const view = new BaseView(&window, Qt::Widget);
    auto *const bar = new QWidget(view->getQtWidget());
    auto *const owner = new QWidget(bar);
    auto *const tip = new Tip(A, owner);
    QVERIFY(FloatingLayer::makeWidgetFloating(bar, QMargins()));
    // An owner outside of all that shows that it is not just the chain of parents.
    QVERIFY(qobject_cast<FloatingLayer *>(bar->parentWidget()));
    bar->parentWidget()->setParent(nullptr);
    QCOMPARE(TooltipManager::GetInstance().getRootViewOfTooltip(tip), view->getQtWidget());
    delete bar;
}

LUMO_TEST_MAIN(TooltipManagerTest)
#include "tst_tooltipmanager.moc"
