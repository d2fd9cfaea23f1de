// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/MenuBuilder>

#include "support/accessibleevents.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/qtui/menu/menubuilder_p.h"

#include <lumo_common_res/Styles>

#include <QAccessible>
#include <QButtonGroup>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

#include <limits>
#include <memory>

using namespace Lumo::Test;
using namespace Vela::UiBase;
using Vela::Resource::Styles;

namespace {

const QString File = QStringLiteral("File");
const QString Edit = QStringLiteral("Edit");

class Bar : public MenuBuilder
{
public:
    explicit Bar(QMainWindow *window, Qt::ToolButtonStyle style = Qt::ToolButtonTextOnly,
                 bool customHover = false, const QString &sheet = {})
        : MenuBuilder(QStringLiteral("bar"), window, window, style, customHover, sheet)
    { }

    bool add(const QString &name) { return AddMenuBarItem(name, {}, {}, {}, {}); }
    QMenu *menu(const QString &name) { return d_ptr->MenuOf(name); }
    MenuBuilderPrivate &state() { return *d_ptr; }
};

AppMenuItemSpecifier entry(const QString &text, const char *slot = nullptr,
                           QAction::MenuRole role = QAction::NoRole)
{
    AppMenuItemSpecifier spec;
    spec.text = text;
    spec.slot = slot;
    spec.menuRole = role;
    return spec;
}

QIcon squareIcon(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::red);
    return QIcon(pixmap);
}

QStringList texts(const QMenu *menu)
{
    QStringList list;
    for (const QAction *action : menu->actions())
        list << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return list;
}

QStringList list(const char *joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// What it watched when an event of this test came.
class EventNotes : public QObject
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::User)
            watched << object;
        return false;
    }
    QList<QObject *> watched;
};

} // namespace

class TestMenuBuilder : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualOperationsKeepTheirOrder();
    void barTakesNoFocusAndHasItsName();
    void sameNameTwiceChangesNothing();
    void itemsStandInOrderOfAdding();
    void textStyleShowsOnlyTheText();
    void iconStyleFixesTheSizeOfTheIcon();
    void emptyStyleSheetTakesTheCommonOne();
    void alternateStyleIsKeptInProperties();
    void groupsAreExclusive();
    void clicksReachTheSlot();
    void toggleItemShowsOneFace_data();
    void toggleItemShowsOneFace();
    void toggleTextItemHasItsHeightAndStyle();
    void separatorIsAThinLine();
    void itemWidthNeverShrinks();
    void positionWithoutItemsHasNoWidth();
    void eachNewItemWritesTwoDebugLines();
    void itemsAreFlatAndTakeNoFocus();
    void itemsCanLookLikeASeparator();
    void itemChangesBetweenIconAndText();
    void toggleItemShowsTheIconOfItsFace_data();
    void toggleItemShowsTheIconOfItsFace();
    void sizeHelpersGiveTheBarAWidth();
    void lengthsThatNoWidgetCanHaveAreCutOff();
    void itemIsEnabledByItsText();
    void filterWatchesItemsAndTheirMenus();
    void iconsHaveANameForAssistiveTools();

    void specifiersFillAMenu();
    void emptyListStillStylesAndLinksAMenu();
    void nullActionsAreSeparators();
    void actionsStandBeforeAnother();
    void subMenuNeedsAMenu();
    void subMenuIsFoundByItsTitle();
    void subMenuStandsBeforeAnActionWithASeparator();
    void certainRolesStayOutOfMirrorMenus();
    void mirrorMenusGetSubMenusToo();
    void mirrorMenusKeepTheOrder();
    void specifiersNameReceiverAndIcon();
    void barWatchesTheMenusThatItFills();
    void menusAreNamedByTheirItems();
    void subMenusAreNamedByTheirTitles();
    void assistiveToolsSeeAndOpenTheMenus_data();
    void assistiveToolsSeeAndOpenTheMenus();
    void assistiveToolsPressAnItemWithoutAMenu();
    void assistiveToolsHearOfMenusUnderThePointer();
    void itemsAddedToARunningHoverBarOpen();
    void menusAddedWithTheirActionsAreWatched();
    void aMenuThatStandsInItselfIsWalkedOnce();
    void subclassesStyleItemsAndMenus();
    void appendedItemNeedsAStartedPlainBar();
    void changesKeepTheManagerStarted();
    void actionsAreFoundInSubMenus();
    void fixedMenuWidthIsAtLeastThatOfTheItem();
    void hidingTheBarHidesOpenMenus();
    void openMenusAreSeenInPlainMode();
    void anInvisibleItemEndsTheWalks();

    void unknownNamesAreRefused();
    void unknownNameLeavesAnEntryThatWalksSkip();
    void nullSpecifiersAreRefused();
    void menuDeletedWhileOpenIsMadeAgain_data();
    void menuDeletedWhileOpenIsMadeAgain();
    void deletedItemIsDropped();
    void itemsHeldByOthersEndWithTheBar();
    void barWithoutInitializeRefusesEverything();
    void lateInitializeMakesTheSameBar();
    void itemWithAnotherTextGetsRoomForIt();
    void menuTakesTheNewTextOfItsItem();
    void menuKeepsTheNameOfTheHost();
};

void TestMenuBuilder::virtualOperationsKeepTheirOrder()
{
    QVERIFY(standInThisOrder(&MenuBuilder::Initialize, &MenuBuilder::SetMenuBarItemStyle,
                             &MenuBuilder::SetMenuBarItemButtonStyle,
                             &MenuBuilder::SetDropDownMenuStyle, &MenuBuilder::GetMainWindow,
                             &MenuBuilder::FindAction));
}

void TestMenuBuilder::barTakesNoFocusAndHasItsName()
{
    QMainWindow window;
    const Bar bar(&window);
    QCOMPARE(bar.objectName(), QStringLiteral("bar"));
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
    QVERIFY(bar.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(bar.contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(bar.palette().color(QPalette::Window), QColor(255, 255, 255, 1));
    QVERIFY(bar.autoFillBackground());
    QVERIFY(bar.sizePolicy().hasHeightForWidth());
    QCOMPARE(bar.layout()->objectName(), QStringLiteral("layout"));
    QCOMPARE(bar.layout()->spacing(), 0);
}

void TestMenuBuilder::sameNameTwiceChangesNothing()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    const auto button = bar.GetMenuBarItem(File);
    QVERIFY(!bar.AddMenuBarItem(File, {}, QStringLiteral("x"), QStringLiteral("g"), File));
    QVERIFY(
        !bar.AddMenuBarToggleTextItem(File, QStringLiteral("QToolButton {}"), File, nullptr, 9));
    QVERIFY(!bar.InsertMenuBarItem(0, File, {}, {}, {}, {}));
    QCOMPARE(bar.GetMenuBarItem(File), button);
    QCOMPARE(bar.layout()->count(), 1);
    QVERIFY(!button->isCheckable());
    QCOMPARE(button->toolTip(), QString());
}

void TestMenuBuilder::itemsStandInOrderOfAdding()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(QStringLiteral("b")) && bar.add(QStringLiteral("a")));
    QVERIFY(bar.InsertMenuBarItem(1, QStringLiteral("c"), {}, {}, {}, {}));
    QVERIFY(bar.InsertMenuBarItem(99, QStringLiteral("d"), {}, {}, {}, {}));
    QStringList order;
    for (int i = 0; i < bar.layout()->count(); ++i)
        order << bar.layout()->itemAt(i)->widget()->objectName();
    QCOMPARE(order, list("b c a d"));
}

void TestMenuBuilder::textStyleShowsOnlyTheText()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddMenuBarItem(File, squareIcon(32), {}, {}, QStringLiteral("tip")));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextOnly);
    QVERIFY(button->icon().isNull());
    QCOMPARE(button->text(), File);
    QCOMPARE(button->toolTip(), QStringLiteral("tip"));
    QCOMPARE(button->minimumWidth(), 50);
    QVERIFY(button->autoRaise());
}

void TestMenuBuilder::iconStyleFixesTheSizeOfTheIcon()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonIconOnly);
    QVERIFY(bar.AddMenuBarItem(File, squareIcon(32), {}, {}, {}));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->iconSize(), QSize(32, 32));
    QCOMPARE(button->minimumSize(), QSize(36, 36));
    QCOMPARE(button->maximumSize(), QSize(36, 36));
}

void TestMenuBuilder::emptyStyleSheetTakesTheCommonOne()
{
    QMainWindow window;
    Bar bar(&window);
    const QString own = QStringLiteral("QToolButton { color: red; }");
    Bar other(&window, Qt::ToolButtonTextOnly, false, own);
    QVERIFY(bar.add(File) && other.add(File));
    QCOMPARE(bar.GetMenuBarItem(File)->styleSheet(), Styles::Instance().MenuMain());
    QCOMPARE(other.GetMenuBarItem(File)->styleSheet(), own);
}

void TestMenuBuilder::alternateStyleIsKeptInProperties()
{
    QMainWindow window;
    Bar bar(&window);
    const QString open = QStringLiteral("QToolButton { color: red; }");
    QVERIFY(bar.AddMenuBarItem(File, {}, open, {}, {}) && bar.add(Edit));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->property("AlternateStyle").toString(), open);
    QCOMPARE(button->property("OriginalStyle").toString(), Styles::Instance().MenuMain());
    QVERIFY(!bar.GetMenuBarItem(Edit)->property("OriginalStyle").isValid());
}

void TestMenuBuilder::groupsAreExclusive()
{
    QMainWindow window;
    Bar bar(&window);
    const QString group = QStringLiteral("g");
    QVERIFY(bar.AddMenuBarItem(File, {}, {}, group, {}));
    QVERIFY(bar.AddMenuBarItem(Edit, {}, {}, group, {}));
    bar.GetMenuBarItem(File)->click();
    bar.GetMenuBarItem(Edit)->click();
    QVERIFY(!bar.GetMenuBarItem(File)->isChecked());
    QVERIFY(bar.GetMenuBarItem(Edit)->isChecked());
}

void TestMenuBuilder::clicksReachTheSlot()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddMenuBarItem(File, SLOT(hide()), {}, {}, {}, {}));
    window.show();
    bar.GetMenuBarItem(File)->click();
    QVERIFY(!window.isVisible());
    QWidget receiver;
    const auto spec = QSharedPointer<AppMenuItemSpecifier>::create(entry(Edit, SLOT(hide())));
    spec->receiver = &receiver;
    QVERIFY(bar.AddMenuBarItem(spec, {}, {}));
    receiver.show();
    window.show();
    bar.GetMenuBarItem(Edit)->click();
    QVERIFY(!receiver.isVisible());
    QVERIFY(window.isVisible());
}

void TestMenuBuilder::toggleItemShowsOneFace_data()
{
    QTest::addColumn<bool>("isActive");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("active") << true << "on";
    QTest::newRow("inactive") << false << "off";
}

void TestMenuBuilder::toggleItemShowsOneFace()
{
    QFETCH(bool, isActive);
    QFETCH(QString, toolTip);
    QMainWindow window;
    Bar bar(&window);
    const auto spec = QSharedPointer<AppMenuToggleItemSpecifier>::create();
    spec->isActive = isActive;
    spec->activeToolTip = QStringLiteral("on");
    spec->inactiveToolTip = QStringLiteral("off");
    spec->slot = SLOT(hide());
    QVERIFY(bar.AddMenuBarToggleItem(File, spec, {}, {}));
    QCOMPARE(bar.GetMenuBarItem(File)->toolTip(), toolTip);
    QCOMPARE(bar.GetMenuBarToggleItemSpecifier(File), spec);
    window.show();
    bar.GetMenuBarItem(File)->click();
    QVERIFY(!window.isVisible());
}

void TestMenuBuilder::toggleTextItemHasItsHeightAndStyle()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonIconOnly);
    const QString sheet = QStringLiteral("QToolButton { color: red; }");
    QVERIFY(bar.AddMenuBarToggleTextItem(File, sheet, Edit, nullptr, 27));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextOnly);
    QCOMPARE(button->styleSheet(), sheet);
    QCOMPARE(button->property("OriginalStyle").toString(), sheet);
    QCOMPARE(button->height(), 27);
    QCOMPARE(button->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(button->toolTip(), Edit);
}

void TestMenuBuilder::separatorIsAThinLine()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddSeparator(true, 20) && bar.AddSeparator(false, 30)
            && bar.AddSeparator(true, -1));
    QCOMPARE(bar.layout()->itemAt(0)->widget()->maximumSize(), QSize(20, 1));
    QCOMPARE(bar.layout()->itemAt(1)->widget()->minimumSize(), QSize(1, 30));
    QCOMPARE(bar.layout()->itemAt(0)->widget()->parentWidget(), &bar);
}

void TestMenuBuilder::itemWidthNeverShrinks()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(QStringLiteral("An item with a very long text that needs much room")));
    window.show();
    QVERIFY(bar.add(QStringLiteral("Another item with a text that is longer than all others")));
    const int widest = bar.state().itemWidth;
    QVERIFY(widest > 200);
    const auto button = bar.GetMenuBarItem(bar.state().menuBarItems.firstKey());
    bar.SetMenuItemStyleSheet(bar.state().menuBarItems.firstKey(),
                              QStringLiteral("QToolButton { font-size: 4px; padding: 0px; }"));
    bar.adjustSize();
    QVERIFY(button->sizeHint().width() < widest);
    QVERIFY(bar.AddMenuBarItem(File, squareIcon(8), {}, {}, {}));
    QCOMPARE(bar.state().itemWidth, widest);
    QPoint position(3, 4);
    bar.SetMenuPosition(position);
    QCOMPARE(bar.pos(), position);
    QCOMPARE(bar.width(), 3 * widest);
}

void TestMenuBuilder::positionWithoutItemsHasNoWidth()
{
    QMainWindow window;
    Bar bar(&window);
    QPoint position(0, 0);
    bar.SetMenuPosition(position);
    QCOMPARE(bar.width(), 0);
}

void TestMenuBuilder::eachNewItemWritesTwoDebugLines()
{
    QMainWindow window;
    Bar bar(&window);
    QStringList lines;
    static QStringList *written = nullptr;
    written = &lines;
    const QtMessageHandler before =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &text) {
            if (type == QtDebugMsg)
                *written << text;
        });
    bar.add(File);
    bar.add(Edit);
    bar.add(Edit);
    qInstallMessageHandler(before);
    QCOMPARE(lines, list("\"File\" 1 \"Edit\" 2 \"Edit\""));
}

void TestMenuBuilder::itemsAreFlatAndTakeNoFocus()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QCOMPARE(button->objectName(), File);
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
    QVERIFY(button->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(!button->autoFillBackground());
    QVERIFY(!button->isCheckable());
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button->maximumWidth(), QWIDGETSIZE_MAX);
}

void TestMenuBuilder::itemsCanLookLikeASeparator()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QSharedPointer<QToolButton> button = bar.GetMenuBarItem(File);
    button->setCheckable(true);
    button->setAutoFillBackground(true);
    bar.SetMenuBarItemStyle(button, true);
    QCOMPARE(button->styleSheet(), Styles::Instance().Separator());
    QVERIFY(!button->isCheckable());
    QVERIFY(!button->autoFillBackground());
}

void TestMenuBuilder::itemChangesBetweenIconAndText()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonIconOnly);
    QVERIFY(bar.AddMenuBarItem(File, squareIcon(32), {}, {}, {}));
    const auto button = bar.GetMenuBarItem(File);
    bar.SetMenuItemButtonStyle(File, Qt::ToolButtonTextBesideIcon);
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextBesideIcon);
    QCOMPARE(button->minimumWidth(), 50);
    QCOMPARE(button->maximumWidth(), QWIDGETSIZE_MAX);
    bar.SetMenuItemButtonStyle(File, Qt::ToolButtonIconOnly);
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(button->minimumSize(), QSize(36, 36));
    QCOMPARE(button->maximumSize(), QSize(36, 36));
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
}

void TestMenuBuilder::toggleItemShowsTheIconOfItsFace_data()
{
    QTest::addColumn<bool>("isActive");
    QTest::newRow("active") << true;
    QTest::newRow("inactive") << false;
}

void TestMenuBuilder::toggleItemShowsTheIconOfItsFace()
{
    QFETCH(bool, isActive);
    const QTemporaryDir folder;
    const QString red = folder.filePath(QStringLiteral("red.png"));
    const QString small = folder.filePath(QStringLiteral("small.png"));
    QVERIFY(squareIcon(32).pixmap(32).save(red) && squareIcon(8).pixmap(8).save(small));
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonIconOnly);
    const auto spec = QSharedPointer<AppMenuToggleItemSpecifier>::create();
    spec->isActive = isActive;
    spec->activeIcon = red;
    spec->inactiveIcon = small;
    QVERIFY(bar.AddMenuBarToggleItem(File, spec, {}, {}));
    const auto button = bar.GetMenuBarItem(File);
    QCOMPARE(button->iconSize(), isActive ? QSize(32, 32) : QSize(8, 8));
    // The face stays until the caller changes it.
    spec->isActive = !isActive;
    QCOMPARE(button->iconSize(), isActive ? QSize(32, 32) : QSize(8, 8));
    QVERIFY(!bar.AddMenuBarToggleItem(File, spec, {}, {}));
}

void TestMenuBuilder::sizeHelpersGiveTheBarAWidth()
{
    QMainWindow window;
    Bar bar(&window);
    bar.state().SetMenuBarIconOnlySizePolicy(QSize(20, 10));
    QCOMPARE(bar.minimumWidth(), 24);
    bar.state().SetMenuBarIconOnlySizePolicy(QSize(30, 0));
    QCOMPARE(bar.minimumWidth(), 24);
    bar.state().SetMenuBarTextOnlySizePolicy(77);
    QCOMPARE(bar.minimumWidth(), 77);
}

void TestMenuBuilder::lengthsThatNoWidgetCanHaveAreCutOff()
{
    const int tooMuch = std::numeric_limits<int>::max();
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(Edit));
    QVERIFY(bar.AddDropDownMenu(Edit, {nullptr}, nullptr));
    bar.setFixedMenuWidth(Edit, tooMuch);
    QCOMPARE(bar.GetMenuBarItem(Edit)->minimumWidth(), QWIDGETSIZE_MAX - 1);
    bar.setFixedMenuWidth(Edit, -7);
    QCOMPARE(bar.menu(Edit)->minimumWidth(), bar.GetMenuBarItem(Edit)->width());
    QVERIFY(bar.AddMenuBarToggleTextItem(File, {}, {}, nullptr, tooMuch));
    QVERIFY(bar.AddSeparator(false, tooMuch));
    bar.state().SetMenuBarTextOnlySizePolicy(tooMuch);
    bar.state().SetMenuBarTextOnlySizePolicy(-1);
    QCOMPARE(bar.minimumWidth(), 0);
    QVERIFY(bar.AddMenuBarToggleTextItem(QStringLiteral("flat"), {}, {}, nullptr, -1));
    QCOMPARE(bar.GetMenuBarItem(QStringLiteral("flat"))->maximumHeight(), 0);
}

void TestMenuBuilder::itemIsEnabledByItsText()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File) && bar.add(Edit));
    bar.SetButtonEnabled(File, false);
    QVERIFY(!bar.GetMenuBarItem(File)->isEnabled());
    QVERIFY(bar.GetMenuBarItem(Edit)->isEnabled());
    bar.SetButtonEnabled(File, true);
    QVERIFY(bar.GetMenuBarItem(File)->isEnabled());
}

void TestMenuBuilder::filterWatchesItemsAndTheirMenus()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File) && bar.add(Edit));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    bar.Start();
    EventNotes notes;
    bar.InstallEventFilter(&notes);
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(bar.GetMenuBarItem(Edit).data(), &event);
    QCoreApplication::sendEvent(bar.menu(File), &event);
    QCOMPARE(notes.watched, (QList<QObject *> {bar.GetMenuBarItem(Edit).data(), bar.menu(File)}));
    bar.InstallEventFilter(nullptr);
}

void TestMenuBuilder::iconsHaveANameForAssistiveTools()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonIconOnly);
    QVERIFY(bar.AddMenuBarItem(QStringLiteral("&File"), squareIcon(8), {}, {}, {}));
    const auto button = bar.GetMenuBarItem(QStringLiteral("&File"));
    QCOMPARE(QAccessible::queryAccessibleInterface(button.data())->text(QAccessible::Name), File);
}

void TestMenuBuilder::specifiersFillAMenu()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"), SLOT(hide())), entry({}),
                                       entry(QStringLiteral("b"))};
    specs[0].shortcut = QKeySequence(Qt::CTRL + Qt::Key_O);
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QCOMPARE(texts(bar.menu(File)), list("a - b"));
    QAction *action = bar.FindAction(File, QStringLiteral("a"));
    QCOMPARE(action->shortcut(), specs[0].shortcut);
    window.show();
    action->trigger();
    QVERIFY(!window.isVisible());
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QCOMPARE(texts(bar.menu(File)), list("a - b a - b"));
}

void TestMenuBuilder::emptyListStillStylesAndLinksAMenu()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QList<AppMenuItemSpecifier> none;
    QVERIFY(bar.AddDropDownMenu(File, none));
    QVERIFY(bar.menu(File));
    QVERIFY(bar.menu(File)->isEmpty());
    QCOMPARE(bar.menu(File)->styleSheet(), Styles::Instance().MenuMain());
    QCOMPARE(bar.menu(File)->focusPolicy(), Qt::NoFocus);
    bar.Start();
    QCOMPARE(bar.GetMenuBarItem(File)->menu(), bar.menu(File));
}

void TestMenuBuilder::nullActionsAreSeparators()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QAction first(QStringLiteral("a"));
    QAction second(QStringLiteral("b"));
    QVERIFY(bar.AddDropDownMenu(File, {&first, nullptr, &second}, nullptr));
    QCOMPARE(texts(bar.menu(File)), list("a - b"));
}

void TestMenuBuilder::actionsStandBeforeAnother()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QAction first(QStringLiteral("a"));
    QAction second(QStringLiteral("b"));
    QVERIFY(bar.AddDropDownMenu(File, {&second}, nullptr));
    QVERIFY(bar.AddDropDownMenu(File, {&first, nullptr}, &second));
    QCOMPARE(texts(bar.menu(File)), list("a - b"));
}

void TestMenuBuilder::subMenuNeedsAMenu()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a")), entry({})};
    QVERIFY(!bar.AddSubMenu(File, Edit, specs));
    QVERIFY(!bar.AddSubMenu(File, Edit, {nullptr}, nullptr, true));
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QVERIFY(bar.AddSubMenu(File, Edit, specs));
    QCOMPARE(texts(bar.state().FindMenu(bar.menu(File), Edit)), list("a -"));
}

void TestMenuBuilder::subMenuIsFoundByItsTitle()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QAction action(QStringLiteral("a"));
    QVERIFY(bar.AddDropDownMenu(File, {&action}, nullptr));
    QVERIFY(bar.AddSubMenu(File, Edit, {nullptr}, nullptr, true));
    QVERIFY(bar.AddSubMenu(File, Edit, {&action}, nullptr, true));
    QCOMPARE(texts(bar.menu(File)), list("a Edit -"));
    QCOMPARE(texts(bar.state().FindMenu(bar.menu(File), Edit)), list("- a"));
    QVERIFY(!bar.state().FindMenu(bar.menu(File), {}));
    QVERIFY(!bar.state().FindMenu(nullptr, Edit));
}

void TestMenuBuilder::subMenuStandsBeforeAnActionWithASeparator()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QAction last(QStringLiteral("z"));
    QVERIFY(bar.AddDropDownMenu(File, {&last}, nullptr));
    QVERIFY(bar.AddSubMenu(File, Edit, {}, &last, true));
    QCOMPARE(texts(bar.menu(File)), list("Edit - z"));
}

void TestMenuBuilder::certainRolesStayOutOfMirrorMenus()
{
    QMainWindow window;
    QMenu mirror;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    bar.state().mirrorMenus[File] = &mirror;
    QList<AppMenuItemSpecifier> specs {
        entry(QStringLiteral("a")), entry(QStringLiteral("b"), nullptr, QAction::AboutRole),
        entry({}), entry(QStringLiteral("c"), nullptr, QAction::QuitRole)};
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QAction preferences(QStringLiteral("d"));
    preferences.setMenuRole(QAction::PreferencesRole);
    QVERIFY(bar.AddDropDownMenu(File, {&preferences}, nullptr));
    QCOMPARE(texts(bar.menu(File)), list("a b - c d"));
    QCOMPARE(texts(&mirror), list("a -"));
    QMenuBar native;
    bar.AppendMenuBarItems(&native);
    bar.AppendMenuBarItems(nullptr);
    QCOMPARE(native.actions(), QList<QAction *> {mirror.menuAction()});
}

void TestMenuBuilder::mirrorMenusGetSubMenusToo()
{
    QMainWindow window;
    QMenu mirror;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    bar.state().mirrorMenus[File] = &mirror;
    QAction last(QStringLiteral("z"));
    QAction deep(QStringLiteral("deep"));
    QAction about(QStringLiteral("about"));
    about.setMenuRole(QAction::AboutRole);
    QVERIFY(bar.AddDropDownMenu(File, {&last}, nullptr));
    QVERIFY(bar.AddSubMenu(File, Edit, {&deep, nullptr, &about}, &last, true));
    QCOMPARE(texts(bar.menu(File)), list("Edit - z"));
    QCOMPARE(texts(&mirror), list("Edit - z"));
    QCOMPARE(texts(bar.state().FindMenu(bar.menu(File), Edit)), list("deep - about"));
    QCOMPARE(texts(bar.state().FindMenu(&mirror, Edit)), list("deep -"));

    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a")), entry({})};
    QVERIFY(bar.AddSubMenu(File, QStringLiteral("More"), specs));
    QCOMPARE(texts(bar.state().FindMenu(bar.menu(File), QStringLiteral("More"))), list("a -"));
    QCOMPARE(texts(bar.state().FindMenu(&mirror, QStringLiteral("More"))), list("a"));
}

void TestMenuBuilder::mirrorMenusKeepTheOrder()
{
    QMainWindow window;
    QMenu mirror;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    bar.state().mirrorMenus[File] = &mirror;
    QAction first(QStringLiteral("a"));
    QAction last(QStringLiteral("z"));
    QVERIFY(bar.AddDropDownMenu(File, {&last}, nullptr));
    QVERIFY(bar.AddDropDownMenu(File, {&first, nullptr}, &last));
    QCOMPARE(texts(&mirror), list("a - z"));
}

void TestMenuBuilder::specifiersNameReceiverAndIcon()
{
    QMainWindow window;
    QWidget receiver;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    AppMenuItemSpecifier spec = entry(QStringLiteral("a"), SLOT(hide()));
    spec.receiver = &receiver;
    spec.iconName = QStringLiteral("icon_close");
    QList<AppMenuItemSpecifier> specs {spec};
    QVERIFY(bar.AddDropDownMenu(File, specs));
    window.show();
    receiver.show();
    QAction *action = bar.FindAction(File, spec.text);
    action->trigger();
    QVERIFY(window.isVisible());
    QVERIFY(!receiver.isVisible());
    QCOMPARE(action->parent(), &bar);
    QCOMPARE(action->menuRole(), QAction::TextHeuristicRole);
}

void TestMenuBuilder::barWatchesTheMenusThatItFills()
{
    struct Watcher : Bar
    {
        using Bar::Bar;
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::User)
                seen << watched;
            return Bar::eventFilter(watched, event);
        }
        QList<QObject *> seen;
    };
    QMainWindow window;
    Watcher bar(&window);
    QVERIFY(bar.add(File) && bar.add(Edit));
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"))};
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QVERIFY(bar.AddDropDownMenu(Edit, {nullptr}, nullptr));
    QVERIFY(bar.AddSubMenu(Edit, QStringLiteral("Sub"), specs));
    QMenu *sub = bar.state().FindMenu(bar.menu(Edit), QStringLiteral("Sub"));
    for (QMenu *menu : {bar.menu(File), bar.menu(Edit), sub}) {
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(menu, &event);
    }
    QCOMPARE(bar.seen, (QList<QObject *> {bar.menu(File), bar.menu(Edit), sub}));
}

void TestMenuBuilder::menusAreNamedByTheirItems()
{
    QMainWindow window;
    Bar bar(&window);
    const QString name = QStringLiteral("&File");
    QVERIFY(bar.add(name));
    QVERIFY(bar.AddDropDownMenu(name, {nullptr}, nullptr));
    QCOMPARE(QAccessible::queryAccessibleInterface(bar.menu(name))->text(QAccessible::Name), File);
}

void TestMenuBuilder::subMenusAreNamedByTheirTitles()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"))};
    QVERIFY(bar.AddSubMenu(File, QStringLiteral("&One"), specs));
    QVERIFY(bar.AddSubMenu(File, QStringLiteral("T&wo"), {nullptr}, nullptr, false));
    const QList<QMenu *> subs = bar.menu(File)->findChildren<QMenu *>();
    const auto nameOf = [](QMenu *sub) {
        return QAccessible::queryAccessibleInterface(sub)->text(QAccessible::Name);
    };
    QCOMPARE(subs.size(), 2);
    QCOMPARE(nameOf(subs.first()), QStringLiteral("One"));
    QCOMPARE(nameOf(subs.last()), QStringLiteral("Two"));
    subs.first()->setTitle(QStringLiteral("&Eins"));
    QCOMPARE(nameOf(subs.first()), QStringLiteral("Eins"));
    subs.last()->setAccessibleName(QStringLiteral("Mine"));
    subs.last()->setTitle(QStringLiteral("&Zwei"));
    QCOMPARE(nameOf(subs.last()), QStringLiteral("Mine"));
}

void TestMenuBuilder::assistiveToolsSeeAndOpenTheMenus_data()
{
    QTest::addColumn<bool>("isHover");
    QTest::newRow("plain") << false;
    QTest::newRow("custom hover") << true;
}

void TestMenuBuilder::assistiveToolsSeeAndOpenTheMenus()
{
    QFETCH(const bool, isHover);
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, isHover);
    const QString name = QStringLiteral("&File");
    QVERIFY(bar.add(name));
    QVERIFY(bar.AddDropDownMenu(name, {nullptr}, nullptr));
    bar.Start();
    window.show();
    bar.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QAccessibleInterface *seen = QAccessible::queryAccessibleInterface(&bar);
    QCOMPARE(seen->role(), QAccessible::MenuBar);
    seen = seen->child(0);
    QCOMPARE(seen->role(), QAccessible::ButtonMenu);
    QCOMPARE(seen->text(QAccessible::Name), File);
    QCOMPARE(seen->text(QAccessible::Accelerator), QStringLiteral("Alt+F"));
    QVERIFY(seen->state().hasPopup && seen->state().collapsed);
    QCOMPARE(seen->childCount(), 1);
    QCOMPARE(seen->child(0)->object(), bar.menu(name));
    QCOMPARE(seen->indexOfChild(seen->child(0)), 0);
    seen->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(!bar.menu(name)->isVisible()); // not within the call
    // In plain mode the menu runs an event loop until it is closed.
    bool wasExpanded = false;
    QTimer::singleShot(0, &bar, [&] {
        wasExpanded = seen->state().expanded;
        bar.menu(name)->hide();
    });
    QTRY_VERIFY(wasExpanded);
    QTRY_VERIFY(!bar.menu(name)->isVisible());
}

void TestMenuBuilder::assistiveToolsPressAnItemWithoutAMenu()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddMenuBarItem(File, {}, {}, {}, {}));
    const auto item = bar.GetMenuBarItem(File);
    const QSignalSpy clicks(item.data(), &QToolButton::clicked);
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(item.data());
    QCOMPARE(seen->role(), QAccessible::Button);
    QVERIFY(!seen->state().hasPopup && !seen->state().expandable);
    QCOMPARE(seen->actionInterface()->actionNames(),
             QStringList(QAccessibleActionInterface::pressAction()));
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(clicks.count(), 1);
    item->setCheckable(true);
    QCOMPARE(seen->role(), QAccessible::CheckBox);
    QCOMPARE(seen->actionInterface()->actionNames(),
             QStringList(QAccessibleActionInterface::toggleAction()));
}

void TestMenuBuilder::assistiveToolsHearOfMenusUnderThePointer()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, true);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    bar.Start();
    const auto item = bar.GetMenuBarItem(File);
    const AccessibleEvents events;
    QVERIFY(events.isPossible());
    bar.menu(File)->show();
    QCOMPARE(events.expansionsOf(item.data()), 1);
    bar.menu(File)->hide();
    QCOMPARE(events.expansionsOf(item.data()), 2);
}

void TestMenuBuilder::itemsAddedToARunningHoverBarOpen()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, true);
    QVERIFY(bar.add(File));
    bar.Start();
    window.show();
    QVERIFY(bar.add(Edit));
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"))};
    QVERIFY(bar.AddDropDownMenu(Edit, specs));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    for (const QString &name : {Edit, File}) {
        QEvent enter(QEvent::Enter);
        QCoreApplication::sendEvent(bar.GetMenuBarItem(name).data(), &enter);
        QVERIFY(bar.menu(name)->isVisible());
    }
    QVERIFY(!bar.menu(Edit)->isVisible());
    QVERIFY(bar.AddSubMenu(Edit, QStringLiteral("Sub"), specs));
    QTimer *timer = bar.state().menuManager->findChild<QTimer *>();
    timer->stop();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(bar.state().FindMenu(bar.menu(Edit), QStringLiteral("Sub")),
                                &leave);
    QVERIFY(timer->isActive());
}

void TestMenuBuilder::menusAddedWithTheirActionsAreWatched()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, true);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    bar.Start();
    QMenu own;
    QVERIFY(bar.AddDropDownMenu(File, {own.menuAction()}, nullptr));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&own, &leave);
    QVERIFY(bar.state().menuManager->findChild<QTimer *>()->isActive());
}

void TestMenuBuilder::aMenuThatStandsInItselfIsWalkedOnce()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, true);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    bar.menu(File)->addAction(bar.menu(File)->menuAction());
    QVERIFY(!bar.FindAction(File, Edit));
    QVERIFY(!bar.state().FindMenu(bar.menu(File), Edit));
    bar.Start();
}

void TestMenuBuilder::subclassesStyleItemsAndMenus()
{
    struct Styled : Bar
    {
        using Bar::Bar;
        void SetMenuBarItemStyle(QSharedPointer<QToolButton> &button, bool) override
        {
            button->setStyleSheet(QStringLiteral("QToolButton { color: red; }"));
        }
        void SetMenuBarItemButtonStyle(QSharedPointer<QToolButton> &, Qt::ToolButtonStyle) override
        {
            ++sizes;
        }
        void SetDropDownMenuStyle(QMenu *menu) override { styled << menu; }
        int sizes = 0;
        QList<QMenu *> styled;
    };
    QMainWindow window;
    Styled bar(&window);
    QVERIFY(bar.add(File));
    QCOMPARE(bar.GetMenuBarItem(File)->styleSheet(), QStringLiteral("QToolButton { color: red; }"));
    bar.SetMenuItemButtonStyle(File, Qt::ToolButtonIconOnly);
    QCOMPARE(bar.sizes, 1);
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"))};
    QVERIFY(bar.AddDropDownMenu(File, specs));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QVERIFY(bar.AddSubMenu(File, QStringLiteral("one"), specs));
    QVERIFY(bar.AddSubMenu(File, QStringLiteral("two"), {nullptr}, nullptr, false));
    QMenu *menu = bar.menu(File);
    QCOMPARE(bar.styled,
             (QList<QMenu *> {menu, menu, bar.state().FindMenu(menu, QStringLiteral("one")),
                              bar.state().FindMenu(menu, QStringLiteral("two"))}));
}

void TestMenuBuilder::appendedItemNeedsAStartedPlainBar()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    AppMenuItemSpecifier spec = entry(QStringLiteral("a"));
    QList<AppMenuItemSpecifier> none;
    QVERIFY(bar.AddDropDownMenu(File, none));
    QVERIFY(!bar.AppendMenuItem(File, spec));
    bar.Start();
    QVERIFY(bar.AppendMenuItem(File, spec));
    QCOMPARE(texts(bar.menu(File)), list("a"));
}

void TestMenuBuilder::changesKeepTheManagerStarted()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    bar.Start();
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QVERIFY(bar.state().menuManager->IsStarted());
    QCOMPARE(bar.GetMenuBarItem(File)->menu(), bar.menu(File));
    QVERIFY(bar.AddSubMenu(File, Edit, {nullptr}, nullptr, false));
    QVERIFY(bar.state().menuManager->IsStarted());
    QCOMPARE(bar.GetMenuBarItem(File)->menu(), bar.menu(File));
}

void TestMenuBuilder::actionsAreFoundInSubMenus()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QAction action(QStringLiteral("deep"));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QVERIFY(bar.AddSubMenu(File, Edit, {&action}, nullptr, false));
    QCOMPARE(bar.FindAction(File, QStringLiteral("deep")), &action);
    QVERIFY(!bar.FindAction(File, QStringLiteral("Deep")));
    QVERIFY(!bar.FindAction(File, {}));
}

void TestMenuBuilder::fixedMenuWidthIsAtLeastThatOfTheItem()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    const auto button = bar.GetMenuBarItem(File);
    bar.setFixedMenuWidth(File, 0);
    QCOMPARE(bar.menu(File)->minimumWidth(), button->width());
    QCOMPARE(bar.menu(File)->maximumWidth(), button->width());
    bar.setFixedMenuWidth(File, 333);
    QCOMPARE(button->minimumWidth(), 333);
    QCOMPARE(bar.menu(File)->maximumWidth(), 333);
}

void TestMenuBuilder::hidingTheBarHidesOpenMenus()
{
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, true);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    window.show();
    bar.menu(File)->show();
    bar.HideMe();
    QVERIFY(!bar.menu(File)->isVisible());
    QVERIFY(!bar.isVisible());
}

void TestMenuBuilder::openMenusAreSeenInPlainMode()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QVERIFY(bar.CanHide());
    bar.Start();
    window.resize(300, 200);
    window.show();
    QCursor::setPos(window.mapToGlobal(QPoint(290, 190)));
    QVERIFY(bar.CanHide());
    QVERIFY(!bar.IsMenuVisible());
    bar.menu(File)->show();
    QVERIFY(!bar.CanHide());
    QVERIFY(bar.IsMenuVisible());
    bar.menu(File)->hide();
    QCursor::setPos(bar.GetMenuBarItem(File)->mapToGlobal(QPoint(3, 3)));
    QVERIFY(!bar.CanHide());
}

void TestMenuBuilder::anInvisibleItemEndsTheWalks()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(QStringLiteral("a")) && bar.add(QStringLiteral("b")));
    QVERIFY(bar.AddDropDownMenu(QStringLiteral("b"), {nullptr}, nullptr));
    bar.Start();
    window.show();
    bar.menu(QStringLiteral("b"))->show();
    QVERIFY(!bar.CanHide());
    QVERIFY(bar.IsMenuVisible());
    bar.GetMenuBarItem(QStringLiteral("a"))->hide();
    QVERIFY(bar.CanHide());
    QVERIFY(!bar.IsMenuVisible());
}

void TestMenuBuilder::unknownNamesAreRefused()
{
    QMainWindow window;
    Bar bar(&window);
    QList<AppMenuItemSpecifier> specs {entry(QStringLiteral("a"))};
    QVERIFY(!bar.AddDropDownMenu(File, specs));
    QVERIFY(!bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QVERIFY(!bar.AddSubMenu(File, Edit, specs));
    QVERIFY(!bar.AddSubMenu(File, Edit, {nullptr}, nullptr, false));
    QVERIFY(!bar.AppendMenuItem(File, specs[0]));
    QVERIFY(!bar.FindAction(File, Edit));
    QVERIFY(!bar.GetMenuBarItem(File));
    QVERIFY(!bar.GetMenuBarToggleItemSpecifier(File));
    bar.SetButtonEnabled(File, false);
    bar.setFixedMenuWidth(File, 10);
    bar.SetMenuItemButtonStyle(File, Qt::ToolButtonTextOnly);
    bar.SetMenuItemStyleSheet(File, {});
    bar.SetDropDownMenuStyle(nullptr);
    QSharedPointer<QToolButton> none;
    bar.SetMenuBarItemStyle(none, true);
    bar.SetMenuBarItemButtonStyle(none, Qt::ToolButtonIconOnly);
}

void TestMenuBuilder::unknownNameLeavesAnEntryThatWalksSkip()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.add(Edit));
    QVERIFY(!bar.FindAction(File, Edit));
    QVERIFY(bar.CanHide());
    QVERIFY(!bar.IsMenuVisible());
    bar.InstallEventFilter(&window);
    bar.HideMe();
    QPoint position(0, 0);
    bar.SetMenuPosition(position);
    QCOMPARE(bar.width(), 2 * bar.state().itemWidth);
    QVERIFY(!bar.add(File));
}

void TestMenuBuilder::nullSpecifiersAreRefused()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(!bar.AddMenuBarItem(QSharedPointer<AppMenuItemSpecifier>(), {}, {}));
    QVERIFY(!bar.AddMenuBarToggleItem(File, {}, {}, {}));
    QCOMPARE(bar.layout()->count(), 0);
}

void TestMenuBuilder::menuDeletedWhileOpenIsMadeAgain_data()
{
    QTest::addColumn<bool>("customHover");
    QTest::newRow("plain") << false;
    QTest::newRow("hover") << true;
}

void TestMenuBuilder::menuDeletedWhileOpenIsMadeAgain()
{
    QFETCH(bool, customHover);
    QMainWindow window;
    Bar bar(&window, Qt::ToolButtonTextOnly, customHover);
    QVERIFY(bar.add(File));
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    bar.Start();
    window.show();
    bar.menu(File)->show();
    delete bar.menu(File);
    QVERIFY(!bar.menu(File));
    QVERIFY(!bar.IsMenuVisible());
    bar.HideMe();
    QVERIFY(bar.AddDropDownMenu(File, {nullptr}, nullptr));
    QCOMPARE(texts(bar.menu(File)), list("-"));
}

void TestMenuBuilder::deletedItemIsDropped()
{
    QMainWindow window;
    Bar bar(&window);
    QVERIFY(bar.AddMenuBarToggleItem(File, QSharedPointer<AppMenuToggleItemSpecifier>::create(), {},
                                     {}));
    delete bar.GetMenuBarItem(File).data();
    QVERIFY(!bar.GetMenuBarItem(File));
    QVERIFY(bar.state().toggleSpecifiers.isEmpty());
    QVERIFY(bar.add(File));
}

void TestMenuBuilder::itemsHeldByOthersEndWithTheBar()
{
    QMainWindow window;
    auto bar = std::make_unique<Bar>(&window);
    QVERIFY(bar->add(File));
    QSharedPointer<QToolButton> held = bar->GetMenuBarItem(File);
    const QPointer<QToolButton> button(held.data());
    QVERIFY(bar->add(Edit));
    const QPointer<QToolButton> elsewhere(bar->GetMenuBarItem(Edit).data());
    elsewhere->setParent(&window);
    bar.reset();
    QVERIFY(!button);
    QVERIFY(!elsewhere);
    held.clear();
}

void TestMenuBuilder::barWithoutInitializeRefusesEverything()
{
    struct Late : MenuBuilder
    {
        Late()
            : MenuBuilder(*new MenuBuilderPrivate({}, nullptr, nullptr, Qt::ToolButtonTextOnly, {}),
                          nullptr)
        { }
    } bar;
    QVERIFY(!bar.AddMenuBarItem(File, {}, {}, {}, {}));
    QVERIFY(!bar.AddSeparator(true, 3));
    bar.Start();
    bar.Initialize(false);
    bar.Initialize(false);
    QVERIFY(bar.AddMenuBarItem(File, {}, {}, {}, {}));
    QVERIFY(!bar.GetMainWindow());
}

void TestMenuBuilder::lateInitializeMakesTheSameBar()
{
    struct Late : MenuBuilder
    {
        explicit Late(QMainWindow *window)
            : MenuBuilder(*new MenuBuilderPrivate(File, window, window, Qt::ToolButtonTextOnly, {}),
                          window)
        {
            MenuBuilder::Initialize(true);
        }
    };
    QMainWindow window;
    Late bar(&window);
    QCOMPARE(bar.objectName(), File);
    QCOMPARE(bar.focusPolicy(), Qt::NoFocus);
    QCOMPARE(bar.GetMainWindow(), &window);
    QVERIFY(bar.layout());
    QVERIFY(bar.findChild<LumoMenuManager *>()->findChild<QTimer *>());
}

void TestMenuBuilder::itemWithAnotherTextGetsRoomForIt()
{
    QMainWindow window;
    Bar bar(&window);
    bar.add(File);
    bar.add(Edit);
    QPoint corner;
    bar.SetMenuPosition(corner);
    window.show();
    QCoreApplication::processEvents();
    const int before = bar.width();
    QToolButton *const item = bar.GetMenuBarItem(Edit).data();
    item->setText(QStringLiteral("Alles in diesem Fenster bearbeiten"));
    QTRY_COMPARE(bar.width(), 2 * item->sizeHint().width());
    QVERIFY(bar.width() > before);
    QTRY_VERIFY(item->width() >= item->sizeHint().width());
    QCOMPARE(bar.GetMenuBarItem(Edit).data(), item);
}

void TestMenuBuilder::menuTakesTheNewTextOfItsItem()
{
    QMainWindow window;
    Bar bar(&window);
    bar.add(File);
    QAction open(QStringLiteral("Open"));
    bar.AddDropDownMenu(File, {&open}, nullptr);
    QCOMPARE(bar.menu(File)->accessibleName(), File);
    bar.GetMenuBarItem(File)->setText(QStringLiteral("&Datei"));
    QTRY_COMPARE(bar.menu(File)->accessibleName(), QStringLiteral("Datei"));
}

void TestMenuBuilder::menuKeepsTheNameOfTheHost()
{
    QMainWindow window;
    Bar bar(&window);
    bar.add(File);
    QAction open(QStringLiteral("Open"));
    bar.AddDropDownMenu(File, {&open}, nullptr);
    bar.menu(File)->setAccessibleName(QStringLiteral("Files of the mesh"));
    bar.GetMenuBarItem(File)->setText(QStringLiteral("&Datei"));
    QCoreApplication::processEvents();
    QCOMPARE(bar.menu(File)->accessibleName(), QStringLiteral("Files of the mesh"));
}

LUMO_TEST_MAIN(TestMenuBuilder)
#include "tst_menubuilder.moc"
