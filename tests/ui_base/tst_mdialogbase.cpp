// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/FlyoutBase>
#include <ui_base/InfoDialog>
#include <ui_base/MDialogBase>
#include <ui_base/QtUiToolkit>

#include "support/failingnew.h"
#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/Styles>

#include <QApplication>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>
#include <new>
#include <stdexcept>
#include <type_traits>

using namespace Lumo::Test;
using namespace Vela::UiBase;

static_assert(std::is_base_of_v<QDialog, MDialogBase>);
static_assert(!std::is_constructible_v<MDialogBase, QString, QWidget *, QWidget *, bool, bool, bool,
                                       bool, QWidget *>);
static_assert(!std::is_constructible_v<MDialogBase, QWidget *, QString, QWidget *, QString, bool,
                                       bool, bool, bool, QWidget *>);

namespace {

constexpr QPoint OnTitle(40, 15);

struct SParts
{
    bool close = true;
    bool cancel = true;
    bool apply = true;
    bool reset = false;
};

QWidget *makePanel(int height = 60)
{
    auto *const panel = new QWidget;
    panel->setFixedSize(240, height);
    return panel;
}

using Dialog = std::unique_ptr<MDialogBase>;

Dialog makeDialog(const SParts &parts = {}, QWidget *advanced = nullptr, QWidget *parent = nullptr,
                  const QString &title = QStringLiteral("Smooth"), QWidget *panel = nullptr)
{
    return Dialog(QtUiToolkit::Instance().CreateFlyoutDialog(
        parent, title, panel ? panel : makePanel(), advanced, parts.close, parts.cancel,
        parts.apply, parts.reset));
}

Dialog makeInfoDialog(const QString &info, QWidget *advanced = nullptr)
{
    return Dialog(QtUiToolkit::Instance().CreateFlyoutDialog(
        nullptr, QStringLiteral("Smooth"), makePanel(), info, true, true, true, true, advanced));
}

FlyoutBase *flyoutOf(const Dialog &dialog)
{
    return dialog->findChild<FlyoutBase *>(QStringLiteral("mdialogflyout"),
                                           Qt::FindDirectChildrenOnly);
}

template<typename Child = QWidget>
Child *part(const Dialog &dialog, const char *name)
{
    return dialog->findChild<Child *>(QLatin1String(name));
}

void click(const Dialog &dialog, const char *name)
{
    auto *const button = part<QAbstractButton>(dialog, name);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// A dialog that has lost its flyout.
Dialog makeEmptyDialog()
{
    Dialog dialog = makeDialog();
    delete flyoutOf(dialog);
    return dialog;
}

/// How far a drag over the flyout moves the dialog.
QPoint movedBy(const Dialog &dialog, const QPoint &from, const QPoint &way)
{
    const QPoint before = dialog->pos();
    press(flyoutOf(dialog), from);
    dragTo(flyoutOf(dialog), from + way);
    release(flyoutOf(dialog), from);
    return dialog->pos() - before;
}

/// A panel for which there is no memory in a flyout.
class GreedyPanel : public QWidget
{
public:
    QSize sizeHint() const override { throw std::bad_alloc(); }
};

/// While alive, there is no memory for the window title of a dialog.
class DialogShortage : public QObject
{
public:
    DialogShortage() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::WindowTitleChange && qobject_cast<QDialog *>(watched))
            throw std::bad_alloc();
        return QObject::eventFilter(watched, event);
    }
};

class SlotCounter : public QObject
{
    Q_OBJECT

public:
    int closed = 0;
    int reset = 0;

public Q_SLOTS:
    void countClose() { ++closed; }
    void countReset() { ++reset; }
};

} // namespace

class tst_MDialogBase : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // Making

    void dialogIsMadeAroundItsFlyout()
    {
        const Dialog dialog = makeDialog();
        QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(dialog->isWindow() && dialog->windowType() == Qt::Dialog);
        QCOMPARE(dialog->objectName(), QStringLiteral("mdialog"));
        const FlyoutBase *const flyout = flyoutOf(dialog);
        QVERIFY(flyout);
        QCOMPARE(flyout->pos(), QPoint(0, 0));
        QVERIFY(flyout->hasMouseTracking());
        QCOMPARE(dialog->size(), flyout->size());
    }

    void dialogHasTheGeneralLook()
    {
        const QString general = Vela::Resource::Styles::Instance().DialogGeneral();
        QVERIFY(general.contains(QLatin1String("%1")));
        QCOMPARE(makeDialog()->styleSheet(), general.arg(QStringLiteral("mdialog")));
    }

    void argumentsReachTheFlyout_data()
    {
        QTest::addColumn<bool>("close");
        QTest::addColumn<bool>("cancel");
        QTest::addColumn<bool>("apply");
        QTest::addColumn<bool>("reset");
        QTest::newRow("close") << true << false << false << false;
        QTest::newRow("cancel") << false << true << false << false;
        QTest::newRow("apply") << false << false << true << false;
        QTest::newRow("reset") << false << false << false << true;
    }

    void argumentsReachTheFlyout()
    {
        QFETCH(const bool, close);
        QFETCH(const bool, cancel);
        QFETCH(const bool, apply);
        QFETCH(const bool, reset);
        QWidget parent;
        auto &toolkit = QtUiToolkit::Instance();
        for (const bool isFirst : {true, false}) {
            QWidget *const main = makePanel();
            QWidget *const advanced = makePanel();
            const Dialog dialog(
                isFirst ? toolkit.CreateFlyoutDialog(&parent, QStringLiteral("Smooth"), main,
                                                     advanced, close, cancel, apply, reset)
                        : toolkit.CreateFlyoutDialog(&parent, QStringLiteral("Smooth"), main,
                                                     QStringLiteral("info"), close, cancel, apply,
                                                     reset, advanced));
            QCOMPARE(dialog->parentWidget(), &parent);
            QCOMPARE(dialog->MainPanel(), main);
            QCOMPARE(dialog->AdvancedPanel(), advanced);
            QCOMPARE(dialog->Title(), QStringLiteral("Smooth"));
            QVERIFY(part(dialog, "close_button")->isHidden() != close);
            QVERIFY(part(dialog, "cancel_button")->isHidden() != cancel);
            QVERIFY(part(dialog, "apply_button")->isHidden() != apply);
            QVERIFY(part(dialog, "reset_button")->isHidden() != reset);
            QVERIFY(part(dialog, "ipanel")->isHidden() == isFirst);
        }
    }

    void informationIsADescriptionForAssistiveTools()
    {
        const Dialog dialog = makeInfoDialog(QStringLiteral("Makes it even."));
        QCOMPARE(dialog->accessibleDescription(), QStringLiteral("Makes it even."));
        QVERIFY(!part(dialog, "ipanel")->isHidden());
        QVERIFY(part(makeInfoDialog({}), "ipanel")->isHidden());
    }

    void aNullMainPanelThrowsAndTakesNothing()
    {
        QWidget parent;
        const std::unique_ptr<QWidget> advanced(makePanel());
        auto &toolkit = QtUiToolkit::Instance();
        for (const bool isFirst : {true, false}) {
            try {
                if (isFirst)
                    toolkit.CreateFlyoutDialog(&parent, {}, nullptr, advanced.get(), true, true,
                                               true, true);
                else
                    toolkit.CreateFlyoutDialog(&parent, {}, nullptr, {}, true, true, true, true,
                                               advanced.get());
                QFAIL("no exception");
            } catch (const std::runtime_error &error) {
                QCOMPARE(error.what(), "main panel cannot be null.");
            }
            QVERIFY(parent.children().isEmpty());
            QVERIFY(!advanced->parent());
        }
    }

    void aFailingAllocationGivesNull()
    {
        const std::unique_ptr<QWidget> panel(makePanel());
        auto &toolkit = QtUiToolkit::Instance();
        for (const bool isFirst : {true, false}) {
            FailingNew fault(0);
            const MDialogBase *const dialog = isFirst
                ? toolkit.CreateFlyoutDialog(nullptr, {}, panel.get(), nullptr, true, true, true,
                                             true)
                : toolkit.CreateFlyoutDialog(nullptr, {}, panel.get(), {}, true, true, true, true,
                                             nullptr);
            fault.disarm();
            QVERIFY(fault.happened());
            QVERIFY(!dialog);
            QVERIFY(!panel->parent());
        }
    }

    void panelsAreGivenBackWhenThereIsNoMemory_data()
    {
        QTest::addColumn<bool>("hasFlyout");
        QTest::addColumn<bool>("hasInfo");
        QTest::newRow("for the flyout") << false << false;
        QTest::newRow("for the flyout with information") << false << true;
        QTest::newRow("for the dialog") << true << false;
        QTest::newRow("for the dialog with information") << true << true;
    }

    void panelsAreGivenBackWhenThereIsNoMemory()
    {
        QFETCH(const bool, hasFlyout);
        QFETCH(const bool, hasInfo);
        QWidget owner;
        const QPointer<QWidget> panel = hasFlyout ? makePanel() : new GreedyPanel;
        panel->setParent(&owner);
        const QPointer<QWidget> advanced = makePanel();
        const auto &toolkit = QtUiToolkit::Instance();
        const auto shortage = hasFlyout ? std::make_unique<DialogShortage>() : nullptr;
        const Dialog dialog(hasInfo ? toolkit.CreateFlyoutDialog(nullptr, {}, panel, {}, true, true,
                                                                 true, true, advanced)
                                    : toolkit.CreateFlyoutDialog(nullptr, {}, panel, advanced, true,
                                                                 true, true, true));
        QVERIFY(panel && advanced);
        const std::unique_ptr<QWidget> owned(advanced);
        QCOMPARE(panel->parentWidget(), &owner);
        QVERIFY(!advanced->parent());
        QCOMPARE(bool(dialog), !hasFlyout);
    }

    void dialogWhoseFlyoutCannotBeMadeIsInert()
    {
        const std::unique_ptr<QWidget> panel(new GreedyPanel);
        const Dialog dialog =
            makeDialog({}, nullptr, nullptr, QStringLiteral("Smooth"), panel.get());
        QVERIFY(!flyoutOf(dialog) && !dialog->MainPanel());
        dialog->SetTitle(QStringLiteral("Other"));
        QCOMPARE(dialog->Title(), QString());
        dialog->show();
        QVERIFY(dialog->isVisible());
    }

    // A press on a label that is not watched goes on to the flyout.
    void titleThatComesLaterMovesTheDialog()
    {
        const Dialog dialog = makeDialog({}, nullptr, nullptr, QString());
        dialog->SetTitle(QStringLiteral("Smooth"));
        dialog->show();
        const QPoint start = dialog->pos();
        auto *const label = part(dialog, "title");
        press(label, {2, 2});
        dragTo(label, {12, 2});
        QCOMPARE(dialog->pos(), start + QPoint(10, 0));
    }

    // Forwarding

    void operationsReachTheFlyout()
    {
        const Dialog dialog = makeDialog();
        const FlyoutBase *const flyout = flyoutOf(dialog);
        QToolButton button;
        dialog->SetToolButton(&button);
        QCOMPARE(flyout->ToolButton(), &button);
        QCOMPARE(dialog->ToolButton(), &button);
        dialog->SetTitle(QStringLiteral("Other"));
        QCOMPARE(flyout->Title(), QStringLiteral("Other"));
        QCOMPARE(dialog->Title(), QStringLiteral("Other"));
        dialog->SetApplyButtonText(QStringLiteral("Go"));
        dialog->SetCancelButtonText(QStringLiteral("Stop"));
        QCOMPARE(part<QPushButton>(dialog, "apply_button")->text(), QStringLiteral("Go"));
        QCOMPARE(part<QPushButton>(dialog, "cancel_button")->text(), QStringLiteral("Stop"));
        dialog->SetApplyButtonEnabled(false);
        QVERIFY(!part(dialog, "apply_button")->isEnabled());
        dialog->SetApplyButtonVisible(false);
        QVERIFY(part(dialog, "apply_button")->isHidden());
        dialog->SetCloseButtonVisible(false);
        QVERIFY(!flyout->IsCloseButtonVisible());
    }

    void cancelButtonIsHiddenByEitherWay()
    {
        const Dialog dialog = makeDialog();
        dialog->SetCancelButtonVisible(false);
        QVERIFY(part(dialog, "cancel_button")->isHidden());
        dialog->SetCancelButtonVisible(true);
        QVERIFY(!part(dialog, "cancel_button")->isHidden());
        dialog->SetToggleApplyButtonEnabled(true);
        QVERIFY(part(dialog, "cancel_button")->isHidden());
        flyoutOf(dialog)->show();
        dialog->show();
        flyoutOf(dialog)->OnEnterBusyMode();
        QCOMPARE(part<QPushButton>(dialog, "apply_button")->text(), QStringLiteral("Cancel"));
    }

    void sidePanelsReachTheFlyout()
    {
        const Dialog dialog = makeDialog();
        QWidget side;
        dialog->AddSubWidget(&side, EDirection::Right);
        const auto listed = [&dialog] {
            return flyoutOf(dialog)->property("sub_widgets").toList();
        };
        QCOMPARE(listed().size(), 1);
        QCOMPARE(side.property("direction_to").value<EDirection>(), EDirection::Right);
        dialog->RemoveSubWidget(&side);
        QVERIFY(listed().isEmpty());
    }

    void informationReachesTheFlyout()
    {
        const Dialog dialog = makeDialog();
        QVERIFY(!dialog->InfoDialog());
        InfoDialog info(nullptr);
        dialog->EnableInfoButton(true, &info);
        QCOMPARE(dialog->InfoDialog(), &info);
        QVERIFY(!part(dialog, "info_button")->isHidden());
        dialog->SetBounds(QRect(100, 50, 30, 40), QRect(7, 8, 300, 200));
        QCOMPARE(info.pos(), QPoint(100, 89) + QPoint(7, 8));
    }

    void anEmptyDialogIsInert()
    {
        const Dialog dialog = makeEmptyDialog();
        QWidget side;
        QPushButton button;
        SlotCounter counter;
        dialog->AddSubWidget(&side, EDirection::Right);
        dialog->RemoveSubWidget(&side);
        dialog->EnableInfoButton(true, &side);
        dialog->SetBounds({}, {});
        dialog->SetApplyButtonEnabled(true);
        dialog->SetApplyButtonText({});
        dialog->SetApplyButtonVisible(true);
        dialog->SetCancelButtonText({});
        dialog->SetCancelButtonVisible(true);
        dialog->SetCloseButtonVisible(true);
        dialog->SetToggleApplyButtonEnabled(true);
        dialog->SetReferencePoint({}, {});
        dialog->BindCloseButton(&button);
        dialog->BindCloseButton(&counter, SLOT(countClose()));
        dialog->BindResetButton(&counter, SLOT(countReset()));
        QToolButton tool;
        dialog->SetToolButton(&tool);
        QVERIFY(!dialog->ToolButton());
        dialog->SetTitle(QStringLiteral("Other"));
        QCOMPARE(dialog->Title(), QString());
        QVERIFY(!dialog->MainPanel() && !dialog->AdvancedPanel() && !dialog->InfoDialog());
        QVERIFY(side.property("direction_to").isNull());
        dialog->show();
        QVERIFY(dialog->isVisible());
    }

    // Closing

    void closeButtonRejects()
    {
        const Dialog dialog = makeDialog();
        const QSignalSpy rejected(dialog.get(), &QDialog::rejected);
        dialog->show();
        click(dialog, "close_button");
        QVERIFY(!dialog->isVisible());
        QCOMPARE(rejected.count(), 1);
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
    }

    void dialogShowsItsFlyoutAgain()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        QVERIFY(flyoutOf(dialog)->isVisible());
        click(dialog, "close_button");
        QVERIFY(flyoutOf(dialog)->isHidden());
        dialog->show();
        QVERIFY(flyoutOf(dialog)->isVisible());
    }

    void cancelButtonLeavesNoEmptyDialog()
    {
        const Dialog dialog = makeDialog();
        const QSignalSpy cancelled(flyoutOf(dialog), &FlyoutBase::CancelChanges);
        dialog->show();
        click(dialog, "cancel_button");
        QCOMPARE(cancelled.count(), 1);
        QVERIFY(!dialog->isVisible());
    }

    void cancellingTheWorkKeepsTheDialog()
    {
        const Dialog dialog = makeDialog();
        dialog->SetToggleApplyButtonEnabled(true);
        const QSignalSpy cancelled(flyoutOf(dialog), &FlyoutBase::CancelChanges);
        dialog->show();
        flyoutOf(dialog)->OnEnterBusyMode();
        click(dialog, "apply_button");
        QCOMPARE(cancelled.count(), 1);
        QVERIFY(dialog->isVisible() && flyoutOf(dialog)->isVisible());
    }

    void applyButtonKeepsTheDialog()
    {
        const Dialog dialog = makeDialog();
        const QSignalSpy applied(flyoutOf(dialog), &FlyoutBase::ApplyChanges);
        dialog->show();
        click(dialog, "apply_button");
        QCOMPARE(applied.count(), 1);
        QVERIFY(dialog->isVisible());
    }

    void closingClicksABoundButton()
    {
        const Dialog dialog = makeDialog();
        QPushButton button;
        const QSignalSpy clicked(&button, &QPushButton::clicked);
        dialog->BindCloseButton(&button);
        dialog->BindCloseButton(&button);
        dialog->BindCloseButton(nullptr);
        dialog->show();
        click(dialog, "close_button");
        QCOMPARE(clicked.count(), 1);
    }

    void buttonsOfTheFlyoutCallBoundSlots()
    {
        const Dialog dialog = makeDialog({true, true, true, true});
        SlotCounter counter;
        for (int i = 0; i < 2; ++i) {
            dialog->BindCloseButton(&counter, SLOT(countClose()));
            dialog->BindResetButton(&counter, SLOT(countReset()));
        }
        dialog->show();
        click(dialog, "reset_button");
        QCOMPARE(counter.reset, 1);
        QCOMPARE(counter.closed, 0);
        QVERIFY(dialog->isVisible());
        click(dialog, "close_button");
        QCOMPARE(counter.closed, 1);
    }

    void nothingIsBoundToNull()
    {
        const Dialog dialog = makeDialog();
        SlotCounter counter;
        dialog->BindCloseButton(nullptr, SLOT(countClose()));
        dialog->BindCloseButton(&counter, nullptr);
        dialog->BindResetButton(nullptr, SLOT(countReset()));
        dialog->BindResetButton(&counter, nullptr);
        dialog->SetCancelButton(nullptr);
        dialog->SetOKButton(nullptr);
        dialog->show();
        click(dialog, "close_button");
        QCOMPARE(counter.closed, 0);
    }

    void buttonsOfTheOwnerEndTheDialog()
    {
        const Dialog dialog = makeDialog();
        QPushButton ok;
        QPushButton cancel;
        dialog->SetOKButton(&ok);
        dialog->SetCancelButton(&cancel);
        const QSignalSpy accepted(dialog.get(), &QDialog::accepted);
        const QSignalSpy rejected(dialog.get(), &QDialog::rejected);
        dialog->show();
        ok.click();
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(rejected.count(), 0);
        dialog->show();
        cancel.click();
        QCOMPARE(accepted.count(), 1);
        QCOMPARE(rejected.count(), 1);
    }

    // Size and place

    void dialogIsAsLargeAsItsFlyout()
    {
        const Dialog dialog = makeDialog({}, makePanel(80));
        dialog->show();
        QCOMPARE(dialog->size(), flyoutOf(dialog)->size());
        const int folded = dialog->height();
        click(dialog, "advanced_button");
        QVERIFY(dialog->height() >= folded + 80);
        QCOMPARE(dialog->size(), flyoutOf(dialog)->size());
        click(dialog, "advanced_button");
        QCOMPARE(dialog->height(), folded);
    }

    void dialogFollowsTheSizeWhileHidden()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->hide();
        dialog->SetApplyButtonVisible(false);
        dialog->SetCancelButtonVisible(false);
        dialog->show();
        QCOMPARE(dialog->size(), flyoutOf(dialog)->size());
    }

    void dialogStaysWhereItIs_data()
    {
        QTest::addColumn<bool>("isMoved");
        QTest::newRow("moved by its owner") << true;
        QTest::newRow("left to the window system") << false;
    }

    void dialogStaysWhereItIs()
    {
        QFETCH(const bool, isMoved);
        QWidget parent;
        parent.setGeometry(200, 200, 500, 400);
        parent.show();
        const Dialog dialog = makeDialog({}, nullptr, &parent);
        if (isMoved)
            dialog->move(37, 41);
        const QPoint place = dialog->pos();
        dialog->show();
        QCOMPARE(dialog->pos(), place);
    }

    void referencePointLiesInTheParent()
    {
        QWidget parent;
        parent.setGeometry(20, 30, 700, 600);
        parent.show();
        const Dialog dialog = makeDialog({}, nullptr, &parent);
        dialog->SetReferencePoint(parent.mapToGlobal({100, 120}), QPoint(5, 7));
        dialog->show();
        QCOMPARE(dialog->pos(), parent.mapToGlobal({105, 127}));
        dialog->hide();
        dialog->SetReferencePoint(parent.mapToGlobal({690, 590}), QPoint(5, 7));
        dialog->show();
        const QPoint opposite(690 - 5 - dialog->width(), 590 - 7 - dialog->height());
        QCOMPARE(dialog->pos(), parent.mapToGlobal(opposite));
    }

    // Dragging

    void titleRowMovesTheDialog_data()
    {
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<bool>("moves");
        QTest::newRow("top left corner") << QPoint(0, 0) << true;
        QTest::newRow("title") << OnTitle << true;
        QTest::newRow("main panel") << QPoint(100, 80) << false;
    }

    void titleRowMovesTheDialog()
    {
        QFETCH(const QPoint, from);
        QFETCH(const bool, moves);
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->move(50, 60);
        QCOMPARE(movedBy(dialog, from, {30, -20}), moves ? QPoint(30, -20) : QPoint(0, 0));
        QCOMPARE(movedBy(dialog, from, {-3, 4}), moves ? QPoint(-3, 4) : QPoint(0, 0));
    }

    // The label lies in the flyout: its own corner is not that of the region.
    void labelMovesTheDialog()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->move(50, 60);
        auto *const label = part(dialog, "title");
        press(label, {2, 2});
        dragTo(label, {12, 2});
        QCOMPARE(dialog->pos(), QPoint(60, 60));
        dragTo(label, {2, 22});
        QCOMPARE(dialog->pos(), QPoint(60, 80));
        release(label, {2, 2});
        dragTo(label, {50, 50});
        QCOMPARE(dialog->pos(), QPoint(60, 80));
    }

    void regionEndsAtTheFirstButton()
    {
        const Dialog dialog = makeDialog({true, true, true, true});
        dialog->show();
        const QRect reset = part(dialog, "reset_button")->geometry();
        const QRect close = part(dialog, "close_button")->geometry();
        QVERIFY(reset.right() < close.left());
        QCOMPARE(movedBy(dialog, {reset.left() - 1, 15}, {9, 9}), QPoint(9, 9));
        QCOMPARE(movedBy(dialog, {reset.left(), 15}, {9, 9}), QPoint(0, 0));
        QCOMPARE(movedBy(dialog, {close.right() + 1, 15}, {9, 9}), QPoint(0, 0));
    }

    void pressOnTheCloseButtonDoesNotDrag()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->move(50, 60);
        auto *const button = part(dialog, "close_button");
        press(button, {5, 5});
        dragTo(button, {-50, 5});
        QCOMPARE(dialog->pos(), QPoint(50, 60));
        release(button, {-50, 5});
        QVERIFY(dialog->isVisible());
    }

    void regionWithoutButtonsIsTheWholeRow()
    {
        const Dialog dialog = makeDialog({false, true, true, false});
        dialog->show();
        QCOMPARE(movedBy(dialog, {dialog->width() - 1, 5}, {9, 9}), QPoint(9, 9));
    }

    void regionIsThatOfTheShowing()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        const QPoint onButton = part(dialog, "close_button")->geometry().center();
        dialog->SetCloseButtonVisible(false);
        QCOMPARE(movedBy(dialog, onButton, {9, 9}), QPoint(0, 0));
        dialog->hide();
        dialog->show();
        QCOMPARE(movedBy(dialog, onButton, {9, 9}), QPoint(9, 9));
    }

    void draggingGoesOnOutsideTheRegion()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->move(50, 60);
        press(flyoutOf(dialog), OnTitle);
        dragTo(flyoutOf(dialog), OnTitle + QPoint(0, 100));
        QCOMPARE(dialog->pos(), QPoint(50, 160));
        dragTo(flyoutOf(dialog), OnTitle + QPoint(0, 100));
        QCOMPARE(dialog->pos(), QPoint(50, 260));
    }

    void draggingEndsWithTheButton()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        const QPoint start = dialog->pos();
        press(flyoutOf(dialog), OnTitle);
        release(flyoutOf(dialog), OnTitle);
        dragTo(flyoutOf(dialog), OnTitle + QPoint(20, 20));
        QCOMPARE(dialog->pos(), start);
    }

    void draggingEndsWithAnythingButTheLeftButton_data()
    {
        QTest::addColumn<int>("buttons");
        QTest::newRow("a release that was missed") << int(Qt::NoButton);
        QTest::newRow("another button too") << int(Qt::LeftButton | Qt::RightButton);
        QTest::newRow("another button") << int(Qt::RightButton);
    }

    void draggingEndsWithAnythingButTheLeftButton()
    {
        QFETCH(const int, buttons);
        const Dialog dialog = makeDialog();
        dialog->show();
        const QPoint start = dialog->pos();
        press(flyoutOf(dialog), OnTitle);
        sendMouse(flyoutOf(dialog), QEvent::MouseMove, OnTitle + QPoint(20, 20), Qt::NoButton,
                  Qt::MouseButtons(buttons));
        QCOMPARE(dialog->pos(), start);
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        dragTo(flyoutOf(dialog), OnTitle + QPoint(40, 40));
        QCOMPARE(dialog->pos(), start);
    }

    void otherButtonsDoNotDrag()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        const QPoint start = dialog->pos();
        sendMouse(flyoutOf(dialog), QEvent::MouseButtonPress, OnTitle, Qt::RightButton,
                  Qt::RightButton);
        dragTo(flyoutOf(dialog), OnTitle + QPoint(20, 20));
        QCOMPARE(dialog->pos(), start);
        press(flyoutOf(dialog), OnTitle);
        sendMouse(flyoutOf(dialog), QEvent::MouseButtonRelease, OnTitle, Qt::RightButton,
                  Qt::LeftButton);
        dragTo(flyoutOf(dialog), OnTitle + QPoint(20, 20));
        QCOMPARE(dialog->pos(), start + QPoint(20, 20));
    }

    void cursorTellsTheTitleRow()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        const QPoint below(OnTitle.x(), 100);
        pointAt(flyoutOf(dialog), OnTitle);
        QCOMPARE(dialog->cursor().shape(), Qt::SizeAllCursor);
        pointAt(flyoutOf(dialog), below);
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        press(flyoutOf(dialog), OnTitle);
        dragTo(flyoutOf(dialog), below);
        QCOMPARE(dialog->cursor().shape(), Qt::SizeAllCursor);
    }

    void cursorAfterAReleaseIsTheOpposite()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        release(flyoutOf(dialog), OnTitle);
        QCOMPARE(dialog->cursor().shape(), Qt::ArrowCursor);
        release(flyoutOf(dialog), {OnTitle.x(), 100});
        QCOMPARE(dialog->cursor().shape(), Qt::SizeAllCursor);
    }

    void rightToLeftMirrorsTheRegion()
    {
        const Dialog dialog = makeDialog();
        dialog->setLayoutDirection(Qt::RightToLeft);
        dialog->show();
        const QRect close = part(dialog, "close_button")->geometry();
        QVERIFY(close.right() < dialog->width() / 2);
        QCOMPARE(movedBy(dialog, close.center(), {9, 9}), QPoint(0, 0));
        QCOMPARE(movedBy(dialog, {dialog->width() - 5, 15}, {9, 9}), QPoint(9, 9));
    }

    // Keyboard and assistive tools

    void windowTitleFollowsTheFlyout()
    {
        const Dialog dialog = makeDialog();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Smooth"));
        // The flyout has the focus at first.
        QCOMPARE(flyoutOf(dialog)->accessibleName(), QStringLiteral("Smooth"));
        flyoutOf(dialog)->SetTitle(QStringLiteral("Other"));
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Other"));
    }

    void escapeRejects()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : dialog.get(),
                        Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
    }

    void returnInAFieldApplies()
    {
        auto *const panel = makePanel();
        auto *const field = new QLineEdit(panel);
        const Dialog dialog = makeDialog({}, nullptr, nullptr, QStringLiteral("Smooth"), panel);
        const QSignalSpy applied(flyoutOf(dialog), &FlyoutBase::ApplyChanges);
        dialog->show();
        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(applied.count(), 1);
        QVERIFY(dialog->isVisible());
    }

    void returnDoesNothingWithoutAnApplyButton()
    {
        auto *const panel = makePanel();
        auto *const field = new QLineEdit(panel);
        const Dialog dialog = makeDialog({true, true, false, false}, nullptr, nullptr,
                                         QStringLiteral("Smooth"), panel);
        dialog->show();
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(dialog->isVisible());
    }

    void keyboardReachesEveryButtonAndIsSeen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("sheet");
        const QString sheet = Vela::Resource::Styles::Instance().ApplicationStyleSheet();
        for (const char *name : {"info_button", "reset_button", "close_button", "advanced_button",
                                 "cancel_button", "apply_button", "ibutton"}) {
            QTest::addRow("%s", name) << QString::fromLatin1(name) << QString();
            QTest::addRow("%s with the sheet of the library", name)
                << QString::fromLatin1(name) << sheet;
        }
    }

    void keyboardReachesEveryButtonAndIsSeen()
    {
        QFETCH(const QString, name);
        QFETCH(const QString, sheet);
        qApp->setStyleSheet(sheet);
        const auto reset = qScopeGuard([] { qApp->setStyleSheet({}); });
        const Dialog dialog = makeInfoDialog(QStringLiteral("info"), makePanel());
        InfoDialog info(nullptr);
        dialog->EnableInfoButton(true, &info);
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        auto *const button = part<QAbstractButton>(dialog, name.toLatin1());
        QVERIFY(button->isVisible());
        QVERIFY(!button->accessibleName().isEmpty() || !button->text().isEmpty());
        if (button->hasFocus()) // as the first one has
            QTest::keyClick(button, Qt::Key_Tab);
        QVERIFY(!button->hasFocus());
        const QImage before = button->grab().toImage();
        const QSize hint = button->sizeHint();
        for (int i = 0; i < 20 && !button->hasFocus(); ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QVERIFY(button->hasFocus());
        QVERIFY(button->grab().toImage() != before);
        QCOMPARE(button->sizeHint(), hint);
    }

    void focusIsFramedEvenly_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::newRow("without a sheet of the application") << QString();
        QTest::newRow("with the sheet of the library")
            << Vela::Resource::Styles::Instance().ApplicationStyleSheet();
    }

    void focusIsFramedEvenly()
    {
        QFETCH(const QString, sheet);
        qApp->setStyleSheet(sheet);
        const auto reset = qScopeGuard([] { qApp->setStyleSheet({}); });
        const Dialog dialog = makeDialog();
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        auto *const button = part(dialog, "cancel_button");
        for (int i = 0; i < 20 && !button->hasFocus(); ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QImage picture = button->grab().toImage().scaled(button->size());
        const int right = picture.width() - 1;
        const int bottom = picture.height() - 1;
        for (const QPoint &onFrame : {QPoint(3, bottom / 2), QPoint(right - 3, bottom / 2),
                                      QPoint(9, 3), QPoint(9, bottom - 3)})
            QCOMPARE(picture.pixelColor(onFrame), QColor(Qt::white));
    }

    // Lifetimes

    void dialogOwnsItsFlyout()
    {
        Dialog dialog = makeDialog();
        const QPointer<QWidget> panel = dialog->MainPanel();
        const QPointer<FlyoutBase> flyout = flyoutOf(dialog);
        dialog->show();
        dialog.reset();
        QVERIFY(!flyout && !panel);
    }

    void dialogThatLosesItsParentWhileItRunsIsRejected()
    {
        auto *const parent = new QWidget;
        const QPointer<MDialogBase> dialog = makeDialog({}, nullptr, parent).release();
        QTimer::singleShot(0, qApp, [parent] { delete parent; });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QVERIFY(!dialog);
    }

    void flyoutThatDiesUnderTheDialogLeavesItEmpty()
    {
        const Dialog dialog = makeDialog();
        dialog->show();
        dialog->activateWindow();
        press(flyoutOf(dialog), OnTitle);
        flyoutOf(dialog)->setFocus();
        delete flyoutOf(dialog);
        QVERIFY(dialog->isVisible());
        press(dialog.get(), OnTitle);
        dragTo(dialog.get(), OnTitle + QPoint(9, 9));
        release(dialog.get(), OnTitle);
        dialog->hide();
        dialog->show();
        QVERIFY(!dialog->MainPanel());
    }

    void dialogMayDieWhenItIsRejected()
    {
        for (const char *name : {"close_button", "cancel_button"}) {
            const QPointer<MDialogBase> dialog = makeDialog().release();
            connect(dialog, &QDialog::rejected, qApp, [dialog] { delete dialog; });
            dialog->show();
            QTest::mouseClick(dialog->findChild<QWidget *>(QLatin1String(name)), Qt::LeftButton);
            QVERIFY(!dialog);
        }
    }

    void dialogMayDieInWhatItsUserDoes_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"close_button", "cancel_button", "apply_button", "reset_button"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void dialogMayDieInWhatItsUserDoes()
    {
        QFETCH(const QString, name);
        const QPointer<MDialogBase> dialog = makeDialog({true, true, true, true}).release();
        auto *const flyout = dialog->findChild<FlyoutBase *>();
        const auto end = [dialog] { delete dialog; };
        connect(flyout, &FlyoutBase::CloseFlyout, qApp, end);
        connect(flyout, &FlyoutBase::CancelChanges, qApp, end);
        connect(flyout, &FlyoutBase::ApplyChanges, qApp, end);
        connect(flyout, &FlyoutBase::ResetValues, qApp, end);
        QTimer::singleShot(0, dialog, [dialog, name] {
            QTest::mouseClick(dialog->findChild<QWidget *>(name), Qt::LeftButton);
        });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QVERIFY(!dialog);
    }

    void flyoutMayDieWhenItCancels()
    {
        const Dialog dialog = makeDialog();
        connect(flyoutOf(dialog), &FlyoutBase::CancelChanges, qApp,
                [&dialog] { delete flyoutOf(dialog); });
        dialog->show();
        click(dialog, "cancel_button");
        QVERIFY(!flyoutOf(dialog));
        QVERIFY(!dialog->isVisible());
    }
};

LUMO_TEST_MAIN(tst_MDialogBase)
#include "tst_mdialogbase.moc"
