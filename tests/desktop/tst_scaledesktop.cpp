// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// On a screen where a logical pixel is one and a half of the screen's, a window of an odd number of
// those is seen to its edges.

#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>
#include <ui_base/MDialogBase>
#include <ui_base/QtUiToolkit>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QPainter>
#include <QWindow>

#include <memory>

using namespace Lumo::Test;
using namespace Vela::UiBase;

namespace {

constexpr qreal Ratio = 1.5;
const QColor Ground(Qt::white);
const QColor Paint(0, 160, 0);

class Patch : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), Paint); }
};

/// How many pixels of the screen from @p corner on, to the right and down, are painted.
QSize paintedFrom(const QPoint &corner)
{
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    const QPoint first = corner * Ratio;
    QSize size(0, 0);
    while (screen.pixelColor(first + QPoint(size.width(), 0)) == Paint)
        size.rwidth() += 1;
    while (screen.pixelColor(first + QPoint(0, size.height())) == Paint)
        size.rheight() += 1;
    return size;
}

struct Scene
{
    QWidget window;
    Patch *patch = new Patch(&window);

    Scene()
    {
        QPalette palette;
        palette.setColor(QPalette::Window, Ground);
        window.setPalette(palette);
        window.setGeometry(100, 100, 300, 200);
        patch->move(40, 40);
    }
    ~Scene() { delete patch; } // its layer lets go of it

    QPoint corner() const { return window.mapToGlobal(QPoint(40, 40)); }
};

class ScaleDesktopTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void floatedWidgetIsSeenToItsEdges_data();
    void floatedWidgetIsSeenToItsEdges();
    void floatedWidgetThatGrowsIsSeenToItsEdges();
    void widgetThatWasSeenBeforeItFloatsIsSeenToItsEdges();
    void dialogHasAllThePlaceOfItsFlyout_data();
    void dialogHasAllThePlaceOfItsFlyout();
    void dialogOfAnotherWindowHasAllThePlaceOfItsFlyout_data();
    void dialogOfAnotherWindowHasAllThePlaceOfItsFlyout();
};

std::unique_ptr<MDialogBase> makeDialog(QWidget *panel)
{
    return std::unique_ptr<MDialogBase>(QtUiToolkit::Instance().CreateFlyoutDialog(
        nullptr, QStringLiteral("Smooth"), panel, nullptr, true, true, true, true));
}

bool hasPlaceForFlyout(const MDialogBase &dialog)
{
    return dialog.rect().contains(dialog.findChild<FlyoutBase *>()->geometry());
}

void ScaleDesktopTest::floatedWidgetIsSeenToItsEdges_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("36 by 44") << QSize(36, 44); // 54 by 66 of the screen
    QTest::newRow("38 by 42") << QSize(38, 42); // 57 by 63
    QTest::newRow("42 by 36") << QSize(42, 36); // 63 by 54
}

void ScaleDesktopTest::floatedWidgetIsSeenToItsEdges()
{
    QFETCH(QSize, size);
    Scene scene;
    scene.patch->resize(size);
    FloatingLayer::makeWidgetFloating(scene.patch, QMargins());
    scene.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    scene.patch->show();
    QTRY_COMPARE(paintedFrom(scene.corner()), QSizeF(size * Ratio).toSize());
}

void ScaleDesktopTest::floatedWidgetThatGrowsIsSeenToItsEdges()
{
    Scene scene;
    scene.patch->resize(40, 40);
    FloatingLayer::makeWidgetFloating(scene.patch, QMargins());
    scene.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    scene.patch->show();
    QTRY_COMPARE(paintedFrom(scene.corner()), QSize(60, 60));
    scene.patch->resize(46, 42);
    QTRY_COMPARE(paintedFrom(scene.corner()), QSize(69, 63));
}

void ScaleDesktopTest::widgetThatWasSeenBeforeItFloatsIsSeenToItsEdges()
{
    Scene scene;
    scene.patch->resize(38, 42);
    scene.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&scene.window));
    QTRY_COMPARE(paintedFrom(scene.corner()), QSize(57, 63));
    FloatingLayer::makeWidgetFloating(scene.patch, QMargins());
    QTRY_COMPARE(paintedFrom(scene.corner()), QSize(0, 0));
    scene.patch->show();
    QTRY_COMPARE(paintedFrom(scene.corner()), QSize(57, 63));
}

void ScaleDesktopTest::dialogHasAllThePlaceOfItsFlyout_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {200, 201, 202, 203})
        QTest::addRow("panel of %d", width) << width;
}

void ScaleDesktopTest::dialogHasAllThePlaceOfItsFlyout()
{
    QFETCH(int, width);
    auto *const panel = new QWidget;
    panel->setFixedSize(width, 101);
    const auto dialog = makeDialog(panel);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QVERIFY(hasPlaceForFlyout(*dialog));
    panel->setFixedSize(width + 2, 103);
    QTRY_VERIFY(panel->width() == width + 2 && hasPlaceForFlyout(*dialog));
}

void ScaleDesktopTest::dialogOfAnotherWindowHasAllThePlaceOfItsFlyout_data()
{
    dialogHasAllThePlaceOfItsFlyout_data();
}

void ScaleDesktopTest::dialogOfAnotherWindowHasAllThePlaceOfItsFlyout()
{
    QFETCH(int, width);
    QWidget window;
    window.show();
    auto *const panel = new QWidget;
    panel->setFixedSize(width, 101);
    const auto dialog = makeDialog(panel);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    dialog->setParent(&window, dialog->windowFlags()); // has a new native window from now on
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
    QVERIFY(hasPlaceForFlyout(*dialog));
    dialog->setParent(nullptr);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", QByteArray::number(Ratio));
    prepareProcess();
    QApplication application(argc, argv);
    ScaleDesktopTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_scaledesktop.moc"
