// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>

#include "flyoutparts.h"
#include "support/accessibleevents.h"
#include "support/failingnew.h"
#include "support/keyboard.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/String>

#include <QGraphicsDropShadowEffect>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QToolButton>

#include <initializer_list>
#include <memory>
#include <new>
#include <stdexcept>

using namespace Vela::UiBase;
using namespace Vela::Resource;
using namespace Lumo::Test;

namespace {

/// Never made: names what the dialog around a flyout may call.
class Inside : public FlyoutBase
{
public:
    using FlyoutBase::SetButtonVisible;
    using FlyoutBase::SetShadow;
};

bool isMarked(const QObject *object)
{
    return object->property(String::WIDGET_PROPERTY_ISFLYOUT.latin1()).toBool();
}

QLineEdit *makeField(const char *name)
{
    auto *const field = new QLineEdit;
    field->setObjectName(QLatin1String(name));
    return field;
}

QWidget *makeForm(std::initializer_list<const char *> names)
{
    auto *const form = new QWidget;
    auto *const rows = new QVBoxLayout(form);
    for (const char *name : names)
        rows->addWidget(makeField(name));
    return form;
}

/// A panel for which there is no memory left once it is to be laid out.
class GreedyPanel : public QWidget
{
public:
    using QWidget::QWidget;
    QSize sizeHint() const override { throw std::bad_alloc(); }
};

/// Asks for the state of a button when that is hidden, as a screen reader does.
class AskingOnHide : public QObject
{
public:
    explicit AskingOnHide(QWidget *button)
    {
        QAccessible::queryAccessibleInterface(button);
        button->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            hasAsked = true;
            wasExpandable = QAccessible::queryAccessibleInterface(watched)->state().expandable;
        }
        return false;
    }

    bool hasAsked = false;
    bool wasExpandable = true;
};

} // namespace

using FlyoutSignal = void (FlyoutBase::*)();
Q_DECLARE_METATYPE(FlyoutSignal)

class FlyoutBaseTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNullMainPanelThrowsAndTakesNothing();
    void aFailingAllocationGivesNull();
    void aFlyoutThatCannotBeMadeTakesNothing();
    void sizesAreLogged();

    void ownsBothPanels();
    void panelsThatDieAreForgotten();
    void withoutAMainPanelShowingDoesNothing();
    void showingTakesTheFocus();
    void tabGoesDownThePanelAndEndsInTheTitleRow_data();
    void tabGoesDownThePanelAndEndsInTheTitleRow();
    void tabReachesWhatIsAddedLater();
    void tabIsHarmlessWithoutAnythingToGoTo();
    void showingFitsWhatChangedMeanwhile();
    void showingAgainLaysNothingOut();
    void theSamePanelTwiceIsTheMainPanel();
    void onlyTheFirstFormMarksItselfAlone();

    void titleIsLabelAndWindowTitle();
    void flagsOfButtonsHoldWhileHidden();
    void buttonsCarryAShadowWhileShown();
    void withoutButtonsTheirRowLeavesNoGap();
    void buttonsThatComeBackRestoreTheSize();
    void fittingRestoresTheMargins();
    void textsOfButtonsCanBeReplaced();

    void theAdvancedPanelBeginsFolded();
    void openingTheAdvancedPanelRestoresTheSpacers();
    void openingWithoutButtonsKeepsLineAndSpacerAway();
    void closingTheAdvancedPanelRestoresTheSize();
    void resizingIsTold();
    void aTallWindowIsNotCutOff();
    void aChangeWithinAResizeIsMadeUpFor();
    void aChangeWithinAResizeByTheOwnerIsMadeUpFor();
    void theFrameFollowsTheFlyout();

    void closingAHiddenFlyoutIsSilent();
    void closeHidesThenTells();
    void cancelHidesThenTells();
    void resetAndApplyAreTold();
    void escapeDoesNotClose();
    void escapeGoesOnToTheParent();
    void aListenerMayDeleteTheFlyout();
    void aListenerMayDeleteTheFlyoutAtAClick_data();
    void aListenerMayDeleteTheFlyoutAtAClick();

    void busyModeDisablesTheButtons();
    void busyModeLeavesHiddenButtonsAlone();
    void inToggleModeApplyCancelsWhileBusy();
    void busyTwiceKeepsTheText();
    void aTextSetWhileBusyStays();
    void withoutToggleModeEqualTextsApply();
    void toggleModeHidesTheCancelButtonEitherWay();

    void assistiveToolsOpenTheAdvancedPanel();
    void assistiveToolsOpenTheInformation();
    void assistiveToolsMayAskAButtonOfAFlyoutThatEnds();
    void findsItemsOfTheColumn();
    void nullIsIgnored();
};

void FlyoutBaseTest::aNullMainPanelThrowsAndTakesNothing()
{
    QWidget parent;
    const std::unique_ptr<QWidget> advanced(makePanel());
    QtUiToolkit &toolkit = QtUiToolkit::Instance();
    for (const bool isFirst : {true, false}) {
        try {
            if (isFirst)
                toolkit.CreateFlyout({}, nullptr, advanced.get(), true, true, true, true, &parent);
            else
                toolkit.CreateFlyout(&parent, {}, nullptr, {}, true, true, true, true,
                                     advanced.get());
            QFAIL("no exception");
        } catch (const std::runtime_error &error) {
            QCOMPARE(error.what(), "main panel cannot be null.");
        }
        QVERIFY(parent.children().isEmpty());
        QVERIFY(!advanced->parent());
    }
}

void FlyoutBaseTest::aFailingAllocationGivesNull()
{
    const std::unique_ptr<QWidget> panel(makePanel());
    QtUiToolkit &toolkit = QtUiToolkit::Instance();
    for (const bool isFirst : {true, false}) {
        Lumo::Test::FailingNew fault(0);
        const FlyoutBase *const flyout = isFirst
            ? toolkit.CreateFlyout({}, panel.get(), nullptr, true, true, true, true, nullptr)
            : toolkit.CreateFlyout(nullptr, {}, panel.get(), {}, true, true, true, true, nullptr);
        fault.disarm();
        QVERIFY(fault.happened());
        QVERIFY(!flyout);
        QVERIFY(!panel->parent());
    }
}

void FlyoutBaseTest::aFlyoutThatCannotBeMadeTakesNothing()
{
    const QtUiToolkit &toolkit = QtUiToolkit::Instance();
    QWidget parent;
    QWidget oldParent;
    for (const bool isFirst : {true, false}) {
        const QPointer<QWidget> panel = new GreedyPanel(&oldParent);
        const std::unique_ptr<QWidget> advanced(makePanel());
        const FlyoutBase *const flyout = isFirst
            ? toolkit.CreateFlyout({}, panel, advanced.get(), true, true, true, true, &parent)
            : toolkit.CreateFlyout(&parent, {}, panel, {}, true, true, true, true, advanced.get());
        QVERIFY(!flyout);
        QVERIFY(panel);
        QCOMPARE(panel->parentWidget(), &oldParent);
        QVERIFY(!advanced->parentWidget());
        QVERIFY(parent.children().isEmpty());
        delete panel;
    }
}

void FlyoutBaseTest::sizesAreLogged()
{
    QTest::ignoreMessage(
        QtDebugMsg,
        QRegularExpression(QStringLiteral("^size:  QSize\\(\\d+, \\d+\\) , main panel size:  "
                                          "QSize\\(240, 60\\)$")));
    const Flyout flyout = makeFlyout();
}

void FlyoutBaseTest::ownsBothPanels()
{
    QPointer<QWidget> main = makePanel();
    QPointer<QWidget> advanced = makePanel();
    Flyout flyout = makeInfoFlyout({}, main, advanced);
    QCOMPARE(flyout->MainPanel(), main.data());
    QCOMPARE(flyout->AdvancedPanel(), advanced.data());
    QCOMPARE(itemAt(part<QLayout>(flyout, "mainPanelHolderLayout"), 0)->widget(), main.data());
    flyout.reset();
    QVERIFY(!main);
    QVERIFY(!advanced);
}

void FlyoutBaseTest::panelsThatDieAreForgotten()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    delete flyout->MainPanel();
    delete flyout->AdvancedPanel();
    QVERIFY(!flyout->MainPanel());
    QVERIFY(!flyout->AdvancedPanel());
    flyout->show();
    const QSize size = flyout->size();
    click(flyout, "advanced_button");
    QCOMPARE(flyout->size(), size);
}

void FlyoutBaseTest::withoutAMainPanelShowingDoesNothing()
{
    QWidget window;
    window.resize(800, 600);
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    flyout->SetReferencePoint(window.mapToGlobal(QPoint(50, 60)), &window, QPoint());
    delete flyout->MainPanel();
    const QPoint place = window.pos();
    flyout->show();
    window.show();
    QVERIFY(!flyout->hasFocus());
    QCOMPARE(window.pos(), place);
}

void FlyoutBaseTest::showingTakesTheFocus()
{
    QWidget window;
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    flyout->hide();
    window.show();
    other.setFocus();
    flyout->show();
    QCOMPARE(window.focusWidget(), flyout.get());
}

void FlyoutBaseTest::tabGoesDownThePanelAndEndsInTheTitleRow_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void FlyoutBaseTest::tabGoesDownThePanelAndEndsInTheTitleRow()
{
    QFETCH(const Qt::LayoutDirection, direction);
    QWidget *const main = makeForm({"one", "two"});
    const Flyout flyout = makeInfoFlyout(QStringLiteral("?"), main, makeForm({"three", "four"}));
    QWidget info;
    flyout->EnableInfoButton(true, &info);
    flyout->setLayoutDirection(direction);
    flyout->show();
    click(flyout, "advanced_button");
    QCOMPARE(
        namesOf(tabStops(*flyout)),
        (QStringList {"one", "two", "advanced_button", "three", "four", "cancel_button",
                      "apply_button", "ibutton", "info_button", "reset_button", "close_button"}));
}

void FlyoutBaseTest::tabReachesWhatIsAddedLater()
{
    const Flyout flyout(QtUiToolkit::Instance().CreateFlyout(
        QStringLiteral("Smooth"), makeForm({"one"}), nullptr, true, true, true, true, nullptr));
    flyout->MainPanel()->layout()->addWidget(makeField("two"));
    flyout->show();
    QCOMPARE(namesOf(tabStops(*flyout)),
             (QStringList {"one", "two", "cancel_button", "apply_button", "reset_button",
                           "close_button"}));
}

void FlyoutBaseTest::tabIsHarmlessWithoutAnythingToGoTo()
{
    const Flyout flyout = makeFlyout({false, false, false, false});
    flyout->show();
    QCOMPARE(tabStops(*flyout), QVector<QWidget *> {flyout.get()});
    QTest::keyClick(flyout.get(), Qt::Key_Backtab);
    QCOMPARE(flyout->focusWidget(), flyout.get());
}

void FlyoutBaseTest::showingFitsWhatChangedMeanwhile()
{
    QWidget window;
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    window.show();
    const int height = flyout->height();
    flyout->hide();
    flyout->MainPanel()->hide();
    flyout->MainPanel()->setFixedHeight(100);
    flyout->show();
    QVERIFY(flyout->MainPanel()->isVisible());
    QCOMPARE(flyout->height(), height + 40);
}

void FlyoutBaseTest::showingAgainLaysNothingOut()
{
    class Layouts : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            requests += event->type() == QEvent::LayoutRequest ? 1 : 0;
            return false;
        }
        int requests = 0;
    };
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    QVERIFY(QTest::qWaitForWindowExposed(flyout.get()));
    flyout->hide();
    QCoreApplication::processEvents();
    Layouts layouts;
    flyout->installEventFilter(&layouts);
    flyout->show();
    QVERIFY(QTest::qWaitForWindowExposed(flyout.get()));
    QCoreApplication::processEvents();
    QCOMPARE(layouts.requests, 0);
}

void FlyoutBaseTest::theSamePanelTwiceIsTheMainPanel()
{
    auto *const panel = makePanel();
    const Flyout flyout = makeInfoFlyout({}, panel, panel);
    QCOMPARE(flyout->MainPanel(), panel);
    QVERIFY(!flyout->AdvancedPanel());
}

void FlyoutBaseTest::onlyTheFirstFormMarksItselfAlone()
{
    const Flyout first = makeFlyout();
    QVERIFY(isMarked(first.get()));
    QCOMPARE(first->focusPolicy(), Qt::WheelFocus);
    QVERIFY(!isMarked(first->MainPanel()));
    auto *const panel = makePanel();
    auto *const deep = new QWidget(new QWidget(panel));
    const Flyout second = makeInfoFlyout({}, panel);
    QVERIFY(isMarked(second.get()));
    QVERIFY(isMarked(panel));
    QVERIFY(isMarked(deep));
    QVERIFY(isMarked(part(second, "apply_button")));
    QVERIFY(second->focusPolicy() != Qt::WheelFocus);
}

void FlyoutBaseTest::titleIsLabelAndWindowTitle()
{
    const Flyout flyout = makeFlyout();
    QCOMPARE(flyout->Title(), QStringLiteral("Smooth"));
    QCOMPARE(flyout->windowTitle(), QStringLiteral("Smooth"));
    flyout->SetTitle(QStringLiteral("Fill holes"));
    QCOMPARE(part<QLabel>(flyout, "title")->text(), QStringLiteral("Fill holes"));
    QCOMPARE(flyout->Title(), QStringLiteral("Fill holes"));
    QCOMPARE(flyout->windowTitle(), QStringLiteral("Fill holes"));
}

void FlyoutBaseTest::flagsOfButtonsHoldWhileHidden()
{
    const Flyout flyout = makeFlyout();
    QVERIFY(flyout->IsCloseButtonVisible());
    QVERIFY(!flyout->IsResetButtonVisible());
    QVERIFY(part(flyout, "reset_button")->isHidden());
    flyout->SetCloseButtonVisible(false);
    flyout->SetResetButtonVisible(true);
    QVERIFY(!flyout->IsCloseButtonVisible());
    QVERIFY(flyout->IsResetButtonVisible());
    QVERIFY(part(flyout, "close_button")->isHidden());
    QVERIFY(!part(flyout, "reset_button")->isHidden());
}

void FlyoutBaseTest::buttonsCarryAShadowWhileShown()
{
    const Flyout flyout = makeFlyout();
    for (const char *name : {"cancel_button", "apply_button"}) {
        const auto *const shadow =
            qobject_cast<QGraphicsDropShadowEffect *>(part(flyout, name)->graphicsEffect());
        QVERIFY(shadow);
        QVERIFY(shadow->isEnabled());
        QCOMPARE(shadow->blurRadius(), 5.0);
        QCOMPARE(shadow->offset(), QPointF(0, 0));
    }
    auto *const apply = part(flyout, "apply_button");
    const QGraphicsEffect *const effect = apply->graphicsEffect();
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(apply->graphicsEffect(), effect);
    flyout->SetApplyButtonVisible(false);
    QVERIFY(apply->isHidden());
    QVERIFY(!apply->graphicsEffect());
    flyout->SetApplyButtonVisible(true);
    QVERIFY(!apply->isHidden());
    QVERIFY(apply->graphicsEffect());
}

void FlyoutBaseTest::withoutButtonsTheirRowLeavesNoGap()
{
    const Flyout full = makeFlyout();
    const Flyout bare = makeFlyout({true, false, false, false});
    const Flyout one = makeFlyout({true, false, true, false});
    QVERIFY(part(bare, "advancedLine")->isHidden());
    QVERIFY(!part(one, "advancedLine")->isHidden());
    QCOMPARE(one->height(), full->height());
    const int row = part(full, "apply_button")->sizeHint().height();
    const int line = part(full, "advancedLine")->sizeHint().height();
    QCOMPARE(full->height() - bare->height(), 8 + row + 5 + line);
    QCOMPARE(bare->layout()->contentsMargins().bottom(), 0);
    bare->show();
    const QRect panel = bare->MainPanel()->geometry();
    QCOMPARE(bare->height(), panel.bottom() + 1 + 6);
}

void FlyoutBaseTest::buttonsThatComeBackRestoreTheSize()
{
    const Flyout flyout = makeFlyout();
    flyout->show();
    const QSize size = flyout->size();
    flyout->SetApplyButtonVisible(false);
    QCOMPARE(flyout->size(), size);
    flyout->SetCancelButtonVisible(false);
    QCOMPARE(flyout->size(), makeFlyout({true, false, false, false})->size());
    flyout->SetApplyButtonVisible(true);
    flyout->SetCancelButtonVisible(true);
    QCOMPARE(flyout->size(), size);
}

void FlyoutBaseTest::fittingRestoresTheMargins()
{
    const Flyout flyout = makeFlyout();
    flyout->layout()->setContentsMargins(1, 2, 3, 4);
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(flyout->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void FlyoutBaseTest::textsOfButtonsCanBeReplaced()
{
    const Flyout flyout = makeFlyout();
    flyout->SetApplyButtonText(QStringLiteral("Run"));
    flyout->SetCancelButtonText(QStringLiteral("Stop"));
    flyout->SetApplyButtonEnabled(false);
    QCOMPARE(part<QPushButton>(flyout, "apply_button")->text(), QStringLiteral("Run"));
    QCOMPARE(part<QPushButton>(flyout, "cancel_button")->text(), QStringLiteral("Stop"));
    QVERIFY(!part(flyout, "apply_button")->isEnabled());
    flyout->SetApplyButtonEnabled(true);
    QVERIFY(part(flyout, "apply_button")->isEnabled());
}

void FlyoutBaseTest::theAdvancedPanelBeginsFolded()
{
    const Flyout with = makeFlyout({}, makePanel());
    QVERIFY(with->AdvancedPanel()->isHidden());
    QVERIFY(part(with, "aboveButtonLine")->isHidden());
    QCOMPARE(spacerHeight(with, 7), 7);
    QCOMPARE(spacerHeight(with, 9), 0);
    QCOMPARE(spacerHeight(with, 11), 0);
    const Flyout without = makeFlyout();
    QVERIFY(part(without, "advanced_button")->isHidden());
    QVERIFY(part(without, "advancedLabel")->isHidden());
    QCOMPARE(spacerHeight(without, 7), 0);
    QCOMPARE(with->height() - without->height(),
             7 + part(with, "advanced_button")->sizeHint().height());
}

void FlyoutBaseTest::openingTheAdvancedPanelRestoresTheSpacers()
{
    const Flyout flyout = makeFlyout({}, makePanel(50));
    flyout->show();
    const int folded = flyout->height();
    const qint64 expand = part<QToolButton>(flyout, "advanced_button")->icon().cacheKey();
    click(flyout, "advanced_button");
    QVERIFY(flyout->AdvancedPanel()->isVisible());
    QVERIFY(part(flyout, "aboveButtonLine")->isVisible());
    QVERIFY(part<QToolButton>(flyout, "advanced_button")->icon().cacheKey() != expand);
    QCOMPARE(spacerHeight(flyout, 9), 5);
    QCOMPARE(spacerHeight(flyout, 11), 7);
    const int line = part(flyout, "aboveButtonLine")->sizeHint().height();
    QCOMPARE(flyout->height() - folded, 5 + 50 + 7 + line);
}

void FlyoutBaseTest::openingWithoutButtonsKeepsLineAndSpacerAway()
{
    const Flyout flyout = makeFlyout({true, false, false, false}, makePanel(50));
    flyout->show();
    const int folded = flyout->height();
    click(flyout, "advanced_button");
    QVERIFY(flyout->AdvancedPanel()->isVisible());
    QVERIFY(!part(flyout, "aboveButtonLine")->isVisible());
    QCOMPARE(spacerHeight(flyout, 9), 5);
    QCOMPARE(spacerHeight(flyout, 11), 0);
    QCOMPARE(flyout->height() - folded, 5 + 50);
}

void FlyoutBaseTest::closingTheAdvancedPanelRestoresTheSize()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    const QSize folded = flyout->size();
    click(flyout, "advanced_button");
    click(flyout, "advanced_button");
    QVERIFY(!flyout->AdvancedPanel()->isVisible());
    QVERIFY(!part(flyout, "aboveButtonLine")->isVisible());
    QCOMPARE(flyout->size(), folded);
}

void FlyoutBaseTest::resizingIsTold()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    QSignalSpy resized(flyout.get(), &FlyoutBase::FlyoutResized);
    click(flyout, "advanced_button");
    QVERIFY(resized.count() >= 1);
    resized.clear();
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(resized.count(), 0);
}

void FlyoutBaseTest::aTallWindowIsNotCutOff()
{
    auto *const panel = new QWidget;
    auto *const list = new QVBoxLayout(panel);
    for (int i = 0; i < 3; ++i) {
        auto *const spacer =
            new QSpacerItem(240, 600, QSizePolicy::Minimum, QSizePolicy::Preferred);
        list->addItem(spacer);
    }
    const Flyout flyout = makeInfoFlyout({}, panel);
    QVERIFY(flyout->height() > 1800);
    QCOMPARE(flyout->size(), flyout->sizeHint());
}

void FlyoutBaseTest::aChangeWithinAResizeIsMadeUpFor()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    int depth = 0;
    int deepest = 0;
    connect(flyout.get(), &FlyoutBase::FlyoutResized, flyout.get(), [&] {
        deepest = std::max(deepest, ++depth);
        flyout->SetApplyButtonVisible(false);
        flyout->SetCancelButtonVisible(false);
        --depth;
    });
    click(flyout, "advanced_button");
    QCOMPARE(deepest, 1);
    QCOMPARE(flyout->size(), flyout->sizeHint());
}

void FlyoutBaseTest::aChangeWithinAResizeByTheOwnerIsMadeUpFor()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    connect(flyout.get(), &FlyoutBase::FlyoutResized, flyout.get(), [&] {
        if (flyout->width() == 500)
            flyout->SetApplyButtonVisible(false);
    });
    flyout->resize(500, 400);
    QCOMPARE(flyout->size(), flyout->sizeHint());
}

void FlyoutBaseTest::theFrameFollowsTheFlyout()
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    ArrowedWindow frame(&window);
    Flyout flyout = makeFlyout({}, makePanel());
    frame.AttachWidget(flyout.get());
    frame.SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    frame.show();
    const QSize folded = frame.size();
    const int panel = flyout->height();
    click(flyout, "advanced_button");
    QTRY_COMPARE(frame.height() - folded.height(), flyout->height() - panel);
    QVERIFY(flyout->height() > panel);
    flyout->CloseMe();
    QTRY_VERIFY(!frame.isVisible());
    frame.DetachWidget()->setParent(nullptr);
}

void FlyoutBaseTest::closingAHiddenFlyoutIsSilent()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->CloseMe();
    part<QToolButton>(flyout, "close_button")->click();
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::closeHidesThenTells()
{
    const Flyout flyout = makeFlyout();
    QList<bool> visible;
    connect(flyout.get(), &FlyoutBase::CloseFlyout, flyout.get(),
            [&] { visible << flyout->isVisible(); });
    flyout->show();
    click(flyout, "close_button");
    flyout->show();
    flyout->CloseMe();
    QCOMPARE(visible, (QList<bool> {false, false}));
}

void FlyoutBaseTest::cancelHidesThenTells()
{
    const Flyout flyout = makeFlyout();
    QList<bool> visible;
    connect(flyout.get(), &FlyoutBase::CancelChanges, flyout.get(),
            [&] { visible << flyout->isVisible(); });
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->show();
    click(flyout, "cancel_button");
    part<QPushButton>(flyout, "cancel_button")->click();
    QCOMPARE(visible, (QList<bool> {false, false}));
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::resetAndApplyAreTold()
{
    const Flyout flyout = makeFlyout({true, true, true, true});
    QSignalSpy reset(flyout.get(), &FlyoutBase::ResetValues);
    QSignalSpy applied(flyout.get(), &FlyoutBase::ApplyChanges);
    flyout->show();
    click(flyout, "reset_button");
    QCOMPARE(reset.count(), 1);
    click(flyout, "apply_button");
    QCOMPARE(applied.count(), 1);
    QVERIFY(flyout->isVisible());
}

void FlyoutBaseTest::escapeDoesNotClose()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->show();
    QTest::keyClick(flyout.get(), Qt::Key_Escape);
    QVERIFY(flyout->isVisible());
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::escapeGoesOnToTheParent()
{
    class Window : public QWidget
    {
    public:
        int released = 0;

    protected:
        void keyReleaseEvent(QKeyEvent *event) override { released = event->key(); }
    };
    Window window;
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    window.show();
    QTest::keyClick(flyout.get(), Qt::Key_Escape);
    QCOMPARE(window.released, int(Qt::Key_Escape));
}

void FlyoutBaseTest::aListenerMayDeleteTheFlyout()
{
    for (const auto signal : {&FlyoutBase::CloseFlyout, &FlyoutBase::CancelChanges}) {
        QPointer<FlyoutBase> flyout = makeFlyout().release();
        connect(flyout.data(), signal, flyout.data(), [&] { delete flyout; });
        flyout->show();
        if (signal == &FlyoutBase::CloseFlyout)
            flyout->CloseMe();
        else
            QMetaObject::invokeMethod(flyout, "on_cancel_button_clicked");
        QVERIFY(!flyout);
    }
}

void FlyoutBaseTest::aListenerMayDeleteTheFlyoutAtAClick_data()
{
    QTest::addColumn<FlyoutSignal>("signal");
    QTest::newRow("close_button") << FlyoutSignal(&FlyoutBase::CloseFlyout);
    QTest::newRow("cancel_button") << FlyoutSignal(&FlyoutBase::CancelChanges);
    QTest::newRow("apply_button") << FlyoutSignal(&FlyoutBase::ApplyChanges);
    QTest::newRow("reset_button") << FlyoutSignal(&FlyoutBase::ResetValues);
}

void FlyoutBaseTest::aListenerMayDeleteTheFlyoutAtAClick()
{
    QFETCH(const FlyoutSignal, signal);
    Flyout flyout = makeFlyout({true, true, true, true});
    connect(flyout.get(), signal, flyout.get(), [&flyout] { flyout.reset(); });
    flyout->show();
    click(flyout, QTest::currentDataTag());
    QVERIFY(!flyout);
}

void FlyoutBaseTest::busyModeDisablesTheButtons()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy entered(flyout.get(), &FlyoutBase::EnterBusyMode);
    QSignalSpy left(flyout.get(), &FlyoutBase::ExitBusyMode);
    flyout->show();
    flyout->OnEnterBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(!part(flyout, name)->isEnabled(), name);
    QCOMPARE(entered.count(), 1);
    QVERIFY(flyout->isVisible());
    flyout->OnExitBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(part(flyout, name)->isEnabled(), name);
    QCOMPARE(left.count(), 1);
}

void FlyoutBaseTest::busyModeLeavesHiddenButtonsAlone()
{
    const Flyout flyout = makeFlyout();
    flyout->OnEnterBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(part(flyout, name)->isEnabled(), name);
}

void FlyoutBaseTest::inToggleModeApplyCancelsWhileBusy()
{
    const Flyout flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    QSignalSpy cancelled(flyout.get(), &FlyoutBase::CancelChanges);
    QSignalSpy applied(flyout.get(), &FlyoutBase::ApplyChanges);
    const auto *const apply = part<QPushButton>(flyout, "apply_button");
    flyout->show();
    flyout->OnEnterBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Cancel"));
    QVERIFY(apply->isEnabled());
    click(flyout, "apply_button");
    QVERIFY(!apply->isEnabled());
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(applied.count(), 0);
    QVERIFY(flyout->isVisible());
    flyout->OnExitBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Apply"));
    QVERIFY(apply->isEnabled());
    click(flyout, "apply_button");
    QCOMPARE(applied.count(), 1);
}

void FlyoutBaseTest::busyTwiceKeepsTheText()
{
    const Flyout flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    flyout->show();
    flyout->OnEnterBusyMode();
    flyout->OnEnterBusyMode();
    flyout->OnExitBusyMode();
    const auto *const apply = part<QPushButton>(flyout, "apply_button");
    QCOMPARE(apply->text(), QStringLiteral("Apply"));
    flyout->SetApplyButtonText(QStringLiteral("Cancel"));
    flyout->OnExitBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Cancel"));
}

void FlyoutBaseTest::aTextSetWhileBusyStays()
{
    const Flyout flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    flyout->show();
    flyout->OnEnterBusyMode();
    flyout->SetApplyButtonText(QStringLiteral("Again"));
    flyout->OnExitBusyMode();
    QCOMPARE(part<QPushButton>(flyout, "apply_button")->text(), QStringLiteral("Again"));
}

void FlyoutBaseTest::withoutToggleModeEqualTextsApply()
{
    const Flyout flyout = makeFlyout();
    flyout->SetApplyButtonText(QStringLiteral("Cancel"));
    QSignalSpy applied(flyout.get(), &FlyoutBase::ApplyChanges);
    flyout->show();
    click(flyout, "apply_button");
    QCOMPARE(applied.count(), 1);
}

void FlyoutBaseTest::toggleModeHidesTheCancelButtonEitherWay()
{
    for (const bool enabled : {true, false}) {
        const Flyout flyout = makeFlyout();
        flyout->SetToggleApplyButtonEnabled(enabled);
        QVERIFY(part(flyout, "cancel_button")->isHidden());
        QVERIFY(!part(flyout, "apply_button")->isHidden());
    }
}

void FlyoutBaseTest::assistiveToolsOpenTheAdvancedPanel()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    auto *const button = part(flyout, "advanced_button");
    const AccessibleEvents events;
    QVERIFY(events.isPossible());
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(button);
    QVERIFY(seen->state().expandable && seen->state().collapsed && !seen->state().hasPopup);
    QCOMPARE(seen->role(), QAccessible::Button);
    QCOMPARE(seen->text(QAccessible::Name), button->accessibleName());
    QVERIFY(seen->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::setFocusAction()));
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(flyout->AdvancedPanel()->isVisible());
    QVERIFY(seen->state().expanded && !seen->state().collapsed);
    QCOMPARE(events.expansionsOf(button), 1);
}

void FlyoutBaseTest::assistiveToolsOpenTheInformation()
{
    QWidget info;
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, &info);
    flyout->show();
    auto *const button = part(flyout, "info_button");
    const AccessibleEvents events;
    QVERIFY(events.isPossible());
    QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(button);
    QVERIFY(seen->state().hasPopup && seen->state().collapsed);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_VERIFY(info.isVisible());
    QVERIFY(seen->state().expanded);
    QCOMPARE(events.expansionsOf(button), 1);
}

void FlyoutBaseTest::assistiveToolsMayAskAButtonOfAFlyoutThatEnds()
{
    Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    AskingOnHide reader(part(flyout, "advanced_button"));
    flyout.reset();
    QVERIFY(reader.hasAsked);
    QVERIFY(!reader.wasExpandable);
}

void FlyoutBaseTest::findsItemsOfTheColumn()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    for (int i = 0; i < column(flyout)->count(); ++i)
        QCOMPARE(flyout->FindItemIndexInLayout(column(flyout)->itemAt(i)), i);
    QCOMPARE(flyout->FindItemIndexInLayout(itemAt(flyout->layout(), 0)), -1);
    QCOMPARE(flyout->FindItemIndexInLayout(nullptr), -1);
}

void FlyoutBaseTest::nullIsIgnored()
{
    const Flyout flyout = makeFlyout();
    flyout->AddSubWidget(nullptr, EDirection::Left);
    flyout->RemoveSubWidget(nullptr);
    flyout->EnableInfoButton(true, nullptr);
    QVERIFY(part(flyout, "info_button")->isHidden());
    flyout->SetInfoWidgetPos();
    flyout->SetBounds({}, {});
    QMetaObject::invokeMethod(flyout.get(), "on_info_button_clicked");
    QMetaObject::invokeMethod(flyout.get(), "on_advanced_button_clicked");
    (flyout.get()->*(&Inside::SetButtonVisible))(nullptr, true);
    QGraphicsDropShadowEffect *effect = nullptr;
    Inside::SetShadow(effect);
    QVERIFY(!effect);
    QToolButton button;
    flyout->SetToolButton(&button);
    QCOMPARE(flyout->ToolButton(), &button);
    flyout->SetToolButton(nullptr);
    QVERIFY(!flyout->ToolButton());
    QVERIFY(!flyout->property("sub_widgets").isValid());
}

LUMO_TEST_MAIN(FlyoutBaseTest)
#include "tst_flyoutbase.moc"
