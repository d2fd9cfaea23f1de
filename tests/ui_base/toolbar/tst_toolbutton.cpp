// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ToolButton>

#include "support/eventloop.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "support/virtualorder.h"
#include "ui_base/command/testcommand.h"
#include "ui_base/popup/widgetposcalculator.h"
#include "ui_base/qtui/tooltip/tooltipmanager.h"
#include "ui_base/qtui/tooltip/tooltipobject.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbutton_p.h"

#include <lumo_common_res/Styles>

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QIconEngine>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>

#include <functional>
#include <vector>

using Lumo::Test::TestCommand;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::EArrowPosition;
using Vela::UiBase::EDirection;
using Vela::UiBase::EWidgetsAlign;
using Vela::UiBase::ToolBar;
using Vela::UiBase::ToolButton;
using Vela::UiBase::ToolButtonPrivate;
using Vela::UiBase::TooltipManager;
using Vela::UiBase::TooltipObject;
using Vela::UiBase::WidgetPosCalculator;

namespace {

const QSize iconSize(24, 24);

QPixmap pictureOf(const QColor &color, const QSize &size = iconSize)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

/// Green under the pointer and red at rest.
QIcon twoPictures(const QSize &size = iconSize)
{
    QIcon icon(pictureOf(Qt::red, size));
    icon.addPixmap(pictureOf(Qt::green, size), QIcon::Active);
    return icon;
}

/// What the button shows in the middle of its icon.
QColor shownBy(const ToolButton &button)
{
    const QPixmap pixmap = button.icon().pixmap(button.iconSize());
    return pixmap.isNull() ? QColor() : pixmap.toImage().pixelColor(pixmap.rect().center());
}

/// Keeps the mouse events that it gets.
class RecordingBar : public ToolBar
{
public:
    using ToolBar::ToolBar;

    struct SMouse
    {
        QEvent::Type type;
        QPoint pos;
        QPoint globalPos;
        Qt::MouseButton button;
        Qt::KeyboardModifiers modifiers;
    };
    std::vector<SMouse> events;

protected:
    bool event(QEvent *event) override
    {
        if (dynamic_cast<QMouseEvent *>(event)) {
            auto *const mouse = static_cast<QMouseEvent *>(event);
            events.push_back({mouse->type(), mouse->pos(), mouse->globalPos(), mouse->button(),
                              mouse->modifiers()});
        }
        return ToolBar::event(event);
    }
};

class OpenPrivate : public ToolButtonPrivate
{
public:
    bool hasMenu() const override { return opensMenu; }
    bool opensMenu = false;
};

/// Opens what subclasses see and counts what they are called for.
class OpenButton : public ToolButton
{
public:
    OpenButton(QAction *action, ToolBar *bar, QWidget *parent)
        : ToolButton(*new OpenPrivate, action, bar, parent)
    { }
    void ClickedHandler() override
    {
        ++handled;
        requestedWhenHandled = ClickedHandlerRequested();
    }
    OpenPrivate *opened() { return static_cast<OpenPrivate *>(d_ptr.get()); }
    int handled = 0;
    bool requestedWhenHandled = false;
};

class Handler : public ToolButton::IToolButtonCallbackHandler
{
public:
    bool IsActionEnabled(QAction *action) override
    {
        asked << action;
        if (whenAsked)
            whenAsked();
        return answer;
    }
    bool answer = true;
    std::function<void()> whenAsked;
    QVector<QAction *> asked;
};

/// A shown window with a bar, a button on it and room beside both.
class Scene
{
public:
    Scene()
    {
        window.resize(200, 100);
        bar.move(10, 5);
        action.setIcon(twoPictures());
        button.setIconSize(iconSize);
        button.setGeometry(30, 30, 36, 36);
        button.setObjectName(QStringLiteral("button"));
        window.show();
        // The screen asks what is under the pointer only once the window is there.
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("The window does not come up.");
        moveAway();
    }

    void hover() { moveTo(button.mapToGlobal(button.rect().center())); }
    void moveAway() { moveTo(window.mapToGlobal(QPoint(195, 95))); }
    void moveTo(const QPoint &global)
    {
        QCursor::setPos(global);
        QCoreApplication::processEvents();
    }
    void click() { QTest::mouseClick(&button, Qt::LeftButton); }

    QAction action {QStringLiteral("Smooth")};
    QWidget window;
    RecordingBar bar {&window, Qt::TopToolBarArea};
    OpenButton button {&action, &bar, &window};
};

/// The widget as it paints itself, without what Qt fills beneath.
QImage paintedOf(QWidget &widget)
{
    QImage image(widget.size() * widget.devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(widget.devicePixelRatioF());
    image.fill(Qt::transparent);
    widget.render(&image, {}, {}, QWidget::RenderFlags());
    return image;
}

/// A shown bar with several buttons that are alike, the first of which Qt has polished.
class Row
{
public:
    Row()
    {
        window.resize(400, 100);
        for (int i = 0; i < 5; ++i) {
            auto *const action = new QAction(QStringLiteral("Tool %1").arg(i), &window);
            action->setIcon(twoPictures());
            buttons << bar.AddAction(action,
                                     i == 4 ? QStringLiteral("views") : QStringLiteral("tools"));
            buttons.last()->setObjectName(QStringLiteral("button%1").arg(i));
        }
        QCursor::setPos(window.mapToGlobal(QPoint(395, 95)));
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("The window does not come up.");
    }

    QImage picture(int index) { return paintedOf(*buttons[index]); }

    QWidget window;
    ToolBar bar {&window, Qt::TopToolBarArea};
    QList<ToolButton *> buttons;
};

/// Sets the sheet of the application for as long as it lives.
class ApplicationSheet
{
public:
    explicit ApplicationSheet(const QString &sheet) { qApp->setStyleSheet(sheet); }
    ~ApplicationSheet() { qApp->setStyleSheet(QString()); }
    Q_DISABLE_COPY(ApplicationSheet)
};

/// Counts the events of some types that objects get.
class EventCounter : public QObject
{
public:
    explicit EventCounter(QVector<QEvent::Type> types)
        : m_types(std::move(types))
    { }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (m_types.contains(event->type()))
            ++count;
        return false;
    }
    int count = 0;

private:
    QVector<QEvent::Type> m_types;
};

} // namespace

class TestToolButton : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void virtualsStandInTheOrderOfHosts();
    void newButtonHasItsDefaults();
    void buttonShowsItsAction();
    void buttonThatMissesActionOrBarIsBare_data();
    void buttonThatMissesActionOrBarIsBare();
    void actionThatDiesIsForgotten();
    void accessibleNameComesFromTheAction_data();
    void accessibleNameComesFromTheAction();
    void accessibleNameFollowsTheAction();
    void accessibleNameOfTheHostStays();

    void iconOfTwoFilesHasTwoPictures();
    void iconOfFilesThatAreMissing_data();
    void iconOfFilesThatAreMissing();
    void madeActionCallsItsReceiver();
    void madeActionWithoutReceiverIsInert();
    void madeActionTakesItsIconFromFiles();

    void pointerSwitchesBetweenThePictures();
    void checkedButtonKeepsTheActivePicture();
    void disabledButtonShowsThePictureAtRest();
    void iconStateAsksForAPicture();
    void uncheckingShowsThePictureThatThePointerAsksFor();
    void checkingLeavesThePictureAlone();
    void otherChangesOfTheActionLeaveThePictureAlone();
    void newIconOfTheActionIsShown();
    void pictureFollowsTheActionThatIsEnabled_data();
    void pictureFollowsTheActionThatIsEnabled();
    void buttonWithoutIconStaysWithoutOne();
    void pictureAtRestStandsInForAMissingActiveOne();
    void newIconSizeMakesBothPicturesTheSame();
    void freshIconOfTheNewSizeKeepsTwoPictures();
    void iconOfAnotherSizeThanItsRoomKeepsTwoPictures_data();
    void iconOfAnotherSizeThanItsRoomKeepsTwoPictures();
    void pictureStaysInItsPlaceUnderThePointer_data();
    void pictureStaysInItsPlaceUnderThePointer();
    void preparedPicturesAreCrisp();
    void pinnedIconIgnoresThePointer();
    void hoveringPreparesEachButtonOnce();
    void movingOverAButtonPaintsItOnce();

    void checkedButtonIsPaintedWithTheActivePicture_data();
    void checkedButtonIsPaintedWithTheActivePicture();
    void plainPaintingLooksLikeThatOfTheStyleSheet_data();
    void plainPaintingLooksLikeThatOfTheStyleSheet();
    void otherSheetIsPaintedToo_data();
    void otherSheetIsPaintedToo();

    void everyButtonIsPolishedLikeOneByItself_data();
    void everyButtonIsPolishedLikeOneByItself();
    void anyButtonMayBeTheFirstOfItsState();
    void sheetOfOneButtonLeavesTheOthersAlone();
    void laterSheetStartsFromThePaletteOfBefore();
    void sheetOfTheApplicationMayTellButtonsApart_data();
    void sheetOfTheApplicationMayTellButtonsApart();
    void sheetOfTheApplicationMayChangeMoreThanTheLook_data();
    void sheetOfTheApplicationMayChangeMoreThanTheLook();
    void otherStyleOfTheApplicationReachesEveryButton();
    void childOfAButtonHasItsStyle();

    void tooltipComesAndGoesWithThePointer();
    void tooltipIsMadeWhenItIsNeeded();
    void tooltipHasTheTextOfTheAction();
    void tooltipStandsInTheGroupOfItsBar();
    void tooltipWindowHasABorderAndStandsBesideTheButton();
    void tooltipParametersAreTakenOver_data();
    void tooltipParametersAreTakenOver();
    void tooltipIsRaised();
    void bareButtonHasNoTooltip();
    void lockedButtonHasItsTooltipDisabled();
    void buttonThatDiesTakesItsTooltipAlong();

    void mouseEventsReachTheBarLater();
    void clickTriggersTheActionAndIsHandled();
    void clickOnTheWayIsTold();
    void releaseOutsideLeavesNoMark();
    void handlerIsSuppressedOnce();
    void lockedButtonIsDeafButItsBarHears();
    void unlockedButtonIsClickedAgain();
    void pressedButtonIsLiftedByTheLock();
    void clickMayDeleteTheButton_data();
    void clickMayDeleteTheButton();

    void handlersDecideWhetherTheActionIsEnabled();
    void firstRefusalEndsTheAsking();
    void handlerRegisteredTwiceIsAskedTwice();
    void buttonWithoutHandlersStaysAsItIs();
    void emptyListOfHandlersEnables();
    void missingHandlerOrActionIsIgnored();
    void handlersOfADeadActionAreForgotten();
    void askedHandlerMayDeleteEverything();
    void buttonStandsForItsActionOnly();
};

void TestToolButton::virtualsStandInTheOrderOfHosts()
{
    QVERIFY(Lumo::Test::standInThisOrder(&ToolButton::SetExtendMode, &ToolButton::ClickedHandler,
                                         &ToolButton::EnableActions,
                                         &ToolButton::IsActionAssociated));
}

void TestToolButton::newButtonHasItsDefaults()
{
    const ToolButton button(nullptr);
    QVERIFY(button.hasMouseTracking());
    QVERIFY(button.testAttribute(Qt::WA_ShowWithoutActivating));
    QCOMPARE(button.focusPolicy(), Qt::NoFocus);
    QCOMPARE(button.menu(), nullptr);
    QCOMPARE(button.sizePolicy().horizontalPolicy(), QSizePolicy::MinimumExpanding);
    QCOMPARE(button.sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    QVERIFY(!button.isCheckable());
    QVERIFY(!button.isChecked());
    QCOMPARE(button.styleSheet(), Vela::Resource::Styles::Instance().ToolButtonOnToolPalette());
    QCOMPARE(button.font().family(), QStringLiteral("Arial"));
    QCOMPARE(button.font().pixelSize(), 12);
    QCOMPARE(ToolButton::COMMANDID_PROPERTY, QStringLiteral("CMDID_PROP"));
    QVERIFY(!button.ClickedHandlerRequested());
}

void TestToolButton::buttonShowsItsAction()
{
    Scene scene;
    scene.action.setCheckable(true);
    QCOMPARE(scene.button.Action(), &scene.action);
    QCOMPARE(scene.button.defaultAction(), &scene.action);
    QCOMPARE(scene.button.actions(), QList<QAction *>() << &scene.action);
    QVERIFY(scene.button.isCheckable());
    scene.action.setEnabled(false);
    QVERIFY(!scene.button.isEnabled());
}

void TestToolButton::buttonThatMissesActionOrBarIsBare_data()
{
    QTest::addColumn<bool>("withAction");
    QTest::addColumn<bool>("withBar");
    QTest::newRow("action without bar") << true << false;
    QTest::newRow("bar without action") << false << true;
    QTest::newRow("neither") << false << false;
}

void TestToolButton::buttonThatMissesActionOrBarIsBare()
{
    QFETCH(bool, withAction);
    QFETCH(bool, withBar);
    QAction action(QStringLiteral("Smooth"));
    RecordingBar bar(nullptr, Qt::TopToolBarArea);
    ToolButton button(withAction ? &action : nullptr, withBar ? &bar : nullptr, nullptr);
    QCOMPARE(button.Action(), nullptr);
    QCOMPARE(button.defaultAction(), nullptr);
    QVERIFY(button.actions().isEmpty());
    QTest::mouseClick(&button, Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(bar.events.empty());
    button.EnableActions();
    QVERIFY(button.isEnabled());
}

void TestToolButton::actionThatDiesIsForgotten()
{
    ToolBar bar(nullptr, Qt::TopToolBarArea);
    auto action = std::make_unique<QAction>(QStringLiteral("Smooth"));
    ToolButton button(action.get(), &bar, &bar);
    action.reset();
    QCOMPARE(button.Action(), nullptr);
    button.EnableActions();
    button.click();
}

void TestToolButton::accessibleNameComesFromTheAction_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("tooltip");
    QTest::addColumn<QString>("name");
    QTest::newRow("text") << "&Smooth..."
                          << "<b>Smooths</b>"
                          << "Smooth";
    QTest::newRow("tooltip") << ""
                             << "<b>Smooths</b> it"
                             << "Smooths it";
    QTest::newRow("id") << ""
                        << ""
                        << "cmd.smooth";
}

void TestToolButton::accessibleNameComesFromTheAction()
{
    QFETCH(QString, text);
    QFETCH(QString, tooltip);
    const auto command = std::make_shared<TestCommand>(QStringLiteral("cmd.smooth"));
    command->setText(text);
    command->setToolTip(tooltip);
    ToolBar bar(nullptr, Qt::TopToolBarArea);
    const ToolButton button(command.get(), &bar, &bar);
    QTEST(button.accessibleName(), "name");
    QCOMPARE(command->text(), text);
}

void TestToolButton::accessibleNameFollowsTheAction()
{
    Scene scene;
    QCOMPARE(scene.button.accessibleName(), QStringLiteral("Smooth"));
    scene.action.setText(QStringLiteral("Flip"));
    QCOMPARE(scene.button.accessibleName(), QStringLiteral("Flip"));
}

void TestToolButton::accessibleNameOfTheHostStays()
{
    Scene scene;
    scene.button.setAccessibleName(QStringLiteral("Mine"));
    scene.action.setText(QStringLiteral("Flip"));
    QCOMPARE(scene.button.accessibleName(), QStringLiteral("Mine"));
}

void TestToolButton::iconOfTwoFilesHasTwoPictures()
{
    const QString normal = QStringLiteral(":/resources/images/cmd_pan_normal.png");
    const QString active = QStringLiteral(":/resources/images/cmd_measure_normal.png");
    const QIcon icon = ToolButton::CreateToolButtonIcon(normal, active);
    const auto shown = [&](QIcon::Mode mode) {
        return icon.pixmap(iconSize, mode, QIcon::On).toImage();
    };
    const QIcon alone = ToolButton::CreateToolButtonIcon(normal, QString());
    QVERIFY(!icon.availableSizes(QIcon::Normal, QIcon::On).isEmpty());
    QVERIFY(!icon.availableSizes(QIcon::Active, QIcon::On).isEmpty());
    QVERIFY(icon.availableSizes(QIcon::Normal, QIcon::Off).isEmpty());
    QVERIFY(shown(QIcon::Normal) != shown(QIcon::Active));
    QVERIFY(!alone.availableSizes(QIcon::Active, QIcon::On).isEmpty());
    QCOMPARE(alone.pixmap(iconSize, QIcon::Active, QIcon::On).toImage(), shown(QIcon::Normal));
}

void TestToolButton::iconOfFilesThatAreMissing_data()
{
    QTest::addColumn<QString>("normal");
    QTest::addColumn<QString>("active");
    QTest::addColumn<bool>("isNull");
    const QString file = QStringLiteral(":/resources/images/cmd_pan_normal.png");
    QTest::newRow("both empty") << QString() << QString() << true;
    QTest::newRow("active only") << QString() << file << false;
    QTest::newRow("no such file") << QStringLiteral(":/none.png") << QString() << true;
}

void TestToolButton::iconOfFilesThatAreMissing()
{
    QFETCH(QString, normal);
    QFETCH(QString, active);
    const QIcon icon = ToolButton::CreateToolButtonIcon(normal, active);
    QTEST(icon.isNull(), "isNull");
    QVERIFY(icon.availableSizes(QIcon::Normal, QIcon::On).isEmpty());
    QCOMPARE(icon.availableSizes(QIcon::Active, QIcon::On).isEmpty(), icon.isNull());
}

void TestToolButton::madeActionCallsItsReceiver()
{
    QWidget parent;
    QAction receiver;
    receiver.setCheckable(true);
    QAction *const action =
        ToolButton::CreateToolButtonAction(&parent, QStringLiteral("Smooth"), twoPictures(),
                                           QStringLiteral("Smooths"), &receiver, SLOT(toggle()));
    QCOMPARE(action->parent(), &parent);
    QCOMPARE(action->text(), QStringLiteral("Smooth"));
    QCOMPARE(action->toolTip(), QStringLiteral("Smooths"));
    QVERIFY(!action->icon().isNull());
    action->trigger();
    QVERIFY(receiver.isChecked());
}

void TestToolButton::madeActionWithoutReceiverIsInert()
{
    QWidget parent;
    QAction receiver;
    for (QObject *const object :
         {static_cast<QObject *>(nullptr), static_cast<QObject *>(&receiver)}) {
        const QAction *const action = ToolButton::CreateToolButtonAction(
            &parent, QStringLiteral("Smooth"), QIcon(), QString(), object,
            object ? nullptr : SLOT(toggle()));
        QVERIFY(!action->isCheckable());
        QVERIFY(!action->isChecked());
        QCOMPARE(action->toolTip(), QStringLiteral("Smooth"));
    }
}

void TestToolButton::madeActionTakesItsIconFromFiles()
{
    const QString file = QStringLiteral(":/resources/images/cmd_pan_normal.png");
    const std::unique_ptr<QAction> action(ToolButton::CreateToolButtonAction(
        nullptr, QStringLiteral("Pan"), file, QString(), QString(), nullptr, nullptr));
    QVERIFY(!action->icon().availableSizes(QIcon::Active, QIcon::On).isEmpty());
}

void TestToolButton::pointerSwitchesBetweenThePictures()
{
    Scene scene;
    QVERIFY(!scene.button.Hovered());
    scene.hover();
    QVERIFY(scene.button.Hovered());
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.moveAway();
    QVERIFY(!scene.button.Hovered());
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::checkedButtonKeepsTheActivePicture()
{
    Scene scene;
    scene.action.setCheckable(true);
    scene.hover();
    scene.action.setChecked(true);
    scene.moveAway();
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
}

void TestToolButton::disabledButtonShowsThePictureAtRest()
{
    Scene scene;
    scene.action.setCheckable(true);
    scene.action.setChecked(true);
    scene.hover();
    scene.button.setEnabled(false);
    scene.moveAway();
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
    scene.hover();
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::iconStateAsksForAPicture()
{
    Scene scene;
    scene.button.IconState(true);
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.button.IconState(false);
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
    scene.button.IconState(true);
    scene.button.setEnabled(false);
    scene.button.IconState(true);
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::uncheckingShowsThePictureThatThePointerAsksFor()
{
    Scene scene;
    ToolButton button(&scene.bar);
    button.setCheckable(true);
    button.setIconSize(iconSize);
    button.setIcon(twoPictures());
    button.setChecked(true);
    button.IconState(true);
    button.setChecked(false);
    QCOMPARE(shownBy(button), QColor(Qt::red));
}

void TestToolButton::checkingLeavesThePictureAlone()
{
    ToolButton button(nullptr);
    button.setCheckable(true);
    button.setIconSize(iconSize);
    button.setIcon(twoPictures());
    button.IconState(true);
    button.setChecked(true);
    QCOMPARE(shownBy(button), QColor(Qt::green));
}

void TestToolButton::otherChangesOfTheActionLeaveThePictureAlone()
{
    Scene scene;
    scene.action.setCheckable(true);
    scene.hover();
    scene.click();
    QVERIFY(scene.action.isChecked());
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.action.setText(QStringLiteral("Flip"));
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.click();
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.action.setChecked(true);
    scene.moveAway();
    scene.action.setChecked(false);
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::newIconOfTheActionIsShown()
{
    Scene scene;
    scene.hover();
    scene.action.setIcon(pictureOf(Qt::blue));
    QCOMPARE(shownBy(scene.button), QColor(Qt::blue));
    scene.action.setText(QStringLiteral("Flip"));
    QCOMPARE(shownBy(scene.button), QColor(Qt::blue));
}

void TestToolButton::pictureFollowsTheActionThatIsEnabled_data()
{
    QTest::addColumn<bool>("byAction");
    QTest::newRow("the action") << true;
    QTest::newRow("the button alone") << false;
}

void TestToolButton::pictureFollowsTheActionThatIsEnabled()
{
    QFETCH(bool, byAction);
    Scene scene;
    const auto setEnabled = [&](bool enabled) {
        byAction ? scene.action.setEnabled(enabled) : scene.button.setEnabled(enabled);
    };
    scene.hover();
    setEnabled(false);
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
    setEnabled(true);
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    setEnabled(false);
    scene.moveAway();
    setEnabled(true);
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::buttonWithoutIconStaysWithoutOne()
{
    Scene scene;
    scene.action.setIcon(QIcon());
    scene.hover();
    scene.moveAway();
    scene.button.IconState(true);
    QVERIFY(scene.button.icon().isNull());
    QVERIFY(!scene.button.opened()->activeIcon);
    QVERIFY(!scene.button.opened()->normalIcon);
}

void TestToolButton::pictureAtRestStandsInForAMissingActiveOne()
{
    class RestOnly : public QIconEngine
    {
    public:
        void paint(QPainter *, const QRect &, QIcon::Mode, QIcon::State) override { }
        QIconEngine *clone() const override { return new RestOnly; }
        QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
        {
            return mode == QIcon::Normal ? pictureOf(Qt::red, size) : QPixmap();
        }
    };
    Scene scene;
    scene.action.setIcon(QIcon(new RestOnly));
    scene.hover();
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
}

void TestToolButton::newIconSizeMakesBothPicturesTheSame()
{
    Scene scene;
    scene.hover();
    scene.button.setIconSize(QSize(16, 16));
    scene.moveAway();
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
    scene.hover();
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
}

void TestToolButton::freshIconOfTheNewSizeKeepsTwoPictures()
{
    Scene scene;
    scene.hover();
    scene.button.setIconSize(QSize(16, 16));
    scene.button.setIcon(twoPictures());
    scene.moveAway();
    QCOMPARE(shownBy(scene.button), QColor(Qt::red));
    scene.hover();
    QCOMPARE(shownBy(scene.button), QColor(Qt::green));
}

void TestToolButton::iconOfAnotherSizeThanItsRoomKeepsTwoPictures_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("smaller") << QSize(16, 16) << QSize(16, 16);
    QTest::newRow("flat") << QSize(24, 12) << QSize(24, 12);
    QTest::newRow("larger") << QSize(48, 32) << QSize(24, 16);
}

void TestToolButton::iconOfAnotherSizeThanItsRoomKeepsTwoPictures()
{
    QFETCH(QSize, size);
    Scene scene;
    scene.action.setIcon(twoPictures(size));
    for (int pass = 0; pass < 3; ++pass) {
        scene.hover();
        QCOMPARE(shownBy(scene.button), QColor(Qt::green));
        scene.moveAway();
        QCOMPARE(shownBy(scene.button), QColor(Qt::red));
    }
    QTEST(scene.button.icon().actualSize(QSize(300, 300)), "shown");
}

void TestToolButton::pictureStaysInItsPlaceUnderThePointer_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QSize>("size");
    for (const int style :
         {Qt::ToolButtonIconOnly, Qt::ToolButtonTextUnderIcon, Qt::ToolButtonTextBesideIcon}) {
        QTest::addRow("as large as its room, %d", style) << style << iconSize;
        QTest::addRow("smaller, %d", style) << style << QSize(12, 10);
    }
}

void TestToolButton::pictureStaysInItsPlaceUnderThePointer()
{
    QFETCH(int, style);
    QFETCH(QSize, size);
    Scene scene;
    scene.action.setIcon(twoPictures(size));
    scene.action.setCheckable(true);
    scene.button.setToolButtonStyle(Qt::ToolButtonStyle(style));
    scene.button.resize(90, 60);
    const auto placeOf = [&scene](const QColor &color) {
        const QImage image = scene.button.grab().toImage();
        QRect place;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color)
                    place |= QRect(x, y, 1, 1);
            }
        }
        return place;
    };
    const QRect atRest = placeOf(Qt::red);
    QVERIFY(!atRest.isEmpty());
    scene.action.setChecked(true);
    QCOMPARE(placeOf(Qt::green), atRest);
    scene.hover();
    QCOMPARE(placeOf(Qt::green), atRest);
    scene.action.setChecked(false);
    scene.moveAway();
    QCOMPARE(placeOf(Qt::red), atRest);
}

void TestToolButton::preparedPicturesAreCrisp()
{
    Scene scene;
    const qreal ratio = scene.button.devicePixelRatioF();
    scene.action.setIcon(twoPictures(iconSize * 4));
    scene.hover();
    const QList<QSize> sizes = scene.button.icon().availableSizes();
    QCOMPARE(sizes, QList<QSize>() << iconSize);
    QCOMPARE(scene.button.icon().pixmap(QSize(300, 300)).size(), iconSize * ratio);
}

void TestToolButton::pinnedIconIgnoresThePointer()
{
    Scene scene;
    scene.button.opened()->iconPinned = true;
    const qint64 key = scene.button.icon().cacheKey();
    scene.hover();
    QCOMPARE(scene.button.icon().cacheKey(), key);
    scene.moveAway();
    QCOMPARE(scene.button.icon().cacheKey(), key);
}

void TestToolButton::hoveringPreparesEachButtonOnce()
{
    QAction action(QStringLiteral("Smooth"));
    action.setIcon(twoPictures());
    QWidget window;
    ToolBar bar(&window, Qt::TopToolBarArea);
    QVector<OpenButton *> buttons;
    EventCounter restyling(
        {QEvent::StyleChange, QEvent::Polish, QEvent::PolishRequest, QEvent::LayoutRequest});
    for (int i = 0; i < 100; ++i) {
        buttons << new OpenButton(&action, &bar, &window);
        buttons.last()->setFixedSize(3, 20);
        buttons.last()->setIconSize(iconSize);
        // In a row, where the tooltip of one covers no other.
        buttons.last()->move(3 * i, 0);
        buttons.last()->installEventFilter(&restyling);
    }
    window.setGeometry(50, 200, 300, 40);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto passOver = [&] {
        for (const OpenButton *const button : qAsConst(buttons)) {
            QCursor::setPos(button->mapToGlobal(button->rect().center()));
            const TooltipObject *const tooltip = button->GetTooltipObject();
            QVERIFY(Lumo::Test::runLoopUntil([tooltip] { return tooltip->IsVisible(); }));
        }
    };
    QCursor::setPos(window.mapToGlobal(QPoint(100, 30)));
    QCoreApplication::processEvents();
    passOver();
    QVector<std::shared_ptr<QIcon>> prepared;
    for (OpenButton *const button : qAsConst(buttons)) {
        QVERIFY(button->opened()->activeIcon);
        prepared << button->opened()->activeIcon << button->opened()->normalIcon;
    }
    // What the making of the last tooltip has posted belongs to the first pass.
    QCoreApplication::sendPostedEvents();
    restyling.count = 0;
    // The tooltips that the first pass made show up again.
    qApp->installEventFilter(&restyling);
    passOver();
    passOver();
    qApp->removeEventFilter(&restyling);
    for (OpenButton *const button : qAsConst(buttons)) {
        QCOMPARE(button->opened()->activeIcon, prepared.takeFirst());
        QCOMPARE(button->opened()->normalIcon, prepared.takeFirst());
    }
    QCOMPARE(restyling.count, 0);
}

void TestToolButton::movingOverAButtonPaintsItOnce()
{
    Scene scene;
    scene.hover();
    QCoreApplication::processEvents();
    EventCounter paints({QEvent::Paint});
    scene.button.installEventFilter(&paints);
    for (int i = 1; i < 6; ++i)
        scene.moveTo(scene.button.mapToGlobal(QPoint(10 + i, 10)));
    QCOMPARE(paints.count, 0);
    scene.moveAway();
    QTRY_VERIFY(paints.count > 0);
}

void TestToolButton::checkedButtonIsPaintedWithTheActivePicture_data()
{
    QTest::addColumn<bool>("wasHovered");
    QTest::addColumn<bool>("isPlain");
    QTest::newRow("never hovered") << false << true;
    QTest::newRow("hovered before") << true << true;
    QTest::newRow("with a text") << false << false;
}

void TestToolButton::checkedButtonIsPaintedWithTheActivePicture()
{
    QFETCH(bool, wasHovered);
    QFETCH(bool, isPlain);
    Scene scene;
    scene.action.setCheckable(true);
    scene.action.setText(QString());
    if (!isPlain)
        scene.button.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    if (wasHovered) {
        scene.hover();
        scene.moveAway();
    }
    const qint64 icon = scene.button.icon().cacheKey();
    const auto isPainted = [&scene](const QColor &color) {
        const QImage image = scene.button.grab().toImage();
        return image.pixelColor(image.rect().center()) == color;
    };
    QVERIFY(isPainted(Qt::red));
    scene.action.setChecked(true);
    QCOMPARE(scene.button.icon().cacheKey(), icon);
    QVERIFY(isPainted(Qt::green));
    scene.action.setEnabled(false);
    QVERIFY(!isPainted(Qt::green));
    scene.action.setEnabled(true);
    scene.action.setChecked(false);
    QVERIFY(isPainted(Qt::red));
}

void TestToolButton::plainPaintingLooksLikeThatOfTheStyleSheet_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("down");
    for (int bits = 0; bits < 16; ++bits)
        QTest::newRow(qPrintable(QString::number(bits, 2)))
            << !(bits & 1) << bool(bits & 2) << bool(bits & 4) << bool(bits & 8);
}

void TestToolButton::plainPaintingLooksLikeThatOfTheStyleSheet()
{
    QFETCH(bool, enabled);
    QFETCH(bool, hovered);
    QFETCH(bool, checked);
    QFETCH(bool, down);
    QWidget window;
    ToolBar bar(&window, Qt::TopToolBarArea);
    QAction action(QStringLiteral("Smooth"));
    action.setIcon(twoPictures(QSize(20, 12)));
    action.setCheckable(true);
    ToolButton plain(&action, &bar, &window);
    QToolButton styled(&window);
    styled.setStyleSheet(plain.styleSheet());
    styled.setDefaultAction(&action);
    action.setChecked(checked);
    action.setEnabled(enabled);
    if (checked && enabled)
        styled.setIcon(pictureOf(Qt::green, QSize(20, 12)));
    // Twice: the second time out of what was kept of the first.
    for (int pass = 0; pass < 2; ++pass) {
        QVector<QImage> pictures;
        for (QToolButton *const button : {static_cast<QToolButton *>(&plain), &styled}) {
            button->setIconSize(iconSize);
            button->setGeometry(10, 10, 37, 36);
            button->setAttribute(Qt::WA_UnderMouse, hovered);
            button->setDown(down);
            QImage image(button->size() * button->devicePixelRatioF(),
                         QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(button->devicePixelRatioF());
            image.fill(QColor(200, 220, 240));
            button->render(&image, {}, {}, QWidget::RenderFlags());
            pictures << image;
        }
        QCOMPARE(pictures[0], pictures[1]);
    }
}

void TestToolButton::otherSheetIsPaintedToo_data()
{
    QTest::addColumn<int>("where");
    QTest::newRow("of the button") << 0;
    QTest::newRow("of a widget around it") << 1;
    QTest::newRow("of the application") << 2;
}

void TestToolButton::otherSheetIsPaintedToo()
{
    QFETCH(int, where);
    const QString sheet = QStringLiteral("QToolButton#button { margin-left: 10px; }");
    Scene scene;
    const QImage before = scene.button.grab().toImage();
    if (where == 0)
        scene.button.setStyleSheet(sheet);
    else if (where == 1)
        scene.window.setStyleSheet(sheet);
    else
        qApp->setStyleSheet(sheet);
    QVERIFY(scene.button.grab().toImage() != before);
    qApp->setStyleSheet(QString());
    scene.window.setStyleSheet(QString());
    QCOMPARE(scene.button.grab().toImage() == before, where != 0);
}

void TestToolButton::everyButtonIsPolishedLikeOneByItself_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("no sheet of the application") << QString();
    QTest::newRow("sheet of the library")
        << Vela::Resource::Styles::Instance().ApplicationStyleSheet();
    QTest::newRow("sheet for all buttons")
        << QStringLiteral("QToolButton { padding: 3px; } QToolButton:checked { color: blue; }");
    QTest::newRow("sheet for the buttons of bars")
        << QStringLiteral("Vela--UiBase--ToolButton { margin: 2px; }");
}

void TestToolButton::everyButtonIsPolishedLikeOneByItself()
{
    QFETCH(QString, sheet);
    const ApplicationSheet set(sheet);
    Row row;
    // Without a bar a button is left to Qt.
    ToolButton alone(&row.window);
    alone.setDefaultAction(row.buttons.first()->defaultAction());
    alone.setIconSize(row.buttons.first()->iconSize());
    alone.setGeometry(10, 50, 36, 36);
    alone.show();
    for (ToolButton *const button : qAsConst(row.buttons)) {
        QCOMPARE(button->palette(), alone.palette());
        QCOMPARE(button->palette().resolve(), alone.palette().resolve());
        QCOMPARE(button->font(), alone.font());
        for (const Qt::WidgetAttribute attribute :
             {Qt::WA_Hover, Qt::WA_OpaquePaintEvent, Qt::WA_SetPalette, Qt::WA_SetStyle,
              Qt::WA_WState_Polished})
            QCOMPARE(button->testAttribute(attribute), alone.testAttribute(attribute));
        QCOMPARE(paintedOf(*button), paintedOf(alone));
        QCOMPARE(button->sizeHint(), alone.sizeHint());
        QCOMPARE(button->minimumSizeHint(), alone.minimumSizeHint());
        QCOMPARE(button->palette(), alone.palette());
    }
}

void TestToolButton::anyButtonMayBeTheFirstOfItsState()
{
    const ApplicationSheet set(Vela::Resource::Styles::Instance().ApplicationStyleSheet());
    Row row;
    ToolButton alone(&row.window);
    alone.setDefaultAction(row.buttons.first()->defaultAction());
    alone.setIconSize(row.buttons.first()->iconSize());
    alone.setGeometry(10, 50, 36, 36);
    alone.show();
    alone.setDown(true);
    row.buttons[3]->setDown(true);
    QCOMPARE(row.picture(3), paintedOf(alone));
}

void TestToolButton::sheetOfOneButtonLeavesTheOthersAlone()
{
    Row row;
    const QImage before = row.picture(2);
    row.buttons[1]->setStyleSheet(QStringLiteral("QToolButton { background: red; }"));
    QVERIFY(row.picture(1) != before);
    QCOMPARE(row.picture(2), before);
    QCOMPARE(row.buttons[2]->styleSheet(),
             Vela::Resource::Styles::Instance().ToolButtonOnToolPalette());
    row.buttons[1]->setStyleSheet(QString());
    QCOMPARE(row.buttons[1]->style(), QApplication::style());
    QCOMPARE(row.picture(2), before);
}

void TestToolButton::laterSheetStartsFromThePaletteOfBefore()
{
    Row row;
    const QString sheet = QStringLiteral("QToolButton { border: none; }");
    QToolButton reference(&row.window);
    reference.setStyleSheet(sheet);
    reference.show();
    row.buttons[2]->setStyleSheet(sheet);
    QCOMPARE(row.buttons[2]->palette(), reference.palette());
    row.buttons[3]->setStyleSheet(QString());
    QCOMPARE(row.buttons[3]->palette(), QToolButton(&row.window).palette());
}

void TestToolButton::sheetOfTheApplicationMayTellButtonsApart_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<int>("which");
    QTest::newRow("name") << "#button2" << 2;
    QTest::newRow("name and class") << "QLabel, QToolButton#button2" << 2;
    QTest::newRow("name and state") << "QAbstractButton#button2:enabled" << 2;
    QTest::newRow("name after a comment") << "/* QLabel { */ #button2" << 2;
    QTest::newRow("property") << "QToolButton[objectName=\"button2\"]" << 2;
    QTest::newRow("surroundings") << "#views QToolButton" << 4;
    QTest::newRow("child") << "QWidget#views > QToolButton" << 4;
    QTest::newRow("child without a blank") << "QWidget#views>QToolButton" << 4;
    QTest::newRow("surroundings after a line") << "#views\nQToolButton" << 4;
    QTest::newRow("last of several selectors")
        << "QLabel , QMenu[x=\"a > b\"],#views QToolButton" << 4;
    QTest::newRow("name with an escape") << "QToolButton#button\\32 " << 2;
    QTest::newRow("after what is no comment")
        << "QLabel[x=\"/*\"], #views QToolButton, QLabel[x=\"*/\"]" << 4;
    QTest::newRow("after a comment") << "/* don't */ #views QToolButton" << 4;
}

void TestToolButton::sheetOfTheApplicationMayTellButtonsApart()
{
    QFETCH(QString, selector);
    QFETCH(int, which);
    const ApplicationSheet set(selector + QStringLiteral(" { background: red; }"));
    Row row;
    const QImage others = row.picture(1);
    QCOMPARE(row.picture(3), others);
    QVERIFY(row.picture(which) != others);
    const QPoint beside = QPoint(3, 18) * row.window.devicePixelRatioF();
    QCOMPARE(row.picture(which).pixelColor(beside), QColor(Qt::red));
}

void TestToolButton::sheetOfTheApplicationMayChangeMoreThanTheLook_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::addColumn<QString>("tooltip");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("fontSize");
    const QString tooltip = QStringLiteral("Tool 3");
    const QString told = QStringLiteral("told");
    QTest::newRow("property") << "QToolButton { qproperty-toolTip: \"told\"; }" << told << 36 << 12;
    QTest::newRow("size") << "QToolButton { min-width: 50px; }" << tooltip << 50 << 12;
    QTest::newRow("font") << "QToolButton { font-size: 15px; }" << tooltip << 36 << 15;
}

void TestToolButton::sheetOfTheApplicationMayChangeMoreThanTheLook()
{
    QFETCH(QString, sheet);
    const ApplicationSheet set(sheet);
    Row row;
    QTEST(row.buttons[3]->toolTip(), "tooltip");
    QTEST(row.buttons[3]->minimumWidth(), "width");
    QTEST(row.buttons[3]->font().pixelSize(), "fontSize");
}

void TestToolButton::otherStyleOfTheApplicationReachesEveryButton()
{
    const QString usual = QApplication::style()->objectName();
    Row row;
    QApplication::setStyle(QStringLiteral("windows"));
    QToolButton reference(&row.window);
    reference.setStyleSheet(row.buttons[0]->styleSheet());
    reference.setFont(row.buttons[0]->font());
    reference.show();
    for (const ToolButton *const button : qAsConst(row.buttons))
        QCOMPARE(button->palette(), reference.palette());
    QApplication::setStyle(usual);
}

void TestToolButton::childOfAButtonHasItsStyle()
{
    Row row;
    for (ToolButton *const button : qAsConst(row.buttons))
        QCOMPARE((new QLabel(button))->style(), button->style());
}

void TestToolButton::tooltipComesAndGoesWithThePointer()
{
    Scene scene;
    TooltipObject *const tooltip = scene.button.GetTooltipObject();
    scene.hover();
    QTRY_VERIFY(tooltip->IsVisible());
    for (const QTimer *const timer : tooltip->findChildren<QTimer *>())
        QVERIFY(timer->interval() == 0 || !timer->isSingleShot());
    scene.moveAway();
    QTRY_VERIFY(!tooltip->IsVisible());
}

void TestToolButton::tooltipIsMadeWhenItIsNeeded()
{
    Scene scene;
    scene.bar.SetTooltipGroup(QStringLiteral("tools"));
    scene.button.SetTooltipParameters({}, EDirection::Left, 3, EWidgetsAlign::AlignEnd, {});
    scene.button.RaiseTooltip();
    scene.button.SetLocked(true);
    scene.button.SetLocked(false);
    QVERIFY(scene.button.findChildren<QWidget *>().isEmpty());
    QVERIFY(scene.button.findChildren<QTimer *>().isEmpty());
    QVERIFY(scene.button.GetTooltipObject()->TooltipControl());
    QVERIFY(!scene.button.findChildren<QWidget *>().isEmpty());
}

void TestToolButton::tooltipHasTheTextOfTheAction()
{
    Scene scene;
    scene.action.setToolTip(QStringLiteral("Smooths it all"));
    const TooltipObject *const tooltip = scene.button.GetTooltipObject();
    // What the action said when the button was made.
    QCOMPARE(tooltip->objectName(), QStringLiteral("Smooth"));
    const QLabel *const label = tooltip->TooltipControl()->findChild<QLabel *>();
    QCOMPARE(label->text(), QStringLiteral("Smooth"));
    scene.button.RefreshTooltip();
    QCOMPARE(label->text(), QStringLiteral("Smooths it all"));
}

void TestToolButton::tooltipStandsInTheGroupOfItsBar()
{
    QWidget window;
    QAction action(QStringLiteral("Smooth"));
    ToolBar bar(&window, Qt::TopToolBarArea);
    bar.SetTooltipGroup(QStringLiteral("tools"));
    ToolButton first(&action, &bar, &window);
    ToolButton second(&action, &bar, &window);
    window.show();
    first.GetTooltipObject()->ShowTooltip();
    QVERIFY(first.GetTooltipObject()->IsVisible());
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(nullptr, QStringLiteral("others"));
    QVERIFY(first.GetTooltipObject()->IsVisible());
    second.GetTooltipObject()->ShowTooltip();
    QVERIFY(!first.GetTooltipObject()->IsVisible());
    TooltipManager::GetInstance().HideAllTooltipsInGroupExcept(nullptr, QStringLiteral("tools"));
    QVERIFY(!second.GetTooltipObject()->IsVisible());
}

void TestToolButton::tooltipWindowHasABorderAndStandsBesideTheButton()
{
    Scene scene;
    TooltipObject *const tooltip = scene.button.GetTooltipObject();
    QCOMPARE(tooltip->GetPosCalculator()->RefWidget(), &scene.button);
    ArrowedWindow *const frame = tooltip->GetArrowedWindow();
    const QImage picture = frame->grab().toImage();
    const QColor border = Vela::Resource::Styles::Instance().ColorActionPanelBorder();
    const QRect bounds(frame->GetBounds().topLeft() * picture.devicePixelRatio(),
                       frame->GetBounds().size() * picture.devicePixelRatio());
    bool hasBorder = false;
    for (int y = bounds.top(); y < bounds.bottom(); ++y)
        hasBorder = hasBorder || picture.pixelColor(bounds.left(), y) == border;
    QVERIFY(hasBorder);
}

void TestToolButton::tooltipParametersAreTakenOver_data()
{
    QTest::addColumn<bool>("isMade");
    QTest::newRow("before it is made") << false;
    QTest::newRow("afterwards") << true;
}

void TestToolButton::tooltipParametersAreTakenOver()
{
    QFETCH(bool, isMade);
    Scene scene;
    TooltipObject *const tooltip = scene.button.GetTooltipObject();
    if (isMade)
        QVERIFY(tooltip->TooltipControl());
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::Right;
    arrow.length = 17;
    scene.button.SetTooltipParameters(arrow, EDirection::Left, 12, EWidgetsAlign::AlignEnd,
                                      QPoint(3, 4));
    const WidgetPosCalculator *const calculator = tooltip->GetPosCalculator();
    QCOMPARE(calculator->Directions().first(), EDirection::Left);
    QCOMPARE(calculator->BaseOffset(), 12);
    QCOMPARE(calculator->Alignment(), EWidgetsAlign::AlignEnd);
    QCOMPARE(calculator->AdditionalOffset(), QPoint(3, 4));
    const auto arrows = tooltip->GetArrowedWindow()->GetArrowParams();
    QCOMPARE(arrows.first().position, EArrowPosition::Right);
    QCOMPARE(arrows.first().length, 17);
}

void TestToolButton::tooltipIsRaised()
{
    Scene scene;
    ArrowedWindow *const frame = scene.button.GetTooltipObject()->GetArrowedWindow();
    const QWidget inFront(frame->parentWidget());
    QCOMPARE(frame->parentWidget()->children().last(), &inFront);
    scene.button.RaiseTooltip();
    QCOMPARE(frame->parentWidget()->children().last(), frame);
}

void TestToolButton::bareButtonHasNoTooltip()
{
    ToolButton button(nullptr);
    QCOMPARE(button.GetTooltipObject(), nullptr);
    button.SetTooltipParameters({}, EDirection::Left, 3, EWidgetsAlign::AlignEnd, {});
    button.RaiseTooltip();
    button.RefreshTooltip();
    button.SetLocked(true);
}

void TestToolButton::lockedButtonHasItsTooltipDisabled()
{
    Scene scene;
    TooltipObject *const tooltip = scene.button.GetTooltipObject();
    scene.button.SetLocked(true);
    QVERIFY(!tooltip->IsTooltipEnabled());
    scene.button.SetLocked(false);
    QVERIFY(tooltip->IsTooltipEnabled());
}

void TestToolButton::buttonThatDiesTakesItsTooltipAlong()
{
    QWidget window;
    QAction action(QStringLiteral("Smooth"));
    ToolBar bar(&window, Qt::TopToolBarArea);
    auto button = std::make_unique<ToolButton>(&action, &bar, &window);
    window.show();
    const QPointer<TooltipObject> tooltip = button->GetTooltipObject();
    tooltip->ShowTooltip();
    const QPointer<QWidget> frame = tooltip->GetArrowedWindow();
    QVERIFY(frame->isVisible());
    button.reset();
    QVERIFY(!tooltip);
    QVERIFY(!frame);
    auto other = std::make_unique<ToolButton>(&action, &bar, &bar);
    delete other->GetTooltipObject();
    QCOMPARE(other->GetTooltipObject(), nullptr);
    other->RefreshTooltip();
    other->SetLocked(true);
}

void TestToolButton::mouseEventsReachTheBarLater()
{
    Scene scene;
    scene.bar.events.clear();
    const QPoint pos(5, 7);
    const QVector<QEvent::Type> types {QEvent::MouseButtonPress, QEvent::MouseMove,
                                       QEvent::MouseButtonRelease};
    for (const QEvent::Type type : types) {
        QMouseEvent event(type, pos, scene.button.mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                          Qt::ControlModifier);
        QCoreApplication::sendEvent(&scene.button, &event);
    }
    QVERIFY(scene.bar.events.empty());
    QCoreApplication::sendPostedEvents(&scene.bar);
    QCOMPARE(scene.bar.events.size(), std::size_t(3));
    for (int i = 0; i < 3; ++i) {
        const auto &event = scene.bar.events[std::size_t(i)];
        QCOMPARE(event.type, types[i]);
        QCOMPARE(event.pos, pos + QPoint(20, 25));
        QCOMPARE(event.globalPos, scene.button.mapToGlobal(pos));
        QCOMPARE(event.button, Qt::LeftButton);
        QCOMPARE(event.modifiers, Qt::ControlModifier);
    }
}

void TestToolButton::clickTriggersTheActionAndIsHandled()
{
    Scene scene;
    QStringList order;
    connect(&scene.action, &QAction::triggered, this,
            [&] { order << QStringLiteral("triggered"); });
    connect(&scene.button, &ToolButton::ToolButtonClicked, this, [&] {
        order << QStringLiteral("clicked");
        QCOMPARE(scene.button.handled, 0);
    });
    scene.click();
    QCOMPARE(order, QStringList({QStringLiteral("triggered"), QStringLiteral("clicked")}));
    QCOMPARE(scene.button.handled, 1);
}

void TestToolButton::clickOnTheWayIsTold()
{
    Scene scene;
    QVector<bool> requested;
    const auto note = [&] { requested << scene.button.ClickedHandlerRequested(); };
    connect(&scene.action, &QAction::triggered, this, note);
    connect(&scene.button, &ToolButton::ToolButtonClicked, this, note);
    scene.click();
    QCOMPARE(requested, QVector<bool>({true, true}));
    QVERIFY(!scene.button.requestedWhenHandled);
    QVERIFY(!scene.button.ClickedHandlerRequested());
    requested.clear();
    scene.button.click();
    QCOMPARE(requested, QVector<bool>({false, false}));
}

void TestToolButton::releaseOutsideLeavesNoMark()
{
    Scene scene;
    QTest::mousePress(&scene.button, Qt::LeftButton);
    QTest::mouseRelease(&scene.button, Qt::LeftButton, {}, QPoint(-30, -30));
    QVERIFY(!scene.button.ClickedHandlerRequested());
    QCOMPARE(scene.button.handled, 0);
}

void TestToolButton::handlerIsSuppressedOnce()
{
    Scene scene;
    QSignalSpy clicked(&scene.button, &ToolButton::ToolButtonClicked);
    scene.button.SuppressClickedHandler(true);
    scene.click();
    QCOMPARE(scene.button.handled, 0);
    QCOMPARE(clicked.count(), 1);
    scene.click();
    QCOMPARE(scene.button.handled, 1);
    QCOMPARE(clicked.count(), 2);
}

void TestToolButton::lockedButtonIsDeafButItsBarHears()
{
    Scene scene;
    scene.bar.events.clear();
    QSignalSpy triggered(&scene.action, &QAction::triggered);
    QSignalSpy clicked(&scene.button, &ToolButton::ToolButtonClicked);
    scene.button.SetLocked(true);
    scene.click();
    QVERIFY(!scene.button.isDown());
    scene.button.click();
    QCOMPARE(clicked.count(), 0);
    QCOMPARE(scene.button.handled, 0);
    QCOMPARE(triggered.count(), 1); // by the click from code, which asks no lock
    QCoreApplication::sendPostedEvents(&scene.bar);
    QCOMPARE(scene.bar.events.size(), std::size_t(2));
}

void TestToolButton::unlockedButtonIsClickedAgain()
{
    Scene scene;
    scene.button.SetLocked(true);
    scene.button.SetLocked(false);
    scene.click();
    QCOMPARE(scene.button.handled, 1);
}

void TestToolButton::pressedButtonIsLiftedByTheLock()
{
    Scene scene;
    QTest::mousePress(&scene.button, Qt::LeftButton);
    QVERIFY(scene.button.isDown());
    scene.button.SetLocked(true);
    QTest::mouseRelease(&scene.button, Qt::LeftButton);
    scene.button.SetLocked(false);
    QVERIFY(!scene.button.isDown());
    QCOMPARE(scene.button.handled, 0);
}

void TestToolButton::clickMayDeleteTheButton_data()
{
    QTest::addColumn<bool>("byAction");
    QTest::newRow("from its action") << true;
    QTest::newRow("from its signal") << false;
}

void TestToolButton::clickMayDeleteTheButton()
{
    QFETCH(bool, byAction);
    QAction action(QStringLiteral("Remove me"));
    RecordingBar bar(nullptr, Qt::TopToolBarArea);
    QPointer<ToolButton> button = new ToolButton(&action, &bar, &bar);
    const auto remove = [&button] { delete button; };
    if (byAction)
        connect(&action, &QAction::triggered, this, remove);
    else
        connect(button, &ToolButton::ToolButtonClicked, this, remove);
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!button);
}

void TestToolButton::handlersDecideWhetherTheActionIsEnabled()
{
    Scene scene;
    Handler first;
    Handler second;
    scene.button.SetCallbackHandler(&scene.action, &first);
    scene.button.SetCallbackHandler(&scene.action, &second);
    second.answer = false;
    scene.button.EnableActions();
    QVERIFY(!scene.action.isEnabled());
    QVERIFY(!scene.button.isEnabled());
    QCOMPARE(first.asked, QVector<QAction *>() << &scene.action);
    second.answer = true;
    scene.button.EnableActions();
    QVERIFY(scene.action.isEnabled());
    QVERIFY(scene.button.isEnabled());
}

void TestToolButton::firstRefusalEndsTheAsking()
{
    Scene scene;
    Handler first;
    Handler second;
    first.answer = false;
    scene.button.SetCallbackHandler(&scene.action, &first);
    scene.button.SetCallbackHandler(&scene.action, &second);
    scene.button.EnableActions();
    QCOMPARE(first.asked.size(), 1);
    QVERIFY(second.asked.isEmpty());
}

void TestToolButton::handlerRegisteredTwiceIsAskedTwice()
{
    Scene scene;
    Handler handler;
    scene.button.SetCallbackHandler(&scene.action, &handler);
    scene.button.SetCallbackHandler(&scene.action, &handler);
    scene.button.EnableActions();
    QCOMPARE(handler.asked.size(), 2);
}

void TestToolButton::buttonWithoutHandlersStaysAsItIs()
{
    Scene scene;
    QAction other;
    Handler handler;
    scene.button.SetCallbackHandler(&other, &handler);
    for (const bool enabled : {false, true}) {
        scene.button.setEnabled(enabled);
        scene.button.EnableActions();
        QCOMPARE(scene.button.isEnabled(), enabled);
    }
    scene.window.setEnabled(false);
    scene.button.EnableActions();
    scene.window.setEnabled(true);
    QVERIFY(scene.button.isEnabled());
    QVERIFY(handler.asked.isEmpty());
}

void TestToolButton::emptyListOfHandlersEnables()
{
    Scene scene;
    scene.button.opened()->callbackHandlers.insert(&scene.action, {});
    scene.action.setEnabled(false);
    QVERIFY(!scene.button.isEnabled());
    scene.button.EnableActions();
    QVERIFY(scene.action.isEnabled());
    QVERIFY(scene.button.isEnabled());
}

void TestToolButton::missingHandlerOrActionIsIgnored()
{
    Scene scene;
    Handler handler;
    scene.button.SetCallbackHandler(nullptr, &handler);
    scene.button.SetCallbackHandler(&scene.action, nullptr);
    QVERIFY(scene.button.opened()->callbackHandlers.isEmpty());
}

void TestToolButton::handlersOfADeadActionAreForgotten()
{
    Scene scene;
    Handler handler;
    auto action = std::make_unique<QAction>();
    scene.button.SetCallbackHandler(action.get(), &handler);
    action.reset();
    QVERIFY(scene.button.opened()->callbackHandlers.isEmpty());
    auto button = std::make_unique<ToolButton>(nullptr);
    button->SetCallbackHandler(new QAction(button.get()), &handler);
    button.reset();
}

void TestToolButton::askedHandlerMayDeleteEverything()
{
    auto bar = std::make_unique<ToolBar>(nullptr, Qt::TopToolBarArea);
    auto action = std::make_unique<QAction>();
    auto *const button = new ToolButton(action.get(), bar.get(), bar.get());
    Handler first;
    Handler second;
    first.whenAsked = [&] {
        bar.reset();
        action.reset();
    };
    button->SetCallbackHandler(action.get(), &first);
    button->SetCallbackHandler(action.get(), &second);
    button->EnableActions();
    QVERIFY(second.asked.isEmpty());
}

void TestToolButton::buttonStandsForItsActionOnly()
{
    Scene scene;
    QAction other;
    QVERIFY(scene.button.IsActionAssociated(&scene.action));
    QVERIFY(!scene.button.IsActionAssociated(&other));
}

LUMO_TEST_MAIN(TestToolButton)
#include "tst_toolbutton.moc"
