// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commands/attributecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/flipnormalscommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "controllers/meshviewcontroller.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/sidepanel.h"
#include "flyouts/smoothflyout.h"
#include "flyouts/subdivideflyout.h"
#include "mainwindow.h"
#include "mesh/meshoperations.h"
#include "meshdocument.h"
#include "statusline.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <tessel/dispatch.h>
#include <ui_base/ArrowedWindow>
#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/ToolButton>

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QSlider>

using namespace Workbench;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::FlyoutBase;

namespace {

/// The window with a noisy mesh of 800 faces.
class Scene
{
public:
    Scene()
    {
        window.show();
        window.document().open(QStringLiteral("noisy.obj"), TestMeshes::bumpyGrid(20, 1.0F));
        settle();
    }

    const CommandSet &commands() const { return window.commands(); }
    const Mesh &mesh() const { return window.document().mesh(); }

    /// Runs what is posted, and what that posts.
    static void settle()
    {
        for (int turn = 0; turn < 4; ++turn) {
            bool done = false;
            const auto mark = [&done] { done = true; };
            Tessel::dispatchAsync(mark, Tessel::EQualityOfService::Main);
            QTRY_VERIFY(done);
            QCoreApplication::sendPostedEvents();
        }
    }

    static void open(PanelCommand &command)
    {
        QTest::mouseClick(command.toolButton(), Qt::LeftButton);
        settle();
        QVERIFY(command.flyout()->isVisible());
    }

    MainWindow window;
};

QAbstractButton *part(const PanelCommand &command, const char *name)
{
    return command.flyout()->findChild<QAbstractButton *>(QLatin1String(name));
}

void click(const PanelCommand &command, const char *name)
{
    QTest::mouseClick(part(command, name), Qt::LeftButton);
}

QRect areaOf(const QWidget &widget)
{
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

/// What is seen of a panel, without its arrow.
QRect frameOf(const PanelCommand &command)
{
    const auto &window = *qobject_cast<ArrowedWindow *>(command.flyout()->parentWidget());
    return window.GetBounds().translated(window.mapToGlobal(QPoint(0, 0)));
}

/// Far from the corner of the screen, so that no coordinates can be mistaken for others.
void placeWindow(MainWindow &window, const QSize &size)
{
    window.setMinimumSize(0, 0);
    window.setGeometry(QRect(QPoint(90, 70), size));
    QApplication::setActiveWindow(&window);
    QTRY_COMPARE(window.size(), size);
    Scene::settle();
}

QSlider *firstSlider(const PanelCommand &command)
{
    return command.flyout()->MainPanel()->findChild<QSlider *>();
}

} // namespace

class FlyoutsTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void everyFlyoutHasAButtonWithAPicture()
    {
        MainWindow window;
        for (const auto &[id, command] : window.commands().flyouts->commandBag()) {
            QVERIFY2(command->toolButton(), qPrintable(id));
            const QIcon icon = command->icon();
            const QImage normal = icon.pixmap(24, QIcon::Normal, QIcon::On).toImage();
            const QImage active = icon.pixmap(24, QIcon::Active, QIcon::On).toImage();
            QVERIFY2(!normal.isNull() && normal != active, qPrintable(id));
            QVERIFY(!command->whatsThis().isEmpty());
            QVERIFY(QFile::exists(
                QStringLiteral(":/workbench/pictures/%1.png").arg(command->objectName())));
        }
    }

    void panelsNeedAMesh()
    {
        MainWindow window;
        window.show();
        QVERIFY(!window.commands().smoothFlyout->isEnabled());
        QVERIFY(!window.commands().measureFlyout->isEnabled());
        QTest::mouseClick(window.commands().smoothFlyout->toolButton(), Qt::LeftButton);
        QVERIFY(!window.commands().smoothFlyout->flyout()->isVisible());
    }

    void smoothingFollowsTheSettings()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        const double before = roughness(scene.mesh());
        firstSlider(smooth)->setValue(1);
        click(smooth, "apply_button");
        QTRY_VERIFY(!smooth.isRunning());
        const double once = roughness(scene.mesh());
        QVERIFY(once < before);
        QVERIFY(smooth.flyout()->isVisible());
        firstSlider(smooth)->setValue(100);
        click(smooth, "apply_button");
        QTRY_VERIFY(!smooth.isRunning());
        QVERIFY(roughness(scene.mesh()) < once / 2);
        QTRY_VERIFY(scene.window.statusLine().commandText().startsWith(
            QLatin1String("Smooth with settings: ")));
    }

    void resetBringsTheMeshAndTheSettingsBack()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        const Mesh before = scene.mesh();
        Scene::open(smooth);
        const int usual = firstSlider(smooth)->value();
        firstSlider(smooth)->setValue(100);
        for (int round = 0; round < 2; ++round) {
            click(smooth, "apply_button");
            QTRY_VERIFY(!smooth.isRunning());
        }
        QVERIFY(scene.mesh().positions != before.positions);
        click(smooth, "reset_button");
        QCOMPARE(scene.mesh().positions, before.positions);
        QCOMPARE(firstSlider(smooth)->value(), usual);
    }

    void decimatingKeepsTheShareThatIsSet()
    {
        Scene scene;
        scene.window.document().open(QStringLiteral("flat.obj"), TestMeshes::grid(20));
        DecimateFlyout &decimate = *scene.commands().decimateFlyout;
        Scene::settle();
        Scene::open(decimate);
        firstSlider(decimate)->setValue(10);
        click(decimate, "apply_button");
        QTRY_VERIFY(!decimate.isRunning());
        QVERIFY(scene.mesh().faces.size() <= 80);
        QVERIFY(scene.window.document().isModified());
    }

    void subdividingIsDoneSeveralTimes()
    {
        Scene scene;
        SubdivideFlyout &subdivide = *scene.commands().subdivideFlyout;
        Scene::open(subdivide);
        firstSlider(subdivide)->setValue(2);
        click(subdivide, "apply_button");
        QTRY_VERIFY(!subdivide.isRunning());
        QCOMPARE(scene.mesh().faces.size(), 800 * 16);
    }

    void tooManyFacesAreRefused()
    {
        Scene scene;
        Mesh large = TestMeshes::grid(1);
        large.faces.fill(large.faces.first(), SubdivideCommand::maximumFaces / 4 + 1);
        scene.window.document().open(QStringLiteral("large.obj"), large);
        Scene::settle();
        SubdivideFlyout &subdivide = *scene.commands().subdivideFlyout;
        Scene::open(subdivide);
        firstSlider(subdivide)->setValue(2);
        QSignalSpy told(&scene.window.document(), &MeshDocument::problemReported);
        click(subdivide, "apply_button");
        QCOMPARE(told.count(), 1);
        QVERIFY(!subdivide.isRunning());
        QVERIFY(part(subdivide, "apply_button")->isEnabled());
    }

    void measuresFollowMeshAndSelection()
    {
        Scene scene;
        MeasureFlyout &measure = *scene.commands().measureFlyout;
        scene.window.document().open(QStringLiteral("flat.obj"), TestMeshes::grid(2));
        Scene::settle();
        Scene::open(measure);
        const auto shows = [&measure](const QString &text) {
            const auto labels = measure.flyout()->MainPanel()->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(),
                               [&text](const QLabel *label) { return label->text() == text; });
        };
        QVERIFY(shows(QStringLiteral("2 × 2 × 0")));
        QVERIFY(shows(QStringLiteral("4")));
        scene.window.document().select({0, 1, 2});
        QVERIFY(shows(QStringLiteral("faces: 3, area: 1.5")));
    }

    void theFacesStandBesideMeasureInsideOfTheView_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("usual") << QSize(1080, 700);
        QTest::newRow("smallest") << MainWindow().minimumSize();
    }

    void theFacesStandBesideMeasureInsideOfTheView()
    {
        QFETCH(QSize, size);
        Scene scene;
        placeWindow(scene.window, size);
        MeasureFlyout &measure = *scene.commands().measureFlyout;
        Scene::open(measure);
        SidePanel &faces = *measure.facesPanel();
        QVERIFY(!faces.isVisible());
        click(measure, "ibutton");
        Scene::settle();
        QVERIFY(faces.isVisible());
        const QRect view = areaOf(scene.window.pane());
        QVERIFY(view.contains(frameOf(measure)));
        QVERIFY(view.contains(areaOf(faces)));
        QCOMPARE(areaOf(faces).topLeft(),
                 frameOf(measure).topRight() + QPoint(1 + SidePanel::gap, 0));
    }

    void measureMakesRoomForTheFaces()
    {
        Scene scene;
        placeWindow(scene.window, QSize(1080, 700));
        MeasureFlyout &measure = *scene.commands().measureFlyout;
        Scene::open(measure);
        click(measure, "ibutton");
        const int edge = 30; // of the view, where no popup goes
        const int wanted = areaOf(*measure.flyout()->parentWidget()).right() + 1
            + measure.facesPanel()->width() + edge - areaOf(scene.window.pane()).left();
        placeWindow(scene.window, QSize(wanted, 800));
        const QRect withRoom = frameOf(measure);
        placeWindow(scene.window, QSize(wanted - 10, 800));
        const QRect view = areaOf(scene.window.pane());
        QVERIFY(frameOf(measure).right() < withRoom.right());
        QVERIFY(view.contains(frameOf(measure)));
        QVERIFY(view.contains(areaOf(*measure.facesPanel())));
        click(measure, "ibutton");
        QCOMPARE(frameOf(measure).right(), withRoom.right());
    }

    void theFacesFollowMeasure()
    {
        Scene scene;
        placeWindow(scene.window, QSize(1080, 700));
        MeasureFlyout &measure = *scene.commands().measureFlyout;
        Scene::open(measure);
        click(measure, "ibutton");
        const QPoint before = areaOf(*measure.facesPanel()).topLeft();
        placeWindow(scene.window, MainWindow().minimumSize());
        const QPoint corner = frameOf(measure).topRight() + QPoint(1 + SidePanel::gap, 0);
        QVERIFY(corner != before);
        QCOMPARE(areaOf(*measure.facesPanel()).topLeft(), corner);
        click(measure, "close_button");
        QVERIFY(!measure.facesPanel()->isVisible());
    }

    void theFacesAreMeasured()
    {
        Scene scene;
        scene.window.document().open(QStringLiteral("flat.obj"), TestMeshes::grid(2));
        Scene::settle();
        MeasureFlyout &measure = *scene.commands().measureFlyout;
        Scene::open(measure);
        click(measure, "ibutton");
        const auto shows = [&measure](const QString &text) {
            const auto labels = measure.facesPanel()->findChildren<QLabel *>();
            return std::any_of(labels.begin(), labels.end(),
                               [&text](const QLabel *label) { return label->text() == text; });
        };
        QVERIFY(shows(QStringLiteral("1")));
        QVERIFY(shows(QStringLiteral("1.4142")));
        QVERIFY(shows(QStringLiteral("45.0°")));
        scene.window.document().replaceMesh(TestMeshes::tetrahedron(),
                                            scene.window.document().snapshot().revision);
        QVERIFY(shows(QStringLiteral("60.0°")));
    }

    void theExplanationStandsBeneathSmoothInsideOfTheView_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("usual") << QSize(1080, 700);
        QTest::newRow("smallest") << MainWindow().minimumSize();
    }

    void theExplanationStandsBeneathSmoothInsideOfTheView()
    {
        QFETCH(QSize, size);
        Scene scene;
        placeWindow(scene.window, size);
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        click(smooth, "advanced_button");
        click(smooth, "info_button");
        Scene::settle();
        const QWidget &explanation = *smooth.flyout()->InfoDialog();
        QVERIFY(explanation.isVisible());
        const QRect view = areaOf(scene.window.pane());
        QVERIFY(view.contains(frameOf(smooth)));
        QVERIFY(view.contains(areaOf(explanation)));
        QVERIFY(!frameOf(smooth).intersects(areaOf(explanation)));
        click(smooth, "close_button");
        QVERIFY(!explanation.isVisible());
    }

    void otherButtonsCloseThePanel()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        QTest::mouseClick(scene.commands().measureFlyout->toolButton(), Qt::LeftButton);
        Scene::settle();
        QVERIFY(!smooth.flyout()->isVisible());
        QVERIFY(!smooth.isActive());
        QVERIFY(!smooth.isChecked());
        Scene::open(smooth);
    }

    void otherEditsWaitForThePanel()
    {
        Scene scene;
        const CommandSet &commands = scene.commands();
        bool isInterrupted = false;
        for (const MeshPanelCommand *command : commands.meshFlyouts()) {
            connect(command, &QAction::changed, this, [command, &isInterrupted] {
                isInterrupted = isInterrupted || !command->isEnabled();
            });
        }
        Scene::open(*commands.smoothFlyout);
        QVERIFY(!commands.smooth->isEnabled());
        QVERIFY(!commands.flipNormals->isEnabled());
        QVERIFY(commands.decimateFlyout->isEnabled());
        QTest::mouseClick(commands.decimateFlyout->toolButton(), Qt::LeftButton);
        Scene::settle();
        QVERIFY(commands.decimateFlyout->isActive());
        QVERIFY(!commands.smoothFlyout->isActive());
        QVERIFY(!commands.smoothFlyout->flyout()->isVisible());
        QVERIFY(!commands.smooth->isEnabled());
        click(*commands.decimateFlyout, "close_button");
        Scene::settle();
        QVERIFY(!isInterrupted);
        QVERIFY(commands.smooth->isEnabled());
        QVERIFY(commands.flipNormals->isEnabled());
    }

    void keysOfTheWindowCountInAPanel()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        QWidget *const window = smooth.flyout()->window();
        QVERIFY(window != &scene.window);
        window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), window);
        firstSlider(smooth)->setFocus();
        QVERIFY(!scene.commands().attributes.front()->isChecked());
        QTest::keySequence(firstSlider(smooth), scene.commands().attributes.front()->shortcut());
        QVERIFY(scene.commands().attributes.front()->isChecked());
        QVERIFY(smooth.flyout()->isVisible());
    }

    void escapeClosesFromTheView()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        QTest::keyClick(scene.window.pane().view(), Qt::Key_Escape);
        Scene::settle();
        QVERIFY(!smooth.flyout()->isVisible());
        QVERIFY(!smooth.isChecked());
        QVERIFY(scene.commands().smooth->isEnabled());
    }

    void anotherFileClosesThePanelAndStopsTheWork()
    {
        Scene scene;
        SmoothFlyout &smooth = *scene.commands().smoothFlyout;
        Scene::open(smooth);
        firstSlider(smooth)->setValue(200);
        click(smooth, "apply_button");
        QVERIFY(smooth.isRunning());
        const Mesh other = TestMeshes::tetrahedron();
        scene.window.document().open(QStringLiteral("other.obj"), other);
        QVERIFY(!smooth.flyout()->isVisible());
        QTRY_VERIFY(!smooth.isRunning());
        QVERIFY(smooth.wasCancelled());
        Scene::settle();
        QCOMPARE(scene.mesh().positions, other.positions);
        QVERIFY(scene.commands().smooth->isEnabled());
        QVERIFY(smooth.isEnabled());
    }

    void theWindowMayCloseWithAPanelAtWork()
    {
        auto scene = std::make_unique<Scene>();
        const std::shared_ptr<SmoothFlyout> smooth = scene->commands().smoothFlyout;
        Scene::open(*smooth);
        firstSlider(*smooth)->setValue(200);
        click(*smooth, "apply_button");
        scene.reset();
        QTRY_VERIFY(!smooth->isRunning());
        QVERIFY(!smooth->flyout());
    }
};

LUMO_TEST_MAIN(FlyoutsTest)
#include "tst_flyouts.moc"
