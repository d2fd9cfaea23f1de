// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <ui_base/DefaultIconProvider>
#include <ui_base/QtUiToolkit>

#include <QPointer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace Vela::UiBase;

namespace {

/// Checks at the very end of the program, after the toolkit's own end, what a destructor of an
/// object of static storage may do with the toolkit. The process fails when it does not hold.
class AfterTheEnd
{
public:
    ~AfterTheEnd()
    {
        require(!QtUiToolkit::InstanceIfAlive(), "the toolkit still answers after its end");
        QtUiToolkit &standIn = QtUiToolkit::Instance();
        require(&standIn == &QtUiToolkit::Instance(), "the stand-in changes");
        require(standIn.CreateIcon(QStringLiteral("kit_both")).isNull(),
                "icon without application");
        QAction action;
        standIn.CreateIcon(QStringLiteral("kit_both"), &action, EIconType::IconSvg, QSize(9, 9));
        standIn.UpdateIconSize(&action, QSize(5, 5));
        require(standIn.UpdateIconSize(QIcon(), QSize(5, 5)).isNull(), "icon out of nothing");
    }

private:
    static void require(bool holds, const char *complaint)
    {
        if (holds)
            return;
        std::fprintf(stderr, "FAIL: %s\n", complaint);
        std::_Exit(EXIT_FAILURE);
    }
};

// Made before the toolkit, hence ended after it.
const AfterTheEnd afterTheEnd;

/// Notes what it is asked for.
class RecordingProvider : public IIconProvider
{
public:
    explicit RecordingProvider(QStringList *calls)
        : m_calls(calls)
    { }
    ~RecordingProvider() override
    {
        const IIconProvider *successor = QtUiToolkit::Instance().IconProvider();
        *m_calls << (successor && successor != this ? "end" : "end in use");
    }

    QIcon CreateIcon(const QString &name, QAction *, EIconType type,
                     const QSize &size) const override
    {
        *m_calls << QStringLiteral("create %1 %2 %3").arg(name).arg(int(type)).arg(size.width());
        return {};
    }
    QIcon CreateIcon(const QString &name) const override
    {
        *m_calls << "create " + name;
        return {};
    }
    void UpdateIconSize(QAction *action, const QSize &size) override
    {
        *m_calls
            << QStringLiteral("update %1 %2").arg(action ? "action" : "null").arg(size.width());
    }
    QIcon UpdateIconSize(const QIcon &, const QSize &size) override
    {
        *m_calls << QStringLiteral("update icon %1").arg(size.width());
        return {};
    }

private:
    QStringList *m_calls;
};

class Receiver : public QObject
{
    Q_OBJECT

public:
    int calls = 0;

public Q_SLOTS:
    void act() { ++calls; }
};

} // namespace

class TestQtUiToolkit : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void thereIsOneInstance();
    void startsWithTheDefaultProvider();
    void nullProviderIsIgnored();
    void newProviderReplacesAndEndsTheOldOne();
    void providerSetTwiceStaysAlive();
    void callsGoToTheProvider();

    void actionWithoutIconName();
    void actionWithIcon();
    void actionOfAnUnknownIconHasNone();
    void actionTakesShortcutAndRole();
    void actionWithoutShortcutHasNone();
    void actionCallsTheSlot();
    void actionWithoutReceiverOrSlotIsNotConnected();

    void enableChangesActionsOfThatTextOnly();
    void enableSurvivesNullAndDyingActions();
    void findActionAnswersTheFirstOfThatText();
    void findActionAnswersNullForNothing();

private:
    QtUiToolkit &m_toolkit = QtUiToolkit::Instance();
};

void TestQtUiToolkit::initTestCase()
{
    QVERIFY(&afterTheEnd);
}

void TestQtUiToolkit::cleanup()
{
    m_toolkit.IconProvider(new DefaultIconProvider);
    TestCase::cleanup();
}

void TestQtUiToolkit::thereIsOneInstance()
{
    QCOMPARE(&QtUiToolkit::Instance(), &m_toolkit);
    QCOMPARE(QtUiToolkit::InstanceIfAlive(), &m_toolkit);
}

void TestQtUiToolkit::startsWithTheDefaultProvider()
{
    QVERIFY(dynamic_cast<DefaultIconProvider *>(m_toolkit.IconProvider()));
    QVERIFY(!m_toolkit.CreateIcon(QStringLiteral("kit_both")).isNull());
}

void TestQtUiToolkit::nullProviderIsIgnored()
{
    const IIconProvider *before = m_toolkit.IconProvider();
    m_toolkit.IconProvider(nullptr);
    QCOMPARE(m_toolkit.IconProvider(), before);
    QVERIFY(!m_toolkit.CreateIcon(QStringLiteral("kit_both")).isNull());
}

void TestQtUiToolkit::newProviderReplacesAndEndsTheOldOne()
{
    QStringList first;
    QStringList second;
    m_toolkit.IconProvider(new RecordingProvider(&first));
    auto *provider = new RecordingProvider(&second);
    m_toolkit.IconProvider(provider);
    QCOMPARE(first, QStringList {"end"});
    QCOMPARE(m_toolkit.IconProvider(), provider);
    QVERIFY(second.isEmpty());
    m_toolkit.IconProvider(new DefaultIconProvider);
    QCOMPARE(second, QStringList {"end"});
}

void TestQtUiToolkit::providerSetTwiceStaysAlive()
{
    QStringList calls;
    auto *provider = new RecordingProvider(&calls);
    m_toolkit.IconProvider(provider);
    m_toolkit.IconProvider(provider);
    QCOMPARE(m_toolkit.IconProvider(), provider);
    QVERIFY(calls.isEmpty());
    m_toolkit.IconProvider(new DefaultIconProvider);
    QCOMPARE(calls, QStringList {"end"});
}

void TestQtUiToolkit::callsGoToTheProvider()
{
    QStringList calls;
    m_toolkit.IconProvider(new RecordingProvider(&calls));
    QAction action;
    m_toolkit.CreateIcon(QStringLiteral("a"));
    m_toolkit.CreateIcon(QStringLiteral("b"), &action, EIconType::IconSvg, QSize(7, 7));
    m_toolkit.UpdateIconSize(&action, QSize(8, 8));
    m_toolkit.UpdateIconSize(static_cast<QAction *>(nullptr), QSize(8, 8));
    m_toolkit.UpdateIconSize(QIcon(), QSize(9, 9));
    const std::unique_ptr<QAction> made(
        m_toolkit.CreateAction(QStringLiteral("c"), QStringLiteral("C"), nullptr));
    QVERIFY(made->icon().isNull());
    QCOMPARE(calls,
             QStringList({"create a", "create b 1 7", "update action 8", "update null 8",
                          "update icon 9", "create c"}));
    m_toolkit.IconProvider(new DefaultIconProvider);
}

void TestQtUiToolkit::actionWithoutIconName()
{
    QObject parent;
    const QAction *action =
        m_toolkit.CreateAction(QString(), QStringLiteral("&Open"), &parent, QKeySequence(), nullptr,
                               nullptr, QAction::NoRole);
    QCOMPARE(action->parent(), &parent);
    QCOMPARE(action->text(), QStringLiteral("&Open"));
    QVERIFY(action->icon().isNull());
    QCOMPARE(action->menuRole(), QAction::NoRole);
}

void TestQtUiToolkit::actionWithIcon()
{
    QObject parent;
    const QAction *action =
        m_toolkit.CreateAction(QStringLiteral("kit_both"), QStringLiteral("Open"), &parent);
    QCOMPARE(action->parent(), &parent);
    QCOMPARE(action->text(), QStringLiteral("Open"));
    QCOMPARE(action->icon().actualSize(QSize(300, 300)), QSize(24, 24));
}

void TestQtUiToolkit::actionOfAnUnknownIconHasNone()
{
    const std::unique_ptr<QAction> action(
        m_toolkit.CreateAction(QStringLiteral("kit_nowhere"), QStringLiteral("Open"), nullptr));
    QVERIFY(action->icon().isNull());
    QCOMPARE(action->text(), QStringLiteral("Open"));
}

void TestQtUiToolkit::actionTakesShortcutAndRole()
{
    QObject parent;
    const QAction *action = m_toolkit.CreateAction(QString(), QStringLiteral("Quit"), &parent,
                                                   QKeySequence(Qt::CTRL + Qt::Key_Q), nullptr,
                                                   nullptr, QAction::QuitRole);
    QCOMPARE(action->shortcut(), QKeySequence(Qt::CTRL + Qt::Key_Q));
    QCOMPARE(action->menuRole(), QAction::QuitRole);
}

void TestQtUiToolkit::actionWithoutShortcutHasNone()
{
    QObject parent;
    const QAction *action = m_toolkit.CreateAction(QString(), QStringLiteral("Open"), &parent);
    QVERIFY(action->shortcuts().isEmpty());
    QCOMPARE(action->menuRole(), QAction::TextHeuristicRole);
}

void TestQtUiToolkit::actionCallsTheSlot()
{
    QObject parent;
    Receiver receiver;
    QAction *action = m_toolkit.CreateAction(QString(), QStringLiteral("Act"), &parent,
                                             QKeySequence(), &receiver, SLOT(act()));
    action->trigger();
    QCOMPARE(receiver.calls, 1);
    action->setCheckable(true);
    action->setChecked(true);
    QCOMPARE(receiver.calls, 1);
}

void TestQtUiToolkit::actionWithoutReceiverOrSlotIsNotConnected()
{
    QObject parent;
    Receiver receiver;
    m_toolkit
        .CreateAction(QString(), QStringLiteral("a"), &parent, QKeySequence(), &receiver, nullptr)
        ->trigger();
    m_toolkit
        .CreateAction(QString(), QStringLiteral("b"), &parent, QKeySequence(), nullptr, SLOT(act()))
        ->trigger();
    QCOMPARE(receiver.calls, 0);
}

void TestQtUiToolkit::enableChangesActionsOfThatTextOnly()
{
    QAction cut(QStringLiteral("Cut"));
    QAction cutToo(QStringLiteral("Cut"));
    QAction cutInCapitals(QStringLiteral("CUT"));
    QAction copy(QStringLiteral("Copy"));
    const QList<QAction *> actions {&cut, &copy, &cutInCapitals, &cutToo};
    m_toolkit.EnableAction(actions, QStringLiteral("Cut"), false);
    QVERIFY(!cut.isEnabled());
    QVERIFY(!cutToo.isEnabled());
    QVERIFY(cutInCapitals.isEnabled());
    QVERIFY(copy.isEnabled());
    m_toolkit.EnableAction(actions, QStringLiteral("Cut"), true);
    QVERIFY(cut.isEnabled());
    QVERIFY(cutToo.isEnabled());
}

void TestQtUiToolkit::enableSurvivesNullAndDyingActions()
{
    QAction first(QStringLiteral("Cut"));
    QPointer<QAction> dying = new QAction(QStringLiteral("Cut"));
    QAction last(QStringLiteral("Cut"));
    connect(&first, &QAction::changed, this, [&dying] { delete dying.data(); });
    m_toolkit.EnableAction({nullptr, &first, dying.data(), &last}, QStringLiteral("Cut"), false);
    QVERIFY(!dying);
    QVERIFY(!first.isEnabled());
    QVERIFY(!last.isEnabled());
    m_toolkit.EnableAction({}, QStringLiteral("Cut"), false);
}

void TestQtUiToolkit::findActionAnswersTheFirstOfThatText()
{
    QWidget widget;
    QAction copy(QStringLiteral("Copy"));
    QAction cut(QStringLiteral("Cut"));
    QAction cutToo(QStringLiteral("Cut"));
    widget.addActions({&copy, &cut, &cutToo});
    QCOMPARE(m_toolkit.FindAction(&widget, QStringLiteral("Cut")), &cut);
    QCOMPARE(m_toolkit.FindAction(&widget, QStringLiteral("Copy")), &copy);
}

void TestQtUiToolkit::findActionAnswersNullForNothing()
{
    QWidget widget;
    QAction unnamed;
    widget.addAction(&unnamed);
    QVERIFY(!m_toolkit.FindAction(nullptr, QStringLiteral("Cut")));
    QVERIFY(!m_toolkit.FindAction(&widget, QString()));
    QVERIFY(!m_toolkit.FindAction(&widget, QStringLiteral("Cut")));
}

LUMO_TEST_MAIN(TestQtUiToolkit)
#include "tst_qtuitoolkit.moc"
