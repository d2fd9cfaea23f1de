// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "appmanager.h"
#include "commands/attributecommand.h"
#include "commands/comparecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/pickcommand.h"
#include "commands/showallcommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/comparecontroller.h"
#include "controllers/meshviewcontroller.h"
#include "image/imagedocument.h"
#include "meshdocument.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"
#include "view/camerarig.h"
#include "view/comparepanel.h"
#include "view/meshview.h"

#include <lumo_app_service/ApplicationService>
#include <ui_base/BaseView>
#include <ui_base/CommandGroup>
#include <ui_base/InteractiveTool>
#include <ui_base/NotificationBar>

#include <QActionGroup>
#include <QLabel>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Workbench;
using namespace Vela::UiBase;

namespace {

void send(QWidget &widget, QEvent::Type type, const QPoint &position, Qt::MouseButton button,
          Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QMouseEvent event(type, position, widget.mapToGlobal(position), button, buttons, modifiers);
    QCoreApplication::sendEvent(&widget, &event);
}

void press(QWidget &widget, Qt::MouseButton button, const QPoint &position)
{
    send(widget, QEvent::MouseButtonPress, position, button, button);
}

void moveTo(QWidget &widget, Qt::MouseButton button, const QPoint &position)
{
    send(widget, QEvent::MouseMove, position, Qt::NoButton, button);
}

void release(QWidget &widget, Qt::MouseButton button, const QPoint &position,
             Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    send(widget, QEvent::MouseButtonRelease, position, button, Qt::NoButton, modifiers);
}

void turnWheel(QWidget &widget, const QPoint &position)
{
    QWheelEvent event(position, widget.mapToGlobal(position), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

} // namespace

/// A window with the view of a mesh, as the workbench has it. There is no OpenGL here, which the
/// tools and commands do without.
class ControllersTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void init()
    {
        TestCase::init();
        m_document = std::make_shared<MeshDocument>();
        m_manager = std::make_unique<AppManager>(
            m_document, std::make_shared<ImageDocument>(), [] { return QString(); },
            [] { return QString(); }, [] { return QString(); });
        m_window = std::make_unique<QWidget>();
        m_controller =
            new MeshViewController(new BaseView(m_window.get(), Qt::WindowFlags()), m_document);
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_controller->getQtWidget());
        m_window->resize(600, 400);
        m_window->show();
        m_document->open(QStringLiteral("test.obj"), TestMeshes::tetrahedron());
        QCOMPARE(view().size(), QSize(600, 400));
    }

    void cleanup()
    {
        m_window.reset();
        m_manager.reset();
        m_document.reset();
        TestCase::cleanup();
    }

    void theControllerStandsOnTheNativeView()
    {
        QVERIFY(m_controller->meshView());
        QCOMPARE(m_controller->getQtWidget(), m_controller->meshView());
        QCOMPARE(BaseView::getBaseViewOfQtWidget(&view()), m_controller->getView());
        QVERIFY(m_controller->isLoaded());
    }

    void theManagerSuppliesTheCommandsInGroups()
    {
        const CommandSet &commands = m_manager->commandSet();
        for (CommandGroup *group : commands.groups())
            QCOMPARE(m_controller->findCommand(group->commandId()), group);
        for (CommandBase *command : commands.all()) {
            QCOMPARE(m_controller->findCommand(command->commandId()), command);
            QCOMPARE(command->getViewController(), m_controller.data());
            QVERIFY(command->addedToCmdsVC());
        }
        QCOMPARE(int(commands.all().size()), 21);
    }

    void oneDisplayModeIsOnAtATime()
    {
        const auto &modes = m_manager->commandSet().modes;
        QVERIFY(modes[0]->isChecked());
        modes[3]->trigger();
        QVERIFY(modes[3]->isChecked() && !modes[0]->isChecked());
        QVERIFY(view().appearance().mode == EDisplayMode::Points);
        modes[3]->trigger();
        QVERIFY(modes[3]->isChecked());
    }

    void anyNumberOfAttributesIsOn()
    {
        const auto &attributes = m_manager->commandSet().attributes;
        attributes[0]->trigger();
        attributes[3]->trigger();
        QVERIFY(attributes[0]->isChecked() && attributes[3]->isChecked());
        QVERIFY(view().appearance().attributes
                == Attributes({EAttribute::Edges, EAttribute::Axes}));
        attributes[0]->trigger();
        QVERIFY(view().appearance().attributes == Attributes(EAttribute::Axes));
    }

    void theLeftButtonOrbits()
    {
        const QMatrix4x4 before = m_controller->rig().camera().rotation();
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        press(view(), Qt::LeftButton, {300, 200});
        QCOMPARE(view().cursor().shape(), Qt::ClosedHandCursor);
        moveTo(view(), Qt::LeftButton, {340, 210});
        QVERIFY(m_controller->rig().camera().rotation() != before);
        release(view(), Qt::LeftButton, {340, 210});
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        const QMatrix4x4 after = m_controller->rig().camera().rotation();
        moveTo(view(), Qt::NoButton, {400, 250});
        QCOMPARE(m_controller->rig().camera().rotation(), after);
    }

    void theMiddleButtonPans()
    {
        press(view(), Qt::MiddleButton, {300, 200});
        QCOMPARE(view().cursor().shape(), Qt::SizeAllCursor);
        moveTo(view(), Qt::MiddleButton, {330, 190});
        release(view(), Qt::MiddleButton, {330, 190});
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        const QPointF middle = m_controller->rig().toPicture().map(QVector3D()).toPointF();
        QVERIFY((middle - QPointF(330, 190)).manhattanLength() < 0.1);
    }

    void theWheelZoomsUnlessAnotherToolWorks()
    {
        turnWheel(view(), {300, 200});
        const float closer = m_controller->rig().camera().zoomFactor();
        QVERIFY(closer < 1.0F);
        press(view(), Qt::LeftButton, {300, 200});
        turnWheel(view(), {300, 200});
        QCOMPARE(m_controller->rig().camera().zoomFactor(), closer);
        release(view(), Qt::LeftButton, {300, 200});
    }

    void theRightButtonSelectsByABand()
    {
        press(view(), Qt::RightButton, {10, 10});
        QVERIFY(view().band().isEmpty());
        moveTo(view(), Qt::RightButton, {590, 390});
        QCOMPARE(view().band(), QRect(QPoint(10, 10), QPoint(590, 390)));
        QCOMPARE(view().cursor().shape(), Qt::CrossCursor);
        release(view(), Qt::RightButton, {590, 390});
        QVERIFY(view().band().isEmpty());
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        const int count = m_document->selection().size();
        QVERIFY(count >= 1 && count <= 3);
    }

    void aBandInAnyDirectionIsABand()
    {
        press(view(), Qt::RightButton, {590, 10});
        moveTo(view(), Qt::RightButton, {10, 390});
        QCOMPARE(view().band(), QRect(QPoint(10, 10), QPoint(590, 390)));
        release(view(), Qt::RightButton, {10, 390});
        QVERIFY(!m_document->selection().isEmpty());
    }

    void aRightClickLeavesTheSelectionAlone()
    {
        m_document->select({1});
        press(view(), Qt::RightButton, {300, 200});
        release(view(), Qt::RightButton, {300, 200});
        QCOMPARE(m_document->selection(), QVector<int> {1});
    }

    void theLeftButtonTakesABandAway()
    {
        m_document->select({1});
        press(view(), Qt::RightButton, {10, 10});
        moveTo(view(), Qt::RightButton, {590, 390});
        press(view(), Qt::LeftButton, {300, 200});
        QVERIFY(view().band().isEmpty());
        release(view(), Qt::LeftButton, {300, 200});
        QCOMPARE(m_document->selection(), QVector<int> {1});
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
    }

    void withControlTheSelectionGrows()
    {
        m_document->select({3});
        pick().trigger();
        press(view(), Qt::LeftButton, {300, 200});
        release(view(), Qt::LeftButton, {300, 200}, Qt::ControlModifier);
        QCOMPARE(m_document->selection().size(), 2);
        QVERIFY(m_document->selection().contains(3));
    }

    void pickIsPushedOverOrbitAndPopped()
    {
        const auto orbit = m_controller->getTool(eToolButtonLeft);
        pick().trigger();
        QVERIFY(m_controller->isPicking());
        QVERIFY(orbit->isSuspended());
        QCOMPARE(view().cursor().shape(), Qt::PointingHandCursor);
        pick().trigger();
        QCOMPARE(m_controller->getTool(eToolButtonLeft), orbit);
        QVERIFY(orbit->isActive());
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
    }

    void aClickPicksTheFaceUnderIt()
    {
        pick().trigger();
        press(view(), Qt::LeftButton, {300, 200});
        release(view(), Qt::LeftButton, {300, 200});
        QCOMPARE(m_document->selection().size(), 1);
        press(view(), Qt::LeftButton, {2, 2});
        release(view(), Qt::LeftButton, {2, 2});
        QVERIFY(m_document->selection().isEmpty());
    }

    void aDragPicksNothing()
    {
        m_document->select({2});
        pick().trigger();
        press(view(), Qt::LeftButton, {300, 200});
        moveTo(view(), Qt::LeftButton, {200, 200});
        release(view(), Qt::LeftButton, {200, 200});
        QCOMPARE(m_document->selection(), QVector<int> {2});
    }

    void escapeEndsPickingAlsoInAClick()
    {
        pick().trigger();
        press(view(), Qt::LeftButton, {300, 200});
        QTest::keyClick(&view(), Qt::Key_Escape);
        QVERIFY(!pick().isChecked());
        QVERIFY(!m_controller->isPicking());
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        release(view(), Qt::LeftButton, {300, 200});
        QVERIFY(m_document->selection().isEmpty());
    }

    void pickingDuringADragEndsTheDrag()
    {
        press(view(), Qt::LeftButton, {300, 200});
        moveTo(view(), Qt::LeftButton, {310, 200});
        pick().trigger();
        release(view(), Qt::LeftButton, {310, 200});
        pick().trigger();
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
        const QMatrix4x4 before = m_controller->rig().camera().rotation();
        press(view(), Qt::LeftButton, {300, 200});
        moveTo(view(), Qt::LeftButton, {340, 200});
        QVERIFY(m_controller->rig().camera().rotation() != before);
        release(view(), Qt::LeftButton, {340, 200});
    }

    void showAllKeepsTheDirection()
    {
        m_controller->rig().orbit({33, 11});
        const QMatrix4x4 direction = m_controller->rig().camera().rotation();
        m_controller->rig().pan({100, 50});
        m_manager->commandSet().showAll->trigger();
        QCOMPARE(m_controller->rig().camera().rotation(), direction);
        const QPointF middle = m_controller->rig().toPicture().map(QVector3D()).toPointF();
        QVERIFY((middle - QPointF(300, 200)).manhattanLength() < 0.1);
    }

    void aRunIsToldInTheNotification()
    {
        m_manager->commandSet().subdivide->trigger();
        QTRY_VERIFY(bar());
        QTRY_COMPARE(barText(), QStringLiteral("Each face has become four."));
        QTRY_VERIFY(m_controller->isNotificationShowing());
        QCOMPARE(bar()->parentWidget()->objectName(), QStringLiteral("floating layer"));
    }

    void theComparisonIsPresentedAndDismissed()
    {
        m_document->flipNormals();
        compare().trigger();
        CompareController *const comparison = m_controller->comparison();
        QVERIFY(comparison);
        QCOMPARE(m_controller->presentedViewController().get(), comparison);
        QCOMPARE(comparison->presentingViewController().get(), m_controller.data());
        QCOMPARE(comparison->panel()->parentWidget(), &view());
        QCOMPARE(comparison->panel()->size(), view().size());
        QVERIFY(comparison->panel()->isVisible());
        m_window->resize(700, 500);
        QTRY_COMPARE(comparison->panel()->size(), QSize(700, 500));

        const QPointer<CompareController> watcher(comparison);
        compare().trigger();
        QVERIFY(!m_controller->comparison());
        QVERIFY(!m_controller->presentedViewController());
        QTRY_VERIFY(!watcher);
        QVERIFY(m_controller->meshView());
    }

    void theComparisonHasToolsOfItsOwn()
    {
        compare().trigger();
        CompareController &comparison = *m_controller->comparison();
        const QMatrix4x4 main = m_controller->rig().camera().rotation();
        const QMatrix4x4 before = comparison.rig().camera().rotation();
        QCOMPARE(before, main);
        MeshView &half = comparison.panel()->after();
        press(half, Qt::LeftButton, {50, 50});
        moveTo(half, Qt::LeftButton, {90, 50});
        release(half, Qt::LeftButton, {90, 50});
        QVERIFY(comparison.rig().camera().rotation() != before);
        QCOMPARE(m_controller->rig().camera().rotation(), main);
    }

    void theComparisonLooksLikeTheView()
    {
        compare().trigger();
        m_manager->commandSet().modes[1]->trigger();
        const ComparePanel &panel = *m_controller->comparison()->panel();
        QVERIFY(panel.before().appearance().mode == EDisplayMode::Flat);
        QVERIFY(panel.after().appearance().mode == EDisplayMode::Flat);
    }

    void escapeAndTheButtonCloseTheComparison()
    {
        compare().trigger();
        QTest::keyClick(m_controller->comparison()->panel(), Qt::Key_Escape);
        QVERIFY(!compare().isChecked());
        QVERIFY(!m_controller->comparison());
        compare().trigger();
        auto *const button =
            m_controller->comparison()->panel()->findChild<QToolButton *>(QStringLiteral("close"));
        QCOMPARE(button->accessibleName(), QStringLiteral("Close the comparison"));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!compare().isChecked());
        QVERIFY(!m_controller->comparison());
    }

    void theQuestionKeepsTheViewOpen()
    {
        int asked = 0;
        bool answer = false;
        m_controller->setClosingQuestion([&] {
            ++asked;
            return answer;
        });
        QVERIFY(!m_controller->close());
        QVERIFY(!Vela::Services::ApplicationService::GetInstance().requestShutdown());
        QCOMPARE(asked, 2);
        QVERIFY(pick().addedToCmdsVC());
        press(view(), Qt::LeftButton, {300, 200});
        QCOMPARE(view().cursor().shape(), Qt::ClosedHandCursor);
        release(view(), Qt::LeftButton, {300, 200});
        answer = true;
        QVERIFY(m_controller->close());
        QTRY_VERIFY(!m_controller);
        QVERIFY(Vela::Services::ApplicationService::GetInstance().requestShutdown());
    }

    void aViewClosedDuringADragIsSafe_data()
    {
        QTest::addColumn<int>("button");
        QTest::newRow("orbit") << int(Qt::LeftButton);
        QTest::newRow("pan") << int(Qt::MiddleButton);
        QTest::newRow("band") << int(Qt::RightButton);
    }

    void aViewClosedDuringADragIsSafe()
    {
        QFETCH(int, button);
        const auto held = Qt::MouseButton(button);
        QWidget &closing = view();
        press(closing, held, {300, 200});
        moveTo(closing, held, {340, 210});
        QVERIFY(m_controller->close());
        moveTo(closing, held, {350, 210});
        release(closing, held, {350, 210});
        QTRY_VERIFY(!m_controller);
        QVERIFY(m_document->selection().isEmpty());
    }

    void aViewClosedByWhatADragSelectsIsSafe()
    {
        connect(m_document.get(), &MeshDocument::selectionChanged, m_controller,
                [this] { m_controller->close(); });
        press(view(), Qt::RightButton, {10, 10});
        moveTo(view(), Qt::RightButton, {590, 390});
        release(view(), Qt::RightButton, {590, 390});
        QTRY_VERIFY(!m_controller);
    }

    void aViewClosedUnderItsComparisonIsSafe()
    {
        compare().trigger();
        const QPointer<CompareController> comparison(m_controller->comparison());
        QVERIFY(m_controller->close());
        QTRY_VERIFY(!m_controller);
        QTRY_VERIFY(!comparison);
        QVERIFY(!compare().isChecked());
    }

    void aCommandOutlivesTheControllerThatIsClosedDuringItsRun()
    {
        const std::weak_ptr<SubdivideCommand> command = m_manager->commandSet().subdivide;
        command.lock()->trigger();
        QVERIFY(m_controller->close());
        QTRY_VERIFY(!m_controller);
        m_manager.reset();
        m_window.reset();
        QTRY_COMPARE(m_document->mesh().faces.size(), 16);
        QTRY_VERIFY(command.expired());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void aCommandOutlivesEverythingThatIsDestroyedDuringItsRun()
    {
        const std::weak_ptr<SmoothCommand> command = m_manager->commandSet().smooth;
        const std::weak_ptr<MeshDocument> document = m_document;
        command.lock()->trigger();
        m_window.reset();
        m_manager.reset();
        m_document.reset();
        QTRY_VERIFY(command.expired());
        QTRY_VERIFY(document.expired());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void anOperationOfACommandWithoutAViewDoesNothing()
    {
        QVERIFY(m_controller->close());
        QTRY_VERIFY(!m_controller);
        pick().trigger();
        compare().trigger();
        m_manager->commandSet().modes[1]->trigger();
        m_manager->commandSet().showAll->trigger();
        QVERIFY(pick().isChecked());
    }

private:
    MeshView &view() const { return *m_controller->meshView(); }
    PickCommand &pick() const { return *m_manager->commandSet().pick; }
    CompareCommand &compare() const { return *m_manager->commandSet().compare; }
    NotificationBar *bar() const { return view().findChild<NotificationBar *>(); }
    QString barText() const { return bar()->findChild<QLabel *>()->text(); }

    std::shared_ptr<MeshDocument> m_document;
    std::unique_ptr<AppManager> m_manager;
    std::unique_ptr<QWidget> m_window;
    QPointer<MeshViewController> m_controller;
};

LUMO_TEST_MAIN(ControllersTest)
#include "tst_controllers.moc"
