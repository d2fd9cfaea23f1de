// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagepage.h"

#include "commandclock.h"
#include "commands/attributecommand.h"
#include "commands/displaymodecommand.h"
#include "commands/opencommand.h"
#include "commands/smoothcommand.h"
#include "image/imagedocument.h"
#include "image/imageview.h"
#include "image/imageviewcontroller.h"
#include "image/openimagecommand.h"
#include "image/stepimagecommand.h"
#include "image/zoomimagecommand.h"
#include "mainwindow.h"
#include "meshdocument.h"
#include "statusline.h"
#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "toolbar/commandbars.h"
#include "toolbar/editingpanel.h"
#include "view/meshview.h"
#include "view/viewpane.h"

#include <lumo_app_service/ApplicationService>
#include <ui_base/CommandBase>
#include <ui_base/ImageViewerToolBar>
#include <ui_base/TaskDialog>

#include <QDir>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>

using namespace Workbench;
using Vela::UiBase::CommandBase;

namespace {

QImage plain(const QSize &size, const QColor &color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

QString write(const QTemporaryDir &folder, const char *name, const QImage &image)
{
    const QString path = folder.filePath(QLatin1String(name));
    return image.save(path) ? path : QString();
}

QString writeText(const QTemporaryDir &folder, const char *name)
{
    QFile file(folder.filePath(QLatin1String(name)));
    if (file.open(QIODevice::WriteOnly))
        file.write("Dear reader, this is not an image.\n");
    return file.fileName();
}

/// Every pixel differs from its neighbours.
QImage stripes(const QSize &size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x * 37 & 255, y * 59 & 255, (x + y) * 11 & 255));
    }
    return image;
}

int largestDifference(const QImage &one, const QImage &other)
{
    int largest = one.size() == other.size() ? 0 : 255;
    for (int y = 0; y < one.height() && largest < 255; ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max({largest, qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)),
                                qAbs(qBlue(a) - qBlue(b))});
        }
    }
    return largest;
}

QString nameOf(const MainWindow &window)
{
    return QFileInfo(window.images().filePath()).fileName();
}

} // namespace

class ImagePageTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    // As the program does: the view of the mesh is the only native widget.
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }

    void init()
    {
        TestCase::init();
        m_folder = std::make_unique<QTemporaryDir>();
        write(*m_folder, "2 wide.png", plain({900, 60}, Qt::red));
        write(*m_folder, "10 small.bmp", plain({40, 30}, Qt::green));
        write(*m_folder, "30 large.jpg", plain({1600, 1200}, Qt::blue));
        m_window = std::make_unique<MainWindow>();
        m_window->resize(800, 600);
        m_window->show();
        // Here a window is activated by its show, even one that asks not to be.
        QTRY_VERIFY(m_window->bars().panel().isVisible());
        QCoreApplication::processEvents();
        m_window->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), m_window.get());
    }

    void cleanup()
    {
        m_window.reset();
        m_folder.reset();
        TestCase::cleanup();
    }

    void anImageTakesThePlaceOfTheMesh()
    {
        QVERIFY(!page().isVisible());
        open("10 small.bmp");
        QVERIFY(page().isVisible());
        QVERIFY(page().view()->isVisible());
        QVERIFY(!m_window->pane().isVisible());
        QTRY_VERIFY(page().view()->hasFocus());
        QCOMPARE(page().nameText(), QStringLiteral("10 small.bmp"));
        QCOMPARE(page().scaleText(), QStringLiteral("100 %"));
        QCOMPARE(m_window->windowTitle(), QStringLiteral("10 small.bmp[*] - Workbench"));
        QCOMPARE(m_window->statusLine().meshText(), QStringLiteral("40 x 30 pixels"));
        QVERIFY(m_window->statusLine().commandText().startsWith(QLatin1String("Open Image: ")));
        QCOMPARE(page().view()->accessibleName(), QStringLiteral("Image 10 small.bmp"));
    }

    void goesThroughTheFolderByTheNumbersOfTheNames()
    {
        open("2 wide.png");
        QVERIFY(!button("prev_button")->isEnabled());
        click("next_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("10 small.bmp"));
        QVERIFY(button("prev_button")->isEnabled() && button("next_button")->isEnabled());
        click("next_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("30 large.jpg"));
        QVERIFY(!button("next_button")->isEnabled());
        QVERIFY(!commands().next->isEnabled());
        click("prev_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("10 small.bmp"));
    }

    void filesThatCannotBeReadArePassedOverAndTold()
    {
        const QString one = writeText(*m_folder, "11 letter.png");
        const QString other = writeText(*m_folder, "12 letter.jpg");
        open("10 small.bmp");
        click("next_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("30 large.jpg"));
        const QStringList lines = m_window->problem()->accessibleName().split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[0].startsWith(one));
        QVERIFY(lines[1].startsWith(other));
    }

    void whenNoFurtherFileCanBeReadTheImageStays()
    {
        writeText(*m_folder, "40 letter.png");
        open("30 large.jpg");
        click("next_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("30 large.jpg"));
        QVERIFY(m_window->problem()->accessibleName().contains(QLatin1String("40 letter.png")));
        QVERIFY(button("prev_button")->isEnabled());
    }

    void theFolderIsLookedAtAnewWithEachStep()
    {
        open("10 small.bmp");
        QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("10 small.bmp"))));
        write(*m_folder, "20 late.png", plain({20, 20}, Qt::black));
        click("next_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("20 late.png"));
    }

    void whatCannotBeOpenedIsTold_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << "missing.png"
                                 << "there is no such file";
        QTest::newRow("empty") << "empty.png"
                               << "it is empty";
        QTest::newRow("a folder") << "folder.png"
                                  << "it is a folder";
        QTest::newRow("another kind") << "letter.png"
                                      << "its contents are no image of a kind that is known here";
        QTest::newRow("damaged") << "damaged.ppm"
                                 << "its contents are damaged";
        QTest::newRow("huge") << "huge.ppm"
                              << "its 30000 x 30000 pixels are too many";
    }

    void whatCannotBeOpenedIsTold()
    {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        makeBadFiles();
        open("10 small.bmp");
        open(name.toLatin1().constData());
        QVERIFY(m_window->problem());
        const QString path = m_folder->filePath(name);
        QCOMPARE(m_window->problem()->accessibleName(),
                 QStringLiteral("%1 could not be read: %2.").arg(path, reason));
        QCOMPARE(nameOf(*m_window), QStringLiteral("10 small.bmp"));
        QVERIFY(page().isVisible());
        open("2 wide.png");
        QVERIFY(!m_window->problem());
    }

    void aKeyRunsTheCommandOfItsButton_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<double>("scale");
        QTest::newRow("F") << Qt::Key_F << 0.0;
        QTest::newRow("O") << Qt::Key_O << 1.0;
        QTest::newRow("+") << Qt::Key_Plus << 2.5;
        QTest::newRow("+ without Shift") << Qt::Key_Equal << 2.5;
        QTest::newRow("-") << Qt::Key_Minus << 1.6;
        QTest::newRow("any other") << Qt::Key_X << 2.0;
    }

    void aKeyRunsTheCommandOfItsButton()
    {
        QFETCH(Qt::Key, key);
        QFETCH(double, scale);
        open("30 large.jpg");
        page().view()->showOriginalSize();
        page().view()->zoom(2.0);
        QTest::keyClick(page().view(), key);
        const ImagePlacement &placement = page().view()->placement();
        QCOMPARE(placement.isFitted(), scale == 0.0);
        if (scale > 0.0)
            QCOMPARE(placement.scale(), scale);
    }

    void theKeysOfTheSignsGoThroughTheFolder()
    {
        open("10 small.bmp");
        QTest::keyClick(page().view(), Qt::Key_Greater, Qt::ShiftModifier);
        QTRY_COMPARE(nameOf(*m_window), QStringLiteral("30 large.jpg"));
        QTRY_COMPARE(m_window->clock().running(), 0);
        QTest::keyClick(page().view(), Qt::Key_Less);
        QTRY_COMPARE(nameOf(*m_window), QStringLiteral("10 small.bmp"));
    }

    void theEndOfAShortcutIsNoKeyOfTheStrip()
    {
        open("30 large.jpg");
        QTest::keyPress(page().view(), Qt::Key_Control);
        // The shortcut has taken the press of its key.
        QTest::keyRelease(page().view(), Qt::Key_O, Qt::ControlModifier);
        QVERIFY(page().view()->placement().isFitted());
        QTest::keyRelease(page().view(), Qt::Key_Control);
        QTest::keyClick(page().view(), Qt::Key_O);
        QVERIFY(!page().view()->placement().isFitted());
    }

    void theButtonsChangeTheScaleAsFarAsItGoes()
    {
        open("30 large.jpg");
        QVERIFY(!page().strip().IsZoomOutButtonEnabled());
        click("original_size_button");
        QCOMPARE(page().scaleText(), QStringLiteral("100 %"));
        QVERIFY(page().strip().IsZoomOutButtonEnabled());
        click("zoom_in_button");
        QCOMPARE(page().scaleText(), QStringLiteral("125 %"));
        click("zoom_out_button");
        QCOMPARE(page().view()->placement().scale(), 1.0);
        click("fit_to_view_button");
        QVERIFY(page().view()->placement().isFitted());
        page().view()->zoom(1e6);
        QVERIFY(!page().strip().IsZoomInButtonEnabled());
        QVERIFY(!commands().zoomIn->isEnabled());
    }

    void theWheelZoomsAtThePointer()
    {
        open("30 large.jpg");
        ImageView &view = *page().view();
        const QPointF pointer(150, 220);
        const auto point = [&] {
            return (pointer * view.devicePixelRatioF() - view.placement().place().topLeft())
                / view.placement().scale();
        };
        turnWheel(pointer, 120 * 8);
        const double scale = view.placement().scale();
        const QPointF before = point();
        turnWheel(pointer, 120);
        QCOMPARE(view.placement().scale(), scale * 1.15);
        QVERIFY((point() - before).manhattanLength() * scale < 1.5);
        turnWheel(pointer, -120);
        QCOMPARE(view.placement().scale(), scale);
    }

    void theLeftButtonDrags()
    {
        open("30 large.jpg");
        ImageView &view = *page().view();
        view.showOriginalSize();
        view.zoom(4.0); // larger than the view on any screen
        QCOMPARE(view.cursor().shape(), Qt::OpenHandCursor);
        const QPointF corner = view.placement().place().topLeft();
        Lumo::Test::press(&view, {100, 100});
        QCOMPARE(view.cursor().shape(), Qt::ClosedHandCursor);
        Lumo::Test::dragTo(&view, {60, 110});
        Lumo::Test::dragTo(&view, {70, 130});
        Lumo::Test::release(&view, {70, 130});
        QCOMPARE(view.placement().place().topLeft() - corner,
                 QPointF(-30, 30) * view.devicePixelRatioF());
        QCOMPARE(view.cursor().shape(), Qt::OpenHandCursor);
        Lumo::Test::pointAt(&view, {0, 0});
        QCOMPARE(view.placement().place().topLeft() - corner,
                 QPointF(-30, 30) * view.devicePixelRatioF());
    }

    void aDragDrawsWhatAFreshViewDraws()
    {
        write(*m_folder, "50 stripes.png", stripes({1400, 1100}));
        open("50 stripes.png");
        ImageView &view = *page().view();
        view.zoom(1.7);
        view.grab();
        for (const QPointF way : {QPointF(-13, 7), QPointF(40, -90), QPointF(5, 0)}) {
            view.pan(way);
            const QImage dragged = view.grab().toImage();
            QEvent change(QEvent::PaletteChange); // has everything drawn anew
            QCoreApplication::sendEvent(&view, &change);
            QVERIFY(largestDifference(dragged, view.grab().toImage()) <= 2);
        }
    }

    void theOriginalSizeIsAPixelForAPixel()
    {
        const QImage image = stripes({300, 200});
        write(*m_folder, "50 stripes.png", image);
        open("50 stripes.png");
        commands().originalSize->trigger();
        QImage seen = page().view()->grab().toImage();
        seen.setDevicePixelRatio(1);
        const QRect place = page().view()->placement().place().toRect();
        QCOMPARE(place.size(), image.size());
        QCOMPARE(largestDifference(seen.copy(place), image), 0);
    }

    void aLargeScaleShowsPixelsAsSquares()
    {
        QImage image = plain({4, 4}, Qt::white);
        image.setPixelColor(2, 1, Qt::black);
        write(*m_folder, "50 dot.png", image);
        open("50 dot.png");
        page().view()->zoom(16.0);
        const QImage seen = page().view()->grab().toImage();
        const QPoint corner = page().view()->placement().place().topLeft().toPoint();
        for (const QPoint at : {QPoint(32, 16), QPoint(47, 31), QPoint(40, 20)})
            QCOMPARE(seen.pixelColor(corner + at), QColor(Qt::black));
        for (const QPoint at : {QPoint(31, 16), QPoint(48, 31), QPoint(40, 15), QPoint(40, 32)})
            QCOMPARE(seen.pixelColor(corner + at), QColor(Qt::white));
    }

    void aSmallScaleAveragesInsteadOfDroppingLines()
    {
        QImage image = plain({4000, 3000}, Qt::white);
        for (int y = 0; y < image.height(); y += 2)
            std::fill_n(reinterpret_cast<QRgb *>(image.scanLine(y)), image.width(), 0xFF000000);
        write(*m_folder, "50 lines.png", image);
        open("50 lines.png");
        const QImage seen = page().view()->grab().toImage();
        const QPoint middle = page().view()->placement().place().center().toPoint();
        for (int y = 0; y < 20; ++y)
            QVERIFY(qAbs(qGray(seen.pixel(middle + QPoint(0, y))) - 127) < 12);
    }

    void whatIsTransparentShowsSquares()
    {
        QImage image({64, 64}, QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        write(*m_folder, "50 nothing.png", image);
        open("50 nothing.png");
        const QImage seen = page().view()->grab().toImage();
        const QPoint corner = page().view()->placement().place().topLeft().toPoint();
        QCOMPARE(seen.pixelColor(corner + QPoint(12, 4)), QColor(Qt::white));
        QCOMPARE(seen.pixelColor(corner + QPoint(4, 4)), QColor(0xDD, 0xDD, 0xDD));
        QCOMPARE(seen.pixel(corner - QPoint(2, 2)), page().palette().mid().color().rgb());
    }

    void anImageForScreensOfManyPixelsIsNoSmallerThanItIs()
    {
        const QImage image = stripes({80, 60});
        write(*m_folder, "50 icon@2x.png", image);
        open("50 icon@2x.png");
        const QRect place = page().view()->placement().place().toRect();
        QCOMPARE(place.size(), image.size());
        QImage seen = page().view()->grab().toImage();
        seen.setDevicePixelRatio(1);
        QCOMPARE(largestDifference(seen.copy(place), image), 0);
    }

    void theContentsCountAndNotTheEndingOfTheName()
    {
        const QString path = m_folder->filePath(QStringLiteral("50 picture.txt"));
        QVERIFY(plain({20, 20}, Qt::red).save(path, "PNG"));
        QVERIFY(commands().open->open(path));
        QTRY_COMPARE(m_window->clock().running(), 0);
        QCOMPARE(nameOf(*m_window), QStringLiteral("50 picture.txt"));
        click("prev_button");
        QCOMPARE(nameOf(*m_window), QStringLiteral("30 large.jpg"));
    }

    void onlyTheLatestThatWasAskedForIsShown()
    {
        ImageDocument document;
        QSignalSpy opened(&document, &ImageDocument::opened);
        const int earlier = document.beginReading();
        const int later = document.beginReading();
        const ImageFile file {QStringLiteral("/a.png"),
                              ImagePyramid(plain({2, 2}, Qt::red)),
                              {QStringLiteral("/a.png")}};
        QVERIFY(!document.open(file, earlier));
        QVERIFY(document.isEmpty());
        QVERIFY(document.open(file, later));
        QCOMPARE(opened.count(), 1);
        QVERIFY(!document.hasPrevious() && !document.hasNext());
    }

    void escapeAndTheCrossBringTheMeshBack()
    {
        open("10 small.bmp");
        QTest::keyClick(page().view(), Qt::Key_Escape);
        QVERIFY(!page().isVisible());
        QVERIFY(m_window->pane().isVisible());
        QCOMPARE(m_window->windowTitle(), QStringLiteral("Workbench"));
        QCOMPARE(m_window->statusLine().meshText(), QStringLiteral("No mesh is open"));
        open("10 small.bmp");
        QTest::mouseClick(page().findChild<QToolButton *>(QStringLiteral("close")), Qt::LeftButton);
        QVERIFY(m_window->pane().isVisible());
    }

    void aMeshThatIsOpenedComesInPlaceOfTheImage()
    {
        open("10 small.bmp");
        m_window->openFile(QStringLiteral(WORKBENCH_DATA "/bunny.obj"));
        QTRY_COMPARE(m_window->clock().running(), 0);
        QVERIFY(m_window->pane().isVisible() && !page().isVisible());
        QCOMPARE(m_window->windowTitle(), QStringLiteral("bunny.obj[*] - Workbench"));
    }

    void theMeshThatIsNotSeenIsNotChanged()
    {
        m_window->openFile(QStringLiteral(WORKBENCH_DATA "/bunny.obj"));
        QTRY_COMPARE(m_window->clock().running(), 0);
        const CommandSet &all = m_window->commands();
        QTRY_VERIFY(all.smooth->isEnabled());
        open("10 small.bmp");
        QTRY_VERIFY(!all.smooth->isEnabled());
        QVERIFY(!all.modes.front()->isEnabled() && !all.attributes.front()->isEnabled());
        QVERIFY(all.open->isEnabled() && all.images.open->isEnabled());
        QTest::keyClick(page().view(), Qt::Key_Escape);
        QVERIFY(all.smooth->isEnabled());
        QVERIFY(all.modes.front()->isEnabled() && all.attributes.front()->isEnabled());
    }

    void bothViewsComeBackWithTheWindow()
    {
        auto &service = Vela::Services::ApplicationService::GetInstance();
        service.setMainWindow(m_window.get());
        const auto minimise = [this] {
            m_window->setWindowState(Qt::WindowMinimized);
            m_window->setWindowState(Qt::WindowNoState);
        };
        minimise();
        open("10 small.bmp");
        QVERIFY(page().view()->isVisible());
        minimise();
        QVERIFY(page().view()->isVisible());
        QTest::keyClick(page().view(), Qt::Key_Escape);
        QVERIFY(m_window->pane().isVisible());
        QVERIFY(m_window->pane().view()->isVisible() || !m_window->pane().message().isEmpty());
        service.setMainWindow(nullptr);
    }

    void theCommandsStandAtTheControllerOfTheView()
    {
        open("10 small.bmp");
        for (const CommandBase *command : commands().ofTheView()) {
            QCOMPARE(page().controller()->findCommand(command->commandId()), command);
            QVERIFY(!command->text().isEmpty() && !command->toolTip().isEmpty());
        }
    }

    void aViewThatWasClosedIsDoneWithout()
    {
        open("10 small.bmp");
        QVERIFY(page().controller()->close());
        QTRY_VERIFY(!page().view());
        for (CommandBase *command : commands().ofTheView())
            command->trigger();
        QTRY_COMPARE(m_window->clock().running(), 0);
        open("2 wide.png");
        QCOMPARE(nameOf(*m_window), QStringLiteral("2 wide.png"));
    }

    void aWindowGoesWhileAnImageIsRead()
    {
        const std::weak_ptr<OpenImageCommand> command = commands().open;
        m_window->openFile(m_folder->filePath(QStringLiteral("30 large.jpg")));
        m_window.reset();
        QTRY_VERIFY(command.expired());
    }

private:
    ImagePage &page() const { return m_window->imagePage(); }
    const ImageCommandSet &commands() const { return m_window->commands().images; }

    void open(const char *name)
    {
        m_window->openFile(m_folder->filePath(QLatin1String(name)));
        QTRY_COMPARE(m_window->clock().running(), 0);
    }

    QToolButton *button(const char *name) const
    {
        return page().strip().findChild<QToolButton *>(QLatin1String(name));
    }

    void click(const char *name)
    {
        QTest::mouseClick(button(name), Qt::LeftButton);
        QTRY_COMPARE(m_window->clock().running(), 0);
    }

    void turnWheel(const QPointF &position, int turn)
    {
        ImageView *const view = page().view();
        QWheelEvent event(position, view->mapToGlobal(position.toPoint()), QPoint(),
                          QPoint(0, turn), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
    }

    void makeBadFiles() const
    {
        writeText(*m_folder, "letter.png");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder.png")));
        QVERIFY(QFile(m_folder->filePath(QStringLiteral("empty.png"))).open(QIODevice::WriteOnly));
        writeBytes("damaged.ppm", "P6\n40 30\n255\nabc");
        writeBytes("huge.ppm", "P6\n30000 30000\n255\nabc");
    }

    void writeBytes(const char *name, const QByteArray &bytes) const
    {
        QFile file(m_folder->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<MainWindow> m_window;
};

LUMO_TEST_MAIN(ImagePageTest)
#include "tst_imagepage.moc"
