// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandclock.h"
#include "commands/comparecommand.h"
#include "commands/pickcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/comparecontroller.h"
#include "controllers/meshviewcontroller.h"
#include "desktop/desktopuser.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "view/camerarig.h"
#include "view/comparepanel.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <lumo_app_service/ApplicationService>

#include <QToolButton>

using namespace Lumo::Test;
using namespace Workbench;

/// The whole window under a real pointer and keyboard, with OpenGL.
class PointerTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void init()
    {
        TestCase::init();
        QVERIFY(pointAsUser({5, 5}));
        m_window = std::make_unique<MainWindow>();
        Vela::Services::ApplicationService::GetInstance().setMainWindow(m_window.get());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_window->openFile(QStringLiteral(WORKBENCH_DATA "/bunny.obj"));
        QTRY_COMPARE(m_window->clock().running(), 0);
        QTRY_VERIFY(!view().isFrameDue());
        QVERIFY(m_window->pane().message().isEmpty());
    }

    void cleanup()
    {
        Vela::Services::ApplicationService::GetInstance().setMainWindow(nullptr);
        m_window.reset();
        TestCase::cleanup();
    }

    void everyButtonHasItsTool()
    {
        const QPoint middle = view().rect().center();
        QVERIFY(pointAsUser(at(middle)));
        QTRY_VERIFY(view().underMouse());
        QTRY_COMPARE(view().cursor().shape(), Qt::OpenHandCursor);

        const QMatrix4x4 direction = rig().camera().rotation();
        dragTo(at(middle + QPoint(60, 20)), 1);
        QVERIFY(rig().camera().rotation() != direction);

        const QPointF place = seenMiddle();
        dragTo(at(middle), 2);
        QTRY_VERIFY((seenMiddle() - place - QPointF(-60, -20)).manhattanLength() < 1.0);

        const float zoom = rig().camera().zoomFactor();
        QVERIFY(clickAsUser(4, 2));
        QTRY_VERIFY(rig().camera().zoomFactor() < zoom);

        dragTo(at(middle + QPoint(120, 90)), 3);
        QTRY_VERIFY(m_window->document().selection().size() > 10);
        QTRY_COMPARE(view().cursor().shape(), Qt::OpenHandCursor);
    }

    void picksUntilEscape()
    {
        QVERIFY(pointAsUser(at(view().rect().center())));
        QTRY_VERIFY(view().underMouse());
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+k")));
        QTRY_VERIFY(m_window->commands().pick->isChecked());
        QCOMPARE(view().cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(clickAsUser(1));
        QTRY_COMPARE(m_window->document().selection().size(), 1);
        QVERIFY(pressKeyAsUser(QStringLiteral("Escape")));
        QTRY_VERIFY(!m_window->commands().pick->isChecked());
        QCOMPARE(view().cursor().shape(), Qt::OpenHandCursor);
    }

    void messagesLeaveTheKeyboardToTheView()
    {
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+d")));
        QTRY_VERIFY(m_window->pane().controller()->isNotificationShowing());
        QTRY_COMPARE(m_window->clock().running(), 0);
        QTRY_VERIFY(m_window->commands().subdivide->isEnabled());
        QVERIFY(m_window->isActiveWindow());
        const int faces = m_window->document().mesh().faces.size();
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+d")));
        QTRY_COMPARE(m_window->document().mesh().faces.size(), 4 * faces);
        QTRY_COMPARE(m_window->clock().running(), 0);
    }

    void theComparisonIsTurnedAndClosedByThePointer()
    {
        QVERIFY(pressKeyAsUser(QStringLiteral("ctrl+b")));
        QTRY_VERIFY(m_window->pane().controller()->comparison());
        CompareController &comparison = *m_window->pane().controller()->comparison();
        const MeshView &half = comparison.panel()->after();
        QTRY_VERIFY(half.isVisible() && !half.isFrameDue());
        const QMatrix4x4 direction = comparison.rig().camera().rotation();
        QVERIFY(pointAsUser(half.mapToGlobal(half.rect().center())));
        QTRY_VERIFY(half.underMouse());
        dragTo(half.mapToGlobal(half.rect().center() + QPoint(50, 0)), 1);
        QVERIFY(comparison.rig().camera().rotation() != direction);

        const auto *close = comparison.panel()->findChild<QToolButton *>(QStringLiteral("close"));
        QVERIFY(pointAsUser(close->mapToGlobal(close->rect().center())));
        QTRY_VERIFY(close->underMouse());
        QVERIFY(clickAsUser(1));
        QTRY_VERIFY(!m_window->pane().controller()->comparison());
        QVERIFY(!m_window->commands().compare->isChecked());
        QTRY_VERIFY(!view().isFrameDue());
    }

private:
    MeshView &view() const { return *m_window->pane().view(); }
    CameraRig &rig() const { return m_window->pane().controller()->rig(); }
    QPoint at(const QPoint &position) const { return view().mapToGlobal(position); }
    QPointF seenMiddle() const
    {
        return rig().toPicture().map(boundsOf(m_window->document().mesh()).center()).toPointF();
    }

    /// Drags from where the pointer is to the place @p global of the screen.
    void dragTo(const QPoint &global, int button)
    {
        QVERIFY(pressAsUser(button));
        QVERIFY(pointAsUser(global));
        QVERIFY(releaseAsUser(button));
        QTRY_VERIFY(!QGuiApplication::mouseButtons());
        QTRY_VERIFY(!m_window->pane().controller()->getOperatingTool());
    }

    std::unique_ptr<MainWindow> m_window;
};

LUMO_TEST_MAIN(PointerTest)
#include "tst_pointer.moc"
