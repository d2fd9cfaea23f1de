// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/FloatingLayer>
#include <ui_base/LayoutBaseWidget>

#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_app_service/ApplicationService>

#include <QAccessible>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMoveEvent>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <qtestspontaneevent.h>
#include <QWindow>

#include <functional>
#include <memory>
#include <type_traits>

using Vela::Services::ApplicationService;
using Vela::Services::ApplicationStateProtocol;
using Vela::UiBase::ArrowedWindow;
using Vela::UiBase::FloatingLayer;
using Vela::UiBase::LayoutBaseWidget;

static_assert(std::is_base_of_v<QDialog, FloatingLayer>);
static_assert(std::is_base_of_v<ApplicationStateProtocol, FloatingLayer>);
static_assert(!std::is_constructible_v<FloatingLayer, QWidget *>);
static_assert(!std::is_constructible_v<FloatingLayer, QWidget *, QMargins>);
static_assert(!std::is_copy_constructible_v<FloatingLayer>);

Q_DECLARE_METATYPE(QMargins)

namespace {

const QMargins Five(5, 5, 5, 5);
const QMargins Uneven(1, 2, 3, 4);

FloatingLayer *layerOf(const QWidget *widget)
{
    return qobject_cast<FloatingLayer *>(widget->parentWidget());
}

QPoint originOf(const QWidget &widget)
{
    return widget.mapToGlobal(QPoint(0, 0));
}

// As an event that the window system has caused.
void sendSpontaneous(QWidget *receiver, QEvent *event)
{
    QSpontaneKeyEvent::setSpontaneous(event);
    qApp->notify(receiver, event);
}

// A window with a view in it, and a widget that stands at (20,30) in the view.
struct Scene
{
    QWidget window;
    QWidget *view = new QWidget(&window);
    QPointer<QWidget> widget = new QWidget(view);

    Scene()
    {
        window.setGeometry(100, 80, 400, 300);
        view->setGeometry(40, 50, 300, 200);
        widget->setGeometry(20, 30, 60, 25);
        window.show();
    }

    // The layer hands the widget back when the view dies.
    ~Scene() { delete widget.data(); }

    FloatingLayer *makeFloating(const QMargins &margins = QMargins())
    {
        FloatingLayer::makeWidgetFloating(widget, margins);
        return layerOf(widget);
    }

    QPoint cornerInView() const { return layerOf(widget)->pos() - originOf(*view); }
};

// Watches what passes by, behind filters that were installed later.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type)
        : m_type(type)
    {
        watched->installEventFilter(this);
    }
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    const QEvent::Type m_type;
};

// Runs an action at the next event of a type.
class AtEvent : public QObject
{
public:
    AtEvent(QObject *watched, QEvent::Type type, std::function<void()> action)
        : m_type(type)
        , m_action(std::move(action))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != m_type || !m_action)
            return false;
        const QPointer<QObject> alive(watched);
        const auto action = std::move(m_action);
        m_action = nullptr;
        action();
        return !alive;
    }

private:
    const QEvent::Type m_type;
    std::function<void()> m_action;
};

// A window with a field, and two panels with one that float over it.
struct Panes
{
    QWidget window;
    QLineEdit *inWindow = new QLineEdit(&window);
    QPointer<QWidget> one;
    QPointer<QWidget> two;

    Panes()
    {
        window.resize(400, 300);
        window.show();
        one = makePanel();
        two = makePanel();
        // Offscreen a window is activated by its show, even one that asks not to be.
        QCoreApplication::processEvents();
        window.activateWindow();
        inWindow->setFocus();
        // To Qt a window is active together with what floats over it.
        if (!QTest::qWaitFor([this] { return QApplication::activeWindow() == &window; }))
            qFatal("The window does not come up.");
    }
    ~Panes()
    {
        delete one.data();
        delete two.data();
    }

    QWidget *makePanel()
    {
        auto *const panel = new QWidget(&window);
        panel->resize(100, 40);
        new QLineEdit(panel);
        FloatingLayer::makeWidgetFloating(panel, QMargins());
        panel->show();
        return panel;
    }

    static QLineEdit *fieldOf(const QWidget *panel) { return panel->findChild<QLineEdit *>(); }
};

} // namespace

class tst_FloatingLayer : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void keysGoIntoTheLayersAndBack()
    {
        Panes panes;
        QTest::keyClick(panes.inWindow, Qt::Key_F6);
        QTRY_VERIFY(panes.one->isActiveWindow());
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.one));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.two));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), panes.inWindow);
        QTest::keyClick(panes.inWindow, Qt::Key_F6, Qt::ShiftModifier);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.two));
    }

    void keysPassByLayersWithNothingForThem()
    {
        Panes panes;
        panes.fieldOf(panes.one)->setEnabled(false);
        QTest::keyClick(panes.inWindow, Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.two));
        panes.fieldOf(panes.one)->setEnabled(true);
        panes.two->hide();
        QTRY_COMPARE(QApplication::focusWidget(), panes.inWindow);
        QTest::keyClick(panes.inWindow, Qt::Key_F6, Qt::ShiftModifier);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.one));
    }

    void keysThatTheWindowTakesLeadNowhere()
    {
        Panes panes;
        const QShortcut own(Qt::Key_F6, &panes.window);
        const QSignalSpy pressed(&own, &QShortcut::activated);
        QTest::keyClick(panes.inWindow, Qt::Key_F6);
        QTest::keyClick(panes.inWindow, Qt::Key_F6, Qt::ControlModifier);
        QCoreApplication::processEvents();
        QCOMPARE(pressed.count(), 1);
        QCOMPARE(QApplication::activeWindow(), &panes.window);
    }

    void focusReturnsFromALayerThatHides()
    {
        Panes panes;
        QTest::keyClick(panes.inWindow, Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.one));
        panes.one->hide();
        QTRY_COMPARE(QApplication::focusWidget(), panes.inWindow);
    }

    void panelPassesTheFocusOn()
    {
        Panes panes;
        panes.one->setFocusPolicy(Qt::WheelFocus);
        panes.one->setFocus();
        QTest::keyClick(panes.inWindow, Qt::Key_F6);
        QTRY_COMPARE(QApplication::focusWidget(), panes.fieldOf(panes.one));
    }

    void assistiveToolsTakeTheLayerForItsWidget()
    {
        Scene scene;
        scene.widget->setAccessibleName(QStringLiteral("Strip"));
        FloatingLayer *const layer = scene.makeFloating();
        QAccessibleInterface *const seen = QAccessible::queryAccessibleInterface(layer);
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Strip"));
        scene.widget->setAccessibleName(QString());
        scene.widget->setWindowTitle(QStringLiteral("Tools"));
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Tools"));
        QCOMPARE(seen->role(), QAccessible::Pane);
        auto *const field = new QLineEdit(scene.widget);
        QCOMPARE(seen->role(), QAccessible::Dialog);
        field->setFocusPolicy(Qt::ClickFocus);
        QCOMPARE(seen->role(), QAccessible::Pane);
    }

    void whatFloatsOverALayerHasKeysOfItsOwn()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        const auto inner = std::make_unique<QWidget>(scene.widget);
        new QLineEdit(inner.get());
        FloatingLayer::makeWidgetFloating(inner.get(), QMargins());
        const auto roleOf = [](QWidget *seen) {
            return QAccessible::queryAccessibleInterface(seen)->role();
        };
        QCOMPARE(roleOf(layer), QAccessible::Pane);
        QCOMPARE(roleOf(layerOf(inner.get())), QAccessible::Dialog);
    }

    void assistiveToolsTakeALayerWithAFrameForWhatIsInIt()
    {
        QWidget window;
        auto frame = std::make_unique<ArrowedWindow>(&window);
        auto *const content = new QWidget;
        content->setAccessibleName(QStringLiteral("Smooth"));
        content->setAccessibleDescription(QStringLiteral("Takes the noise out"));
        frame->AttachWidget(content);
        FloatingLayer::makeWidgetFloating(frame.get(), QMargins());
        QAccessibleInterface *const seen =
            QAccessible::queryAccessibleInterface(frame->parentWidget());
        QCOMPARE(seen->text(QAccessible::Name), QStringLiteral("Smooth"));
        QCOMPARE(seen->text(QAccessible::Description), QStringLiteral("Takes the noise out"));
        frame.reset();
        QCOMPARE(seen->text(QAccessible::Name), QString());
    }

    void layerIsAFramelessTranslucentWindowWithoutFocus()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating();
        QVERIFY(layer);
        QCOMPARE(layer->objectName(), QStringLiteral("floating layer"));
        QVERIFY(layer->isWindow());
        QVERIFY(layer->windowFlags().testFlag(Qt::FramelessWindowHint));
        QCOMPARE(layer->windowType(), Qt::Dialog);
        QCOMPARE(layer->focusPolicy(), Qt::NoFocus);
        QVERIFY(layer->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(layer->testAttribute(Qt::WA_TranslucentBackground));
    }

    void layerBelongsToTheOldParentAndHoldsTheWidget()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        QCOMPARE(layer->parent(), scene.view);
        QCOMPARE(layer->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly),
                 QList<QWidget *> {scene.widget});
    }

    // A window system that lags behind reports a size of before.
    void aMoveGivesTheLayerItsSizeAgain()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating(Uneven);
        scene.widget->show();
        const QSize size = layer->size();
        layer->resize(size + QSize(0, 50));
        scene.widget->move(23, 34);
        QCOMPARE(layer->size(), size);
    }

    void floatingAnswersTrue()
    {
        Scene scene;
        QVERIFY(FloatingLayer::makeWidgetFloating(scene.widget, QMargins()));
    }

    void nullIsRefused()
    {
        QVERIFY(!FloatingLayer::makeWidgetFloating(nullptr, Five));
        QVERIFY(!FloatingLayer::isWidgetFloating(nullptr));
        QVERIFY(!FloatingLayer::getWidgetOriginalParent(nullptr));
        QCOMPARE(FloatingLayer::getWidgetOffset(nullptr), QPoint(0, 0));
    }

    void ordinaryWidgetHasNoOriginalParentAndNoOffset()
    {
        const Scene scene;
        QVERIFY(!FloatingLayer::isWidgetFloating(scene.widget));
        QVERIFY(!FloatingLayer::getWidgetOriginalParent(scene.widget));
        QCOMPARE(FloatingLayer::getWidgetOffset(scene.widget), QPoint(0, 0));
    }

    void propertiesTellTheOldParent()
    {
        Scene scene;
        scene.makeFloating();
        const QVariant parent = scene.widget->property("vela_widget_orig_parent");
        QCOMPARE(parent.userType(), qMetaTypeId<QWidget *>());
        QCOMPARE(parent.value<QWidget *>(), scene.view);
        const QVariant floating = scene.widget->property("vela_widget_is_floating");
        QCOMPARE(floating.type(), QVariant::Bool);
        QVERIFY(floating.toBool());
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.widget), scene.view);
    }

    void offsetIsTheLeftAndTopMargin()
    {
        Scene scene;
        scene.makeFloating(Uneven);
        QCOMPARE(FloatingLayer::getWidgetOffset(scene.widget), QPoint(1, 2));
    }

    void aPointerToAParentDoesNotReadAsFloating()
    {
        Scene scene;
        scene.makeFloating();
        QVERIFY(!FloatingLayer::isWidgetFloating(scene.widget));
    }

    void markThatReadsTrueKeepsAWidgetFromFloating()
    {
        const Scene scene;
        scene.widget->setProperty("vela_widget_orig_parent", true);
        QVERIFY(FloatingLayer::isWidgetFloating(scene.widget));
        QVERIFY(FloatingLayer::makeWidgetFloating(scene.widget, Five));
        QCOMPARE(scene.widget->parentWidget(), scene.view);
    }

    void markThatReadsFalseDoesNot()
    {
        Scene scene;
        scene.widget->setProperty("vela_widget_orig_parent", false);
        QVERIFY(!FloatingLayer::isWidgetFloating(scene.widget));
        QVERIFY(scene.makeFloating());
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.widget), scene.view);
    }

    void theSecondFloatingFindsTheFirst()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating(Five);
        QVERIFY(FloatingLayer::makeWidgetFloating(scene.widget, Uneven));
        QCOMPARE(layerOf(scene.widget), layer);
        QCOMPARE(FloatingLayer::getWidgetOffset(scene.widget), QPoint(5, 5));
        QCOMPARE(scene.view->findChildren<FloatingLayer *>().size(), 1);
    }

    void layerStandsWhereTheWidgetStood()
    {
        Scene scene;
        scene.makeFloating();
        QCOMPARE(scene.cornerInView(), QPoint(20, 30));
        QCOMPARE(scene.widget->pos(), QPoint(0, 0));
        QCOMPARE(layerOf(scene.widget)->size(), QSize(60, 25));
    }

    void marginsLieAroundTheWidget()
    {
        Scene scene;
        scene.makeFloating(Uneven);
        QCOMPARE(scene.cornerInView(), QPoint(19, 28));
        QCOMPARE(scene.widget->pos(), QPoint(1, 2));
        QCOMPARE(layerOf(scene.widget)->size(), QSize(64, 31));
    }

    void moveOfTheWidgetMovesTheLayer_data()
    {
        QTest::addColumn<QMargins>("margins");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("no margins") << QMargins() << QPoint(10, 20);
        QTest::newRow("margins") << Five << QPoint(5, 15);
        QTest::newRow("uneven margins") << Uneven << QPoint(9, 18);
        QTest::newRow("negative margins") << QMargins(-2, -3, -4, -5) << QPoint(12, 23);
    }

    void moveOfTheWidgetMovesTheLayer()
    {
        QFETCH(QMargins, margins);
        QFETCH(QPoint, corner);
        Scene scene;
        scene.makeFloating(margins);
        scene.widget->show();
        scene.widget->move(10, 20);
        QCOMPARE(scene.cornerInView(), corner);
        QCOMPARE(scene.widget->pos(), QPoint(margins.left(), margins.top()));
        scene.widget->move(70, 80);
        QCOMPARE(scene.cornerInView(), corner + QPoint(60, 60));
    }

    void moveWhileHiddenCountsFromTheNextShow()
    {
        Scene scene;
        scene.makeFloating(Five);
        scene.widget->move(10, 20);
        scene.widget->show();
        QCOMPARE(scene.cornerInView(), QPoint(5, 15));
        QCOMPARE(scene.widget->pos(), QPoint(5, 5));
        scene.widget->hide();
        scene.widget->move(90, 91);
        scene.widget->show();
        QCOMPARE(scene.cornerInView(), QPoint(85, 86));
    }

    // As bars do that place themselves when their size has come.
    void moveWhileTheWidgetIsBeingShownCounts()
    {
        Scene scene;
        scene.makeFloating(Five);
        scene.widget->resize(70, 30);
        AtEvent move(scene.widget, QEvent::Resize, [&scene] { scene.widget->move(70, 80); });
        scene.widget->show();
        QCOMPARE(scene.cornerInView(), QPoint(65, 75));
        QCOMPARE(scene.widget->pos(), QPoint(5, 5));
        QVERIFY(!scene.widget->visibleRegion().isEmpty());
    }

    void positionSurvivesEveryShowWithMargins()
    {
        Scene scene;
        scene.makeFloating(Five);
        for (int i = 0; i < 3; ++i) {
            scene.widget->show();
            QCOMPARE(scene.cornerInView(), QPoint(15, 25));
            QCOMPARE(scene.widget->pos(), QPoint(5, 5));
            scene.widget->hide();
        }
        scene.view->move(41, 51);
        QCOMPARE(scene.cornerInView(), QPoint(15, 25));
    }

    void moveToTheMarginsBeforeTheFirstShowIsTheOwners()
    {
        Scene scene;
        scene.makeFloating(Five);
        scene.widget->move(5, 5);
        scene.widget->show();
        QCOMPARE(scene.cornerInView(), QPoint(0, 0));
    }

    void widgetWithoutParentHasGlobalCoordinates()
    {
        QWidget widget;
        widget.setGeometry(200, 150, 50, 20);
        QVERIFY(FloatingLayer::makeWidgetFloating(&widget, Five));
        const QPointer<FloatingLayer> layer = layerOf(&widget);
        QVERIFY(layer && !layer->parentWidget());
        QCOMPARE(layer->pos(), QPoint(195, 145));
        widget.show();
        QVERIFY(!widget.isWindow());
        widget.move(300, 310);
        QCOMPARE(layer->pos(), QPoint(295, 305));
        QVERIFY(widget.property("vela_widget_orig_parent").isValid());
        QVERIFY(!FloatingLayer::getWidgetOriginalParent(&widget));
        delete layer.data();
    }

    void windowWithAParentFloatsAsAChildOfTheLayer()
    {
        Scene scene;
        auto *const popup = new QWidget(scene.view, Qt::Tool);
        FloatingLayer::makeWidgetFloating(popup, QMargins());
        QVERIFY(!popup->isWindow());
        QVERIFY(layerOf(popup));
        delete popup;
    }

    void layerFollowsTheSizeOfTheWidget()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating(Uneven);
        scene.widget->show();
        scene.widget->resize(100, 200);
        QCOMPARE(layer->size(), QSize(104, 206));
        QCOMPARE(scene.widget->pos(), QPoint(1, 2));
    }

    void sizeGivenWhileHiddenCountsFromTheNextShow()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating(Uneven);
        scene.widget->resize(100, 200);
        scene.widget->show();
        QCOMPARE(layer->size(), QSize(104, 206));
    }

    void floatingHidesUntilTheNextShow()
    {
        Scene scene;
        QVERIFY(scene.widget->isVisible());
        const FloatingLayer *const layer = scene.makeFloating();
        QVERIFY(!scene.widget->isVisible());
        QVERIFY(!layer->isVisible());
    }

    void layerIsShownAndHiddenWithTheWidget()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating();
        for (int i = 0; i < 2; ++i) {
            scene.widget->show();
            QVERIFY(layer->isVisible());
            QVERIFY(scene.widget->isVisible());
            scene.widget->hide();
            QVERIFY(!layer->isVisible());
            QVERIFY(!scene.widget->isVisible());
        }
    }

    void eventsOfTheWidgetShowAndHideTheLayer_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("shown");
        QTest::newRow("show") << int(QEvent::Show) << true;
        QTest::newRow("show to parent") << int(QEvent::ShowToParent) << true;
        QTest::newRow("hide") << int(QEvent::Hide) << false;
        QTest::newRow("hide to parent") << int(QEvent::HideToParent) << false;
    }

    void eventsOfTheWidgetShowAndHideTheLayer()
    {
        QFETCH(int, type);
        QFETCH(bool, shown);
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        layer->setVisible(!shown);
        QEvent event {QEvent::Type(type)};
        QCoreApplication::sendEvent(scene.widget, &event);
        QCOMPARE(layer->isVisible(), shown);
    }

    void hidingReachesALayerThatIsNotOnTheScreen()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        scene.widget->show();
        layer->close();
        QVERIFY(!scene.widget->isVisible());
        scene.widget->hide();
        scene.widget->show();
        QVERIFY(layer->isVisible());
        QVERIFY(scene.widget->isVisible());
    }

    void shownLayerComesToTheFront()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        EventCounter raised(layer, QEvent::ZOrderChange);
        layer->setVisible(true);
        QCOMPARE(raised.count, 1);
        layer->setVisible(true);
        QCOMPARE(raised.count, 2);
        layer->setVisible(false);
        QCOMPARE(raised.count, 2);
    }

    // A window manager has to look at each wish for the front, and at those of hidden windows as well.
    void widgetBringsItsLayerUpOnceItIsOnTheScreen()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        for (int i = 0; i < 2; ++i) {
            EventCounter raised(layer, QEvent::ZOrderChange);
            bool wasOnScreen = false;
            const AtEvent front(layer, QEvent::ZOrderChange,
                                [&] { wasOnScreen = layer->windowHandle()->isVisible(); });
            scene.widget->show();
            QCOMPARE(raised.count, 1);
            QVERIFY(wasOnScreen);
            scene.widget->hide();
        }
    }

    void layerThatIsHiddenAndShownWhileItComesIsThere()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        const AtEvent blink(scene.widget, QEvent::Show, [&] {
            scene.widget->hide();
            scene.widget->show();
        });
        EventCounter raised(layer, QEvent::ZOrderChange);
        scene.widget->show();
        QVERIFY(layer->isVisible());
        QVERIFY(layer->windowHandle()->isVisible());
        QVERIFY(scene.widget->isVisible());
        QVERIFY(raised.count > 0);
        scene.widget->hide();
        QVERIFY(!layer->isVisible());
        raised.count = 0;
        layer->show();
        QCOMPARE(raised.count, 1);
    }

    void minimisingTheLayerKeepsItShown()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating();
        scene.widget->show();
        QHideEvent minimised;
        sendSpontaneous(scene.widget, &minimised);
        QVERIFY(layer->isVisible());
    }

    void restoringTheLayerShowsNoneThatWasHidden()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating();
        QShowEvent restored;
        sendSpontaneous(scene.widget, &restored);
        QVERIFY(!layer->isVisible());
    }

    void parentTakesTheLayerWithIt()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating(Five);
        scene.widget->show();
        const QPoint before = layer->pos();
        scene.view->move(47, 58);
        QCOMPARE(layer->pos(), before + QPoint(7, 8));
        QCOMPARE(scene.cornerInView(), QPoint(15, 25));
        QCOMPARE(scene.widget->pos(), QPoint(5, 5));
    }

    void parentTakesTheLayerAlongFromWhereTheWidgetWasMoved()
    {
        Scene scene;
        scene.makeFloating(Five);
        scene.widget->show();
        scene.widget->move(70, 80);
        scene.view->move(47, 58);
        QCOMPARE(scene.cornerInView(), QPoint(65, 75));
    }

    void positionOfTheParentsMoveCounts()
    {
        Scene scene;
        const FloatingLayer *const layer = scene.makeFloating(Five);
        QMoveEvent event(QPoint(1, 2), QPoint(0, 0));
        QCoreApplication::sendEvent(scene.view, &event);
        QCOMPARE(layer->pos(), originOf(scene.window) + QPoint(1, 2) + QPoint(15, 25));
    }

    void windowThatIsTheParentTakesTheLayerWithIt()
    {
        QWidget grandparent;
        grandparent.setGeometry(500, 400, 50, 50);
        auto *const window = new QWidget(&grandparent, Qt::Window);
        window->setGeometry(100, 80, 400, 300);
        window->show();
        auto *const widget = new QWidget(window);
        widget->setGeometry(20, 30, 60, 25);
        FloatingLayer::makeWidgetFloating(widget, QMargins());
        widget->show();
        QCOMPARE(layerOf(widget)->pos(), QPoint(120, 110));
        window->move(200, 180);
        QCOMPARE(layerOf(widget)->pos(), originOf(*window) + QPoint(20, 30));
        delete widget;
    }

    void whatTheParentStandsInTakesTheLayerWithIt()
    {
        QWidget window;
        window.setGeometry(100, 80, 400, 300);
        auto *const dock = new QWidget(&window);
        auto *const view = new QWidget(dock);
        auto *const widget = new QWidget(view);
        window.show();
        FloatingLayer::makeWidgetFloating(widget, QMargins());
        dock->move(30, 40);
        QCOMPARE(layerOf(widget)->pos(), QPoint(130, 120));
        QCOMPARE(originOf(*view), QPoint(130, 120));
        window.move(110, 95);
        QCOMPARE(layerOf(widget)->pos(), originOf(*view));
        delete widget;
    }

    void parentInAnotherWindowTakesTheLayerWithIt()
    {
        Scene scene;
        QWidget other;
        other.setGeometry(600, 500, 400, 300);
        other.show();
        const FloatingLayer *const layer = scene.makeFloating();
        scene.widget->show();
        scene.view->setParent(&other);
        QCOMPARE(layer->pos(), originOf(other) + QPoint(40, 50) + QPoint(20, 30));
        scene.view->move(0, 0);
        scene.view->show();
        QCOMPARE(layer->pos(), QPoint(620, 530));
        other.move(610, 520);
        QCOMPARE(layer->pos(), originOf(other) + QPoint(20, 30));
        const QPoint before = layer->pos();
        scene.window.move(0, 0);
        QCOMPARE(layer->pos(), before);
        QTRY_COMPARE(layer->windowHandle()->transientParent(), other.windowHandle());
        QVERIFY(layer->isVisible());
        QVERIFY(scene.widget->isVisible());
        const EventCounter timers(qApp, QEvent::Timer);
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
        QCOMPARE(timers.count, 0);
        delete scene.view;
    }

    void mainWindowThatMovesTakesTheLayerWithIt()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating(Five);
        layer->move(0, 0);
        layer->appMoved(QPoint());
        QCOMPARE(scene.cornerInView(), QPoint(15, 25));
    }

    void layerHearsOfTheMainWindow()
    {
        Scene scene;
        QWidget mainWindow;
        mainWindow.resize(100, 100);
        mainWindow.show();
        ApplicationService::GetInstance().setMainWindow(&mainWindow);
        FloatingLayer *const layer = scene.makeFloating(Five);
        layer->move(0, 0);
        layer->resize(1, 1);
        mainWindow.move(7, 7);
        QCOMPARE(scene.cornerInView(), QPoint(15, 25));
        QCOMPARE(layer->size(), QSize(1, 1));
        mainWindow.resize(200, 100);
        QCOMPARE(layer->size(), QSize(70, 35));
        ApplicationService::GetInstance().setMainWindow(nullptr);
    }

    void changeOfTheMainWindowsStateIsNothingToALayer()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        scene.widget->show();
        const QRect before = layer->geometry();
        layer->appWindowStateChanged(Qt::WindowNoState, Qt::WindowMinimized);
        QVERIFY(layer->isVisible());
        QCOMPARE(layer->geometry(), before);
    }

    void eventsReachTheWidgetAndOtherFilters()
    {
        Scene scene;
        EventCounter earlier(scene.widget, QEvent::Move);
        scene.makeFloating();
        scene.widget->show();
        earlier.count = 0;
        scene.widget->move(10, 20);
        // Once the owner's move, once the layer's of putting the widget back.
        QCOMPARE(earlier.count, 2);
    }

    void keysDoNotCloseTheLayer_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("escape") << Qt::Key_Escape;
        QTest::newRow("return") << Qt::Key_Return;
        QTest::newRow("enter") << Qt::Key_Enter;
    }

    void keysDoNotCloseTheLayer()
    {
        QFETCH(Qt::Key, key);
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        scene.widget->setFocusPolicy(Qt::StrongFocus);
        scene.widget->show();
        layer->activateWindow();
        scene.widget->setFocus();
        QTRY_VERIFY(scene.widget->hasFocus());
        const QSignalSpy finished(layer, &QDialog::finished);
        QTest::keyClick(scene.widget, key);
        QVERIFY(layer->isVisible());
        QVERIFY(scene.widget->isVisible());
        QCOMPARE(finished.size(), 0);
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(layer, &event);
        QVERIFY(!event.isAccepted());
    }

    void userClosesTheWindowAndNotTheLayer()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating();
        scene.widget->show();
        QCloseEvent event;
        sendSpontaneous(layer, &event);
        QVERIFY(!event.isAccepted());
        QVERIFY(!scene.window.isVisible());
        QVERIFY(layer->isVisible());
        QVERIFY(scene.widget->isVisible());
    }

    void userClosesTheWindowBelowLayersInLayers()
    {
        Scene scene;
        const FloatingLayer *const outer = scene.makeFloating();
        auto *const inner = new QWidget(scene.widget);
        FloatingLayer::makeWidgetFloating(inner, QMargins());
        scene.widget->show();
        inner->show();
        QCloseEvent event;
        sendSpontaneous(layerOf(inner), &event);
        QVERIFY(!scene.window.isVisible());
        QVERIFY(outer->isVisible());
        QVERIFY(inner->isVisible());
        delete inner;
    }

    void layerMayGoWithTheWindowThatTheUserCloses()
    {
        QPointer<QWidget> window = new QWidget;
        window->setAttribute(Qt::WA_DeleteOnClose);
        const std::unique_ptr<QWidget> widget(new QWidget(window));
        window->show();
        FloatingLayer::makeWidgetFloating(widget.get(), QMargins());
        widget->show();
        QCloseEvent event;
        sendSpontaneous(layerOf(widget.get()), &event);
        QTRY_VERIFY(!window);
        QVERIFY(!widget->isVisible());
    }

    void layerWithoutParentIsClosedItself()
    {
        const std::unique_ptr<QWidget> widget(new QWidget);
        FloatingLayer::makeWidgetFloating(widget.get(), QMargins());
        widget->show();
        QCloseEvent event;
        sendSpontaneous(layerOf(widget.get()), &event);
        QVERIFY(event.isAccepted());
        QVERIFY(!layerOf(widget.get())->isVisible());
    }

    void returnDoesNotPressADefaultButton()
    {
        Scene scene;
        scene.makeFloating();
        auto *const button = new QPushButton(scene.widget);
        button->setDefault(true);
        scene.widget->show();
        const QSignalSpy clicked(button, &QPushButton::clicked);
        QTest::keyClick(layerOf(scene.widget), Qt::Key_Return);
        QCOMPARE(clicked.size(), 0);
    }

    void otherKeysDoWhatTheyDoInADialog()
    {
        Scene scene;
        FloatingLayer *const layer = scene.makeFloating();
        QKeyEvent event(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier);
        QCoreApplication::sendEvent(layer, &event);
        QVERIFY(!event.isAccepted());
    }

    void widgetsDeathHidesTheLayerWhichStays()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating(Five);
        scene.widget->show();
        delete scene.widget.data();
        QVERIFY(layer);
        QVERIFY(!layer->isVisible());
        const QRect before = layer->geometry();
        scene.view->move(0, 0);
        layer->appMoved(QPoint());
        layer->appResized(QSize());
        QCOMPARE(layer->geometry(), before);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(layer);
    }

    void layerWithoutParentGoesWithItsWidget()
    {
        auto *const widget = new QWidget;
        FloatingLayer::makeWidgetFloating(widget, QMargins());
        const QPointer<FloatingLayer> layer = layerOf(widget);
        widget->show();
        delete widget;
        QVERIFY(layer && !layer->isVisible());
        QTRY_VERIFY(!layer);
    }

    void parentsDeathHandsTheWidgetBack()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating(Five);
        scene.widget->show();
        const std::unique_ptr<QWidget> widget(scene.widget);
        delete scene.view;
        QVERIFY(!layer);
        QVERIFY(scene.widget);
        QVERIFY(!widget->parentWidget());
        QVERIFY(!widget->isVisible());
        QVERIFY(widget->property("vela_widget_orig_parent").isValid());
        QVERIFY(!FloatingLayer::getWidgetOriginalParent(widget.get()));
        QVERIFY(widget->property("vela_widget_is_floating").toBool());
    }

    void layersDeathHandsTheWidgetBack()
    {
        Scene scene;
        delete scene.makeFloating(Five);
        const std::unique_ptr<QWidget> widget(scene.widget);
        QVERIFY(!widget->parentWidget());
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(widget.get()), scene.view);
        widget->move(3, 4);
        widget->resize(33, 44);
        QCOMPARE(widget->geometry(), QRect(3, 4, 33, 44));
        ApplicationService::GetInstance().setMainWindow(&scene.window);
        scene.window.resize(300, 200);
        ApplicationService::GetInstance().setMainWindow(nullptr);
    }

    void widgetThatWasHandedBackFloatsOverTheSameParentAgain()
    {
        Scene scene;
        delete scene.makeFloating(Five);
        scene.widget->move(7, 9);
        FloatingLayer *const layer = scene.makeFloating();
        QCOMPARE(layer->parentWidget(), scene.view);
        QVERIFY(layer->isWindow());
        QVERIFY(layer->windowFlags().testFlag(Qt::FramelessWindowHint));
        scene.widget->show();
        QVERIFY(layer->isVisible());
        QCOMPARE(scene.cornerInView(), QPoint(7, 9));
    }

    void widgetWhoseOldParentDiedFloatsOverItsNewOne()
    {
        Scene scene;
        scene.makeFloating();
        delete scene.view;
        QWidget other;
        scene.widget->setParent(&other);
        const FloatingLayer *const layer = scene.makeFloating();
        QCOMPARE(layer->parentWidget(), &other);
        QCOMPARE(FloatingLayer::getWidgetOriginalParent(scene.widget), &other);
        delete scene.widget.data();
    }

    void widgetThatIsTakenAwayIsLeftAlone()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating(Five);
        scene.widget->show();
        scene.widget->setParent(&scene.window);
        QVERIFY(!layer->isVisible());
        scene.widget->show();
        scene.widget->setGeometry(11, 12, 13, 14);
        QCOMPARE(scene.widget->geometry(), QRect(11, 12, 13, 14));
        QVERIFY(!layer->isVisible());
        delete layer.data();
        QCOMPARE(scene.widget->parentWidget(), &scene.window);
    }

    void widgetMayDieInItsOwnShow()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating();
        const AtEvent death(layer, QEvent::Show, [&] { delete scene.widget.data(); });
        scene.widget->setVisible(true);
        QVERIFY(!scene.widget);
        QVERIFY(!layer->isVisible());
    }

    void parentMayDieInTheHideOfALayer()
    {
        Scene scene;
        const QPointer<FloatingLayer> layer = scene.makeFloating();
        const std::unique_ptr<QWidget> widget(scene.widget);
        scene.widget->show();
        const AtEvent death(layer, QEvent::Hide, [&] { scene.view->deleteLater(); });
        scene.widget->hide();
        QTRY_VERIFY(!layer);
        QVERIFY(scene.widget);
    }

    void layersInLayersMoveTogether()
    {
        Scene scene;
        scene.makeFloating(Five);
        auto *const inner = new QWidget(scene.widget);
        inner->move(3, 4);
        FloatingLayer::makeWidgetFloating(inner, QMargins());
        scene.widget->show();
        inner->show();
        QCOMPARE(layerOf(inner)->pos(), originOf(*scene.widget) + QPoint(3, 4));
        scene.view->move(0, 0);
        QCOMPARE(layerOf(inner)->pos(), originOf(*scene.widget) + QPoint(3, 4));
        delete inner;
    }

    void layoutBaseWidgetOnlyKeepsASize()
    {
        LayoutBaseWidget widget;
        QVERIFY(!widget.layoutSize.isValid());
        widget.layoutSize = QSize(3, 4);
        QVERIFY(widget.size() != QSize(3, 4));
        QVERIFY(!widget.sizeHint().isValid());
    }
};

LUMO_TEST_MAIN(tst_FloatingLayer)
#include "tst_floatinglayer.moc"
