// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/meshview.h"

#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"
#include "tour/picture.h"
#include "view/camerarig.h"

#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

using namespace Workbench;

namespace {

/// Counts the mouse presses that reach a widget as events.
class PressFilter : public QObject
{
public:
    int presses = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class MeshViewTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        TestCase::init();
        m_rig = std::make_shared<CameraRig>();
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 300);
        auto *layout = new QVBoxLayout(m_window.get());
        layout->setContentsMargins(0, 0, 0, 0);
        m_view = new MeshView(m_rig, m_window.get());
        layout->addWidget(m_view);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_VERIFY(!m_view->isFrameDue());
    }

    void cleanup()
    {
        m_window.reset();
        TestCase::cleanup();
    }

    void hasANativeOpenGlWindowOfItsOwn()
    {
        QVERIFY(m_view->internalWinId() != 0);
        QVERIFY(m_view->windowHandle() != m_window->windowHandle());
        QCOMPARE(m_view->windowHandle()->surfaceType(), QSurface::OpenGLSurface);
    }

    void showsTheMeshAndNothingButTheMesh()
    {
        const QImage empty = picture();
        showTetrahedron();
        const double share = changedShare(empty, picture());
        QVERIFY(share > 0.05 && share < 0.9);
        m_view->setMesh({});
        QTRY_VERIFY(!m_view->isFrameDue());
        QCOMPARE(changedShare(empty, picture()), 0.0);
    }

    void theBackgroundIsLighterAtTheTop() { QVERIFY(topLight(picture()) > 0.1); }

    void everyModeAndAttributeLooksDifferent_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("attributes");
        QTest::newRow("flat") << int(EDisplayMode::Flat) << 0;
        QTest::newRow("wireframe") << int(EDisplayMode::Wireframe) << 0;
        QTest::newRow("points") << int(EDisplayMode::Points) << 0;
        QTest::newRow("normals") << int(EDisplayMode::Shaded) << int(EAttribute::Normals);
        QTest::newRow("box") << int(EDisplayMode::Shaded) << int(EAttribute::Box);
        QTest::newRow("axes") << int(EDisplayMode::Shaded) << int(EAttribute::Axes);
        QTest::newRow("points with edges") << int(EDisplayMode::Points) << int(EAttribute::Edges);
    }

    void everyModeAndAttributeLooksDifferent()
    {
        QFETCH(int, mode);
        QFETCH(int, attributes);
        m_view->setMesh(TestMeshes::bumpyGrid(6, 0.5F));
        frame(TestMeshes::bumpyGrid(6, 0.5F));
        QTRY_VERIFY(!m_view->isFrameDue());
        const QImage shaded = picture();
        m_view->setAppearance({EDisplayMode(mode), Attributes(attributes)});
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(shaded, picture()) > 0.001);
    }

    void selectedFacesStandOut()
    {
        showTetrahedron();
        const QImage plain = picture();
        m_view->setSelection({0, 1, 2, 3});
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(plain, picture()) > 0.03);
        m_view->setMesh(TestMeshes::tetrahedron());
        QTRY_VERIFY(!m_view->isFrameDue());
        QCOMPARE(changedShare(plain, picture()), 0.0);
    }

    void theRubberBandStandsOnItsPixels()
    {
        const QImage plain = picture();
        m_view->setBand({20, 30, 100, 50});
        QTRY_VERIFY(!m_view->isFrameDue());
        const QImage banded = picture();
        const QColor border(41, 102, 163);
        QCOMPARE(banded.pixelColor(20, 30), border);
        QCOMPARE(banded.pixelColor(119, 79), border);
        QCOMPARE(banded.pixelColor(19, 30), plain.pixelColor(19, 30));
        QCOMPARE(banded.pixelColor(120, 79), plain.pixelColor(120, 79));
        QCOMPARE(banded.pixelColor(119, 80), plain.pixelColor(119, 80));
        QVERIFY(banded.pixelColor(60, 50) != plain.pixelColor(60, 50));
        QVERIFY(banded.pixelColor(60, 50) != border);
    }

    void followsTheCamera()
    {
        showTetrahedron();
        const QImage before = picture();
        m_rig->orbit({40.0, 10.0});
        QVERIFY(m_view->isFrameDue());
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(before, picture()) > 0.01);
    }

    void edgesAreDrawnOnTheMeshAndGoAgain()
    {
        showTetrahedron();
        const QImage shaded = picture();
        m_view->setAppearance({EDisplayMode::Shaded, EAttribute::Edges});
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(shaded, picture()) > 0.002);
        m_view->setAppearance({});
        QTRY_VERIFY(!m_view->isFrameDue());
        QCOMPARE(changedShare(shaded, picture()), 0.0);
    }

    void theInsideLooksDifferent()
    {
        showTetrahedron();
        const QImage outside = picture();
        Mesh mesh = TestMeshes::tetrahedron();
        flipNormals(mesh);
        m_view->setMesh(mesh);
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(outside, picture()) > 0.05);
    }

    void drawsNothingWhileNothingChanges()
    {
        showTetrahedron();
        QSignalSpy frames(m_view, &MeshView::framePresented);
        m_view->setAppearance(m_view->appearance());
        m_view->setBand(m_view->band());
        for (int turn = 0; turn < 20; ++turn)
            QCoreApplication::processEvents();
        QCOMPARE(frames.count(), 0);
        QVERIFY(!m_view->isFrameDue());
    }

    void severalChangesMakeOneFrame()
    {
        QSignalSpy frames(m_view, &MeshView::framePresented);
        m_view->setMesh(TestMeshes::tetrahedron());
        frame(TestMeshes::tetrahedron());
        m_view->setAppearance({EDisplayMode::Flat, {}});
        QTRY_VERIFY(!m_view->isFrameDue());
        QCOMPARE(frames.count(), 1);
    }

    void fillsItsPlaceAfterAResize()
    {
        showTetrahedron();
        m_window->resize(500, 420);
        QTRY_COMPARE(m_view->size(), QSize(500, 420));
        QTRY_VERIFY(!m_view->isFrameDue());
        QTRY_VERIFY(topLight(picture()) > 0.1);
    }

    void aRealClickArrivesAsAnEventOfTheWidget()
    {
        PressFilter filter;
        m_view->installEventFilter(&filter);
        const QPoint middle = m_view->mapToGlobal(m_view->rect().center());
        QCOMPARE(QProcess::execute(QStringLiteral("xdotool"),
                                   {QStringLiteral("mousemove"), QString::number(middle.x()),
                                    QString::number(middle.y()), QStringLiteral("click"),
                                    QStringLiteral("1")}),
                 0);
        QTRY_COMPARE(filter.presses, 1);
    }

    void goesOnInAnotherWindow()
    {
        showTetrahedron();
        QWidget other;
        other.resize(400, 300);
        auto *layout = new QVBoxLayout(&other);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_view);
        other.show();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTRY_VERIFY(!m_view->isFrameDue());
        const QImage before = picture();
        m_view->setMesh({});
        QTRY_VERIFY(!m_view->isFrameDue());
        QVERIFY(changedShare(before, picture()) > 0.05);
    }

private:
    void showTetrahedron()
    {
        m_view->setMesh(TestMeshes::tetrahedron());
        frame(TestMeshes::tetrahedron());
        QTRY_VERIFY(!m_view->isFrameDue());
    }

    QImage picture() const { return m_view->screen()->grabWindow(m_view->winId()).toImage(); }

    void frame(const Mesh &mesh)
    {
        Camera camera;
        camera.frame(boundsOf(mesh));
        m_rig->setCamera(camera);
    }

    std::shared_ptr<CameraRig> m_rig;
    std::unique_ptr<QWidget> m_window;
    MeshView *m_view = nullptr;
};

LUMO_TEST_MAIN(MeshViewTest)
#include "tst_meshview.moc"
