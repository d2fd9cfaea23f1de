// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/DialogEx>

#include "support/mouse.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/dialogex_p.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <limits>
#include <type_traits>

using namespace Lumo::Test;
using namespace Vela::UiBase;

static_assert(std::is_base_of_v<QDialog, DialogEx>);
static_assert(!std::is_constructible_v<DialogEx, DialogExPrivate &, QWidget *>);

namespace {

constexpr QSize Size(400, 350);
constexpr QPoint OnBar(100, 20);
// In the square of the grip, whose top left corner is (369, 319).
constexpr QPoint OnGrip(380, 330);

class ShownDialog : public DialogEx
{
public:
    explicit ShownDialog(bool resizable)
        : DialogEx(nullptr, resizable)
    {
        start();
    }
    ShownDialog(DialogExPrivate &dd, QWidget *parent)
        : DialogEx(dd, parent)
    {
        start();
    }

    const DialogExPrivate &data() const { return *d_ptr; }
    void setHeightOfBar(int height) { d_ptr->moveBarHeight = height; }

private:
    void start()
    {
        resize(Size);
        show();
        move(50, 60);
    }
};

// A dialog whose private part has an edge at each of the seven places.
class EdgePrivate : public DialogExPrivate
{
public:
    explicit EdgePrivate(std::size_t edge)
        : DialogExPrivate(true)
    {
        edgeRects[edge] = QRect(0, 100, 20, 20);
    }
};

QPoint movedBy(DialogEx &dialog, const QPoint &from, const QPoint &way)
{
    const QPoint before = dialog.pos();
    press(&dialog, from);
    dragTo(&dialog, from + way);
    release(&dialog, from);
    return dialog.pos() - before;
}

QSize grownBy(DialogEx &dialog, const QPoint &from, const QPoint &way)
{
    const QSize before = dialog.size();
    press(&dialog, from);
    dragTo(&dialog, from + way);
    release(&dialog, from + way);
    return dialog.size() - before;
}

} // namespace

class tst_DialogEx : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void resizableDialogHasNoFrame()
    {
        const DialogEx resizable(nullptr, true);
        QVERIFY(resizable.windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(!resizable.windowFlags().testFlag(Qt::CustomizeWindowHint));
        const DialogEx rigid(nullptr, false);
        QVERIFY(!rigid.windowFlags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(rigid.windowFlags().testFlag(Qt::CustomizeWindowHint));
        QVERIFY(rigid.isWindow() && rigid.windowType() == Qt::Dialog);
    }

    void dialogIsSetUpByItsConstructor()
    {
        const DialogEx dialog(nullptr, false);
        QVERIFY(dialog.hasMouseTracking());
        QVERIFY(dialog.autoFillBackground());
        QCOMPARE(dialog.minimumSize(), QSize(300, 300));
        QVERIFY(dialog.DismissByDefaultEvents());
    }

    void initializeSetsUpAgain()
    {
        DialogEx dialog(nullptr, true);
        dialog.setMouseTracking(false);
        dialog.setAutoFillBackground(false);
        dialog.setMinimumSize(10, 10);
        dialog.Initialize();
        QVERIFY(dialog.hasMouseTracking());
        QVERIFY(dialog.autoFillBackground());
        QCOMPARE(dialog.minimumSize(), QSize(300, 300));
    }

    void parentOwnsTheDialog()
    {
        auto parent = std::make_unique<QWidget>();
        const QPointer<DialogEx> dialog = new DialogEx(parent.get(), true);
        QCOMPARE(dialog->parentWidget(), parent.get());
        parent.reset();
        QVERIFY(!dialog);
    }

    void dialogThatLosesItsParentWhileItRunsIsRejected()
    {
        auto *const parent = new QWidget;
        const QPointer<DialogEx> dialog = new DialogEx(parent, true);
        QTimer::singleShot(0, qApp, [parent] { delete parent; });
        QCOMPARE(dialog->exec(), int(QDialog::Rejected));
        QVERIFY(!dialog);
    }

    // As any press that a dialog has no use for.
    void pressGoesOnToWhatIsBehind()
    {
        ShownDialog dialog(true);
        for (const QPoint &at : {OnBar, OnGrip, QPoint(100, 100)}) {
            QMouseEvent event(QEvent::MouseButtonPress, at, dialog.mapToGlobal(at), Qt::LeftButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&dialog, &event);
            QVERIFY(!event.isAccepted());
        }
    }

    // Moving

    void barMovesTheDialog_data()
    {
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<bool>("moves");
        QTest::newRow("topmost pixel") << QPoint(100, 0) << false;
        QTest::newRow("last above the bar") << QPoint(100, 9) << false;
        QTest::newRow("first of the bar") << QPoint(0, 10) << true;
        QTest::newRow("last of the bar") << QPoint(399, 31) << true;
        QTest::newRow("first below the bar") << QPoint(100, 32) << false;
    }
    void barMovesTheDialog()
    {
        QFETCH(QPoint, from);
        QFETCH(bool, moves);
        for (const bool resizable : {false, true}) {
            ShownDialog dialog(resizable);
            QCOMPARE(movedBy(dialog, from, QPoint(30, -7)), moves ? QPoint(30, -7) : QPoint());
        }
    }

    void barFollowsTheWidth()
    {
        ShownDialog dialog(false);
        dialog.resize(700, 350);
        QCOMPARE(movedBy(dialog, QPoint(690, 20), QPoint(5, 5)), QPoint(5, 5));
    }

    void barIsWorkedOutWhenTheDialogIsShown()
    {
        ShownDialog dialog(false);
        dialog.hide();
        dialog.setHeightOfBar(60);
        dialog.show();
        QCOMPARE(dialog.data().moveBarRect.height(), 50);
    }

    void draggingGoesOnOutsideTheBar()
    {
        ShownDialog dialog(false);
        press(&dialog, OnBar);
        dragTo(&dialog, OnBar + QPoint(0, 200));
        const QPoint between = dialog.pos();
        QCOMPARE(between, QPoint(50, 260));
        dragTo(&dialog, OnBar + QPoint(3, 0));
        QCOMPARE(dialog.pos(), between + QPoint(3, 0));
    }

    void draggingEndsWithTheButton()
    {
        ShownDialog dialog(false);
        press(&dialog, OnBar);
        release(&dialog, OnBar);
        dragTo(&dialog, OnBar + QPoint(40, 0));
        QCOMPARE(dialog.pos(), QPoint(50, 60));
    }

    void draggingEndsWhenTheReleaseWasMissed()
    {
        ShownDialog dialog(false);
        press(&dialog, OnBar);
        pointAt(&dialog, OnBar + QPoint(40, 0));
        QCOMPARE(dialog.pos(), QPoint(50, 60));
        dragTo(&dialog, OnBar + QPoint(40, 0));
        QCOMPARE(dialog.pos(), QPoint(50, 60));
    }

    void anyButtonDrags()
    {
        ShownDialog dialog(false);
        sendMouse(&dialog, QEvent::MouseButtonPress, OnBar, Qt::RightButton, Qt::RightButton);
        sendMouse(&dialog, QEvent::MouseMove, OnBar + QPoint(4, 4), Qt::NoButton, Qt::RightButton);
        QCOMPARE(dialog.pos(), QPoint(54, 64));
    }

    void barEndsAtItsHeight_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("last");
        QTest::newRow("20 gives 10 pixels") << 20 << 10 << 19;
        QTest::newRow("60") << 60 << 10 << 59;
        QTest::newRow("none") << 10 << 10 << 9;
        QTest::newRow("0") << 0 << 10 << 9;
        QTest::newRow("negative") << -50 << 10 << 9;
        QTest::newRow("least") << std::numeric_limits<int>::min() << 10 << 9;
    }
    void barEndsAtItsHeight()
    {
        QFETCH(int, height);
        QFETCH(int, first);
        QFETCH(int, last);
        ShownDialog dialog(false);
        dialog.SetMoveBarHeight(height);
        for (int y = 0; y < 100; ++y) {
            const bool moves = y >= first && y <= last;
            QCOMPARE(movedBy(dialog, QPoint(100, y), QPoint(1, 0)), QPoint(moves ? 1 : 0, 0));
        }
        dialog.resize(500, 400);
        QCOMPARE(dialog.data().moveBarRect, QRect(0, 10, 500, last - first + 1));
    }

    // Resizing

    void gripResizesTheDialog_data()
    {
        QTest::addColumn<QPoint>("from");
        QTest::addColumn<bool>("resizes");
        QTest::newRow("square, first") << QPoint(369, 319) << true;
        QTest::newRow("square, last") << QPoint(388, 338) << true;
        QTest::newRow("foot, first") << QPoint(369, 339) << true;
        QTest::newRow("foot, last") << QPoint(398, 348) << true;
        QTest::newRow("left of it") << QPoint(368, 330) << false;
        QTest::newRow("above it") << QPoint(380, 318) << false;
        QTest::newRow("right of the square") << QPoint(389, 330) << false;
        QTest::newRow("right of the foot") << QPoint(399, 345) << false;
        QTest::newRow("below the foot") << QPoint(380, 349) << false;
        QTest::newRow("corner itself") << QPoint(399, 349) << false;
        QTest::newRow("other corner") << QPoint(5, 345) << false;
    }
    void gripResizesTheDialog()
    {
        QFETCH(QPoint, from);
        QFETCH(bool, resizes);
        ShownDialog dialog(true);
        QCOMPARE(grownBy(dialog, from, QPoint(30, 20)), resizes ? QSize(30, 20) : QSize(0, 0));
        ShownDialog rigid(false);
        QCOMPARE(grownBy(rigid, from, QPoint(30, 20)), QSize(0, 0));
        QVERIFY(rigid.data().cornerRects.isEmpty());
    }

    void gripFollowsTheSize()
    {
        ShownDialog dialog(true);
        QCOMPARE(grownBy(dialog, OnGrip, QPoint(30, 20)), QSize(30, 20));
        QCOMPARE(grownBy(dialog, OnGrip + QPoint(30, 20), QPoint(10, 5)), QSize(10, 5));
        QCOMPARE(grownBy(dialog, OnGrip - QPoint(10, 10), QPoint(10, 5)), QSize(0, 0));
    }

    void gripStopsAtTheLeastSize()
    {
        ShownDialog dialog(true);
        grownBy(dialog, OnGrip, QPoint(-300, -300));
        QCOMPARE(dialog.size(), QSize(300, 300));
    }

    void resizingEndsWithTheButton()
    {
        ShownDialog dialog(true);
        press(&dialog, OnGrip);
        release(&dialog, OnGrip);
        dragTo(&dialog, OnGrip + QPoint(30, 30));
        QCOMPARE(dialog.size(), Size);
    }

    void cursorTellsTheGrip()
    {
        ShownDialog dialog(true);
        pointAt(&dialog, OnGrip);
        QCOMPARE(dialog.cursor().shape(), Qt::SizeFDiagCursor);
        pointAt(&dialog, QPoint(100, 100));
        QCOMPARE(dialog.cursor().shape(), Qt::ArrowCursor);
    }

    void cursorStaysWhileResizing()
    {
        ShownDialog dialog(true);
        press(&dialog, OnGrip);
        dragTo(&dialog, QPoint(500, 100));
        QCOMPARE(dialog.cursor().shape(), Qt::SizeFDiagCursor);
    }

    void dialogWithoutGripKeepsItsCursor()
    {
        ShownDialog dialog(false);
        dialog.setCursor(Qt::CrossCursor);
        pointAt(&dialog, OnGrip);
        QCOMPARE(dialog.cursor().shape(), Qt::CrossCursor);
    }

    void hiddenDialogFindsItsGrip()
    {
        DialogEx dialog(nullptr, true);
        dialog.resize(Size);
        dialog.setAttribute(Qt::WA_PendingResizeEvent, false);
        pointAt(&dialog, OnGrip);
        QCOMPARE(dialog.cursor().shape(), Qt::SizeFDiagCursor);
    }

    void edgeOfASubclassResizesInItsDirection_data()
    {
        QTest::addColumn<int>("edge");
        QTest::addColumn<int>("zone");
        QTest::addColumn<QSize>("growth");
        const QSize both(30, 20);
        QTest::newRow("zone 2") << 0 << 2 << QSize(30, 0);
        QTest::newRow("zone 4") << 1 << 4 << QSize(0, 20);
        QTest::newRow("zone 5") << 2 << 5 << both;
        QTest::newRow("zone 6") << 3 << 6 << QSize(30, 0);
        QTest::newRow("zone 7") << 4 << 7 << both;
        QTest::newRow("zone 0") << 5 << 0 << QSize(0, 20);
        QTest::newRow("zone 1") << 6 << 1 << both;
    }
    void edgeOfASubclassResizesInItsDirection()
    {
        QFETCH(int, edge);
        QFETCH(int, zone);
        QFETCH(QSize, growth);
        ShownDialog dialog(*new EdgePrivate(std::size_t(edge)), nullptr);
        pointAt(&dialog, QPoint(10, 110));
        QCOMPARE(dialog.data().resizeZone, zone);
        QCOMPARE(dialog.cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(grownBy(dialog, QPoint(10, 110), QPoint(30, 20)), growth);
    }

    void dataStartFromTheDefaults()
    {
        const DialogExPrivate data(true);
        QVERIFY(data.dismissByDefaultEvents && data.resizable);
        QVERIFY(!data.moving && !data.resizing);
        QCOMPARE(data.moveBarHeight, 32);
        QCOMPARE(data.resizeZone, 8);
        QVERIFY(data.moveBarRect.isNull() && data.cornerRects.isEmpty());
        for (const QRect &edge : data.edgeRects)
            QVERIFY(edge.isNull());
    }

    // Keys

    void keysDismissUnlessToldOtherwise_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Escape") << int(Qt::Key_Escape);
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
    }
    void keysDismissUnlessToldOtherwise()
    {
        QFETCH(int, key);
        ShownDialog dialog(false);
        auto *const button = new QPushButton(&dialog);
        button->setDefault(true);
        button->show();
        connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
        dialog.SetDismissByDefaultEvents(false);
        QVERIFY(!dialog.DismissByDefaultEvents());
        QTest::keyClick(&dialog, Qt::Key(key));
        QVERIFY(dialog.isVisible());
        dialog.SetDismissByDefaultEvents(true);
        QTest::keyClick(&dialog, Qt::Key(key));
        QVERIFY(!dialog.isVisible());
    }

    void refusedKeyIsIgnored()
    {
        ShownDialog dialog(false);
        dialog.SetDismissByDefaultEvents(false);
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(&dialog, &event);
        QVERIFY(!event.isAccepted());
    }

    void tabMovesTheFocusOfADialogThatIsNotDismissed()
    {
        DialogEx dialog(nullptr, false);
        dialog.SetDismissByDefaultEvents(false);
        QLineEdit first(&dialog);
        QLineEdit second(&dialog);
        dialog.show();
        QApplication::setActiveWindow(&dialog);
        first.setFocus();
        QTRY_VERIFY(first.hasFocus());
        QTest::keyClick(&first, Qt::Key_Tab);
        QTRY_VERIFY(second.hasFocus());
    }

    void filteredKeysAreMarkedAsIgnored_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("ignored");
        QTest::newRow("Return") << int(Qt::Key_Return) << true;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << true;
        QTest::newRow("Enter") << int(Qt::Key_Enter) << false;
        QTest::newRow("A") << int(Qt::Key_A) << false;
    }
    void filteredKeysAreMarkedAsIgnored()
    {
        QFETCH(int, key);
        QFETCH(bool, ignored);
        DialogEx dialog(nullptr, false);
        QWidget child(&dialog);
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QVERIFY(!dialog.eventFilter(&child, &press));
        QCOMPARE(!press.isAccepted(), ignored);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
        QVERIFY(!dialog.eventFilter(&child, &up));
        QVERIFY(up.isAccepted());
    }

    // Tracking

    void trackingReachesDirectChildrenOnly()
    {
        DialogEx dialog(nullptr, true);
        QWidget child(&dialog);
        QWidget grandchild(&child);
        dialog.EnableMouseTracking(false);
        QVERIFY(!child.hasMouseTracking());
        dialog.EnableMouseTracking(true);
        QVERIFY(child.hasMouseTracking());
        QVERIFY(!grandchild.hasMouseTracking());
        dialog.EnableMouseTracking(false);
        QVERIFY(child.hasMouseTracking());
    }
};

LUMO_TEST_MAIN(tst_DialogEx)
#include "tst_dialogex.moc"
