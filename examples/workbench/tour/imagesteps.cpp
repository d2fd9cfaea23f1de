// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandset.h"
#include "image/imagedocument.h"
#include "image/imagepage.h"
#include "image/imageview.h"
#include "image/openimagecommand.h"
#include "image/stepimagecommand.h"
#include "image/zoomimagecommand.h"
#include "mainwindow.h"
#include "tour/picture.h"
#include "tour/steps.h"
#include "tour/tourguide.h"
#include "view/viewpane.h"

#include <ui_base/ImageViewerToolBar>
#include <ui_base/TaskDialog>

#include <QCoreApplication>
#include <QDir>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QToolButton>
#include <QWheelEvent>
#include <QWindow>

namespace Workbench {
namespace {

/// The pictures of the cards, which are images like any other.
QString pictureFile(const char *name)
{
    return QDir::cleanPath(QStringLiteral(WORKBENCH_DATA "/../toolbar/pictures/")
                           + QLatin1String(name));
}

ImageView &imageView(const TourGuide &guide)
{
    return *guide.window().imagePage().view();
}

/// What the screen shows of the view.
QImage seenImage(const TourGuide &guide)
{
    const QImage picture = guide.windowPicture();
    const ImageView &view = imageView(guide);
    const QRectF place(view.mapTo(&guide.window(), QPoint(0, 0)), QSizeF(view.size()));
    const qreal ratio = picture.devicePixelRatio();
    // Where a pixel of the window is no whole number of those of the screen, Qt rounds the corner.
    QImage seen =
        picture.copy(QRect((place.topLeft() * ratio).toPoint(), (place.size() * ratio).toSize()));
    seen.setDevicePixelRatio(1);
    return seen.convertToFormat(QImage::Format_RGB32);
}

/// Checks that the screen shows all pixels of the open image at the place it has.
void checkPixels(TourGuide &guide)
{
    if (!guide.hasGraphics())
        return;
    const auto isShown = [&guide] {
        const ImageView &view = imageView(guide);
        const QRect place = view.placement().place().toRect();
        const QImage image = view.image().level(1.0).convertToFormat(QImage::Format_RGB32);
        return changedShare(seenImage(guide).copy(place), image) == 0.0;
    };
    guide.check(TourGuide::tr("each pixel of the image is one of the screen"),
                guide.waitUntil(isShown, 10'000));
}

void openImage(TourGuide &guide, const QString &path)
{
    OpenImageCommand &open = *guide.window().commands().images.open;
    const int before = guide.endsOf(open);
    guide.window().openFile(path);
    guide.check(TourGuide::tr("Open Image ends"),
                guide.waitUntil([&] { return guide.endsOf(open) > before; }));
    guide.settle();
}

void showFirst(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Image"));
    openImage(guide, pictureFile("flat.png"));
    const MainWindow &window = guide.window();
    guide.check(TourGuide::tr("the image takes the place of the mesh"),
                window.imagePage().isVisible() && !window.pane().isVisible());
    guide.check(TourGuide::tr("the title names the image"),
                window.windowTitle().startsWith(QLatin1String("flat.png")));
    guide.check(TourGuide::tr("the mesh that is not seen can't be changed"),
                !guide.window().commands().edits().front()->isEnabled());
    guide.check(TourGuide::tr("the strip is as high as its buttons"),
                window.imagePage().strip().height()
                    == window.imagePage().strip().sizeHint().expandedTo({0, 28}).height());
    checkPixels(guide);
    guide.finishWithPicture();
}

/// With the button and with the key.
void goThroughFolder(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Next image"));
    const MainWindow &window = guide.window();
    const StepImageCommand &next = *window.commands().images.next;
    int before = guide.endsOf(next);
    window.imagePage().strip().findChild<QToolButton *>(QStringLiteral("next_button"))->click();
    guide.check(TourGuide::tr("the button brings another image"),
                guide.waitUntil([&] { return guide.endsOf(next) > before; }));
    guide.check(TourGuide::tr("it is the next of the folder"),
                window.images().filePath().endsWith(QLatin1String("flip_normals.png")));
    checkPixels(guide);
    guide.finishWithPicture();

    guide.begin(TourGuide::tr("Previous image"));
    before = guide.endsOf(next);
    guide.pressKey(imageView(guide), Qt::Key_Less);
    guide.check(TourGuide::tr("the key brings the image of before"),
                guide.waitUntil([&] { return guide.endsOf(next) > before; }));
    guide.check(TourGuide::tr("it is the one of before"),
                window.images().filePath().endsWith(QLatin1String("flat.png")));
    guide.settle();
}

void zoom(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Zoom into the image"));
    ImageView &view = imageView(guide);
    const QImage before = seenImage(guide);
    const QPoint pointer = view.rect().center() + QPoint(60, -40);
    QWheelEvent wheel(pointer, view.mapToGlobal(pointer), QPoint(), QPoint(0, 120 * 12),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&view, &wheel);
    guide.check(TourGuide::tr("the wheel makes it larger"), view.placement().scale() > 4.0);
    guide.check(TourGuide::tr("the page tells the scale"),
                guide.window().imagePage().scaleText().endsWith(QLatin1String("535 %")));
    if (guide.hasGraphics()) {
        guide.check(TourGuide::tr("the screen shows it larger"),
                    guide.waitUntil([&] { return changedShare(before, seenImage(guide)) > 0.2; }));
    }
    guide.finishWithPicture();
}

void drag(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Drag the image"));
    ImageView &view = imageView(guide);
    const QPointF corner = view.placement().place().topLeft();
    const auto send = [&view](QEvent::Type type, const QPoint &at, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, view.mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&view, &event);
    };
    const QPoint from = view.rect().center();
    const QPoint way(120, -70);
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    guide.check(TourGuide::tr("a hand holds the image"),
                view.cursor().shape() == Qt::ClosedHandCursor);
    for (int step = 1; step <= 10; ++step)
        send(QEvent::MouseMove, from + way * step / 10, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, from + way, Qt::NoButton);
    const QPointF moved = view.placement().place().topLeft() - corner;
    const QPointF wanted = QPointF(way) * view.devicePixelRatioF();
    guide.check(TourGuide::tr("the image goes with the pointer"),
                (moved - wanted).manhattanLength() <= 1.0);
    guide.finishWithPicture();
}

void fit(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Fit the image"));
    ImageView &view = imageView(guide);
    guide.pressKey(view, Qt::Key_F);
    guide.check(TourGuide::tr("the key shows the whole image"), view.placement().isFitted());
    guide.pressKey(view, Qt::Key_Plus);
    guide.pressKey(view, Qt::Key_O);
    guide.check(TourGuide::tr("the key shows the original size"), view.placement().scale() == 1.0);
    checkPixels(guide);
}

void refuse(TourGuide &guide)
{
    guide.begin(TourGuide::tr("Broken image"));
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("letter.png")));
    if (file.open(QIODevice::WriteOnly))
        file.write("Dear reader, this is not an image.\n");
    file.close();
    openImage(guide, file.fileName());
    QDialog *const problem = guide.window().problem();
    guide.check(TourGuide::tr("a dialog tells of the problem"),
                problem
                    && guide.waitUntil([problem] { return problem->windowHandle()->isExposed(); }));
    guide.check(TourGuide::tr("it names the file"),
                problem && problem->accessibleName().startsWith(file.fileName()));
    guide.check(TourGuide::tr("what was open stays open"),
                guide.window().images().filePath().endsWith(QLatin1String("flat.png")));
    guide.finishWithPicture();
    if (problem)
        problem->close();
    guide.settle();
}

void goBack(TourGuide &guide, const QImage &before)
{
    guide.begin(TourGuide::tr("Close the image"));
    guide.pressKey(imageView(guide), Qt::Key_Escape);
    const MainWindow &window = guide.window();
    guide.check(TourGuide::tr("the mesh is there again"),
                window.pane().isVisible() && !window.imagePage().isVisible());
    guide.settle();
    guide.checkStatus();
    guide.checkViewChanged(TourGuide::tr("its view is as before"), before, 0.0, 0.0);
    guide.finishWithPicture();
}

} // namespace

void visitImages(TourGuide &guide)
{
    const QImage before = guide.viewPictureAtRest();
    showFirst(guide);
    goThroughFolder(guide);
    zoom(guide);
    drag(guide);
    fit(guide);
    refuse(guide);
    goBack(guide, before);
}

} // namespace Workbench
