// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// What is transparent in a window is black where nobody blends it with what lies below, so that
// popups and dialogs show no more of themselves than their outline there.

#include <ui_base/ArrowedWindow>
#include <ui_base/CommandBase>
#include <ui_base/CommandGroup>
#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>
#include <ui_base/TaskDialog>
#include <ui_base/ToolBar>
#include <ui_base/ToolbarManager>
#include <ui_base/ToolButtonWithWidgetMenu>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QX11Info>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

using namespace Lumo::Test;
using namespace Vela::UiBase;
using Vela::UiToolkit::EDialogButtons;
using Vela::UiToolkit::EDialogIcon;
using Vela::UiToolkit::TaskDialog;

namespace {

const QColor Ground(200, 0, 0);
const QString Group = QStringLiteral("group");

/// A connection to the server beside that of Qt, the thread of which has to see all replies on it.
class Server
{
public:
    Server()
        : m_connection(xcb_connect(nullptr, nullptr))
    { }
    ~Server() { xcb_disconnect(m_connection); }

    xcb_connection_t *connection() const { return m_connection; }

    /// Where a window stands. Qt may not have heard yet of where the window manager has put it.
    QPoint placeOf(xcb_window_t window) const
    {
        const auto cookie = xcb_translate_coordinates(m_connection, window, root(), 0, 0);
        xcb_translate_coordinates_reply_t *const reply =
            xcb_translate_coordinates_reply(m_connection, cookie, nullptr);
        const QPoint place = reply ? QPoint(reply->dst_x, reply->dst_y) : QPoint();
        free(reply);
        return place;
    }
    xcb_atom_t atom(const QByteArray &name) const
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, std::uint16_t(name.size()), name.constData());
        xcb_intern_atom_reply_t *const reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        const xcb_atom_t result = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
        free(reply);
        return result;
    }
    static xcb_window_t root() { return xcb_window_t(QX11Info::appRootWindow()); }

    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

private:
    xcb_connection_t *const m_connection;
};

/// Says that windows are blended, as a compositor does, for as long as it lives.
class Compositor
{
public:
    Compositor()
    {
        xcb_connection_t *const connection = m_server.connection();
        const xcb_window_t owner = xcb_generate_id(connection);
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, owner, Server::root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        const xcb_atom_t selection =
            m_server.atom("_NET_WM_CM_S" + QByteArray::number(QX11Info::appScreen()));
        xcb_set_selection_owner(connection, owner, selection, XCB_CURRENT_TIME);
        xcb_flush(connection);
    }

private:
    const Server m_server; ///< the window goes with its connection
};

/// A red window with a button of a tool bar that opens a flyout.
struct Scene
{
    QWidget window;
    QAction action;
    ToolBar *const bar = new ToolBar(&window, Qt::LeftToolBarArea);
    QWidget *const panel = new QWidget;
    ToolButtonWithWidgetMenu *button = nullptr;

    Scene()
    {
        pointAsUser(QPoint(2, 2));
        QPalette palette;
        palette.setColor(QPalette::Window, Ground);
        window.setPalette(palette);
        window.setGeometry(200, 150, 1000, 700);
        panel->setFixedSize(150, 60);
        FlyoutBase *const flyout = QtUiToolkit::Instance().CreateFlyout(
            QStringLiteral("Smooth"), panel, nullptr, true, true, true, false, &window);
        flyout->setPalette(QPalette(Qt::white));
        button = bar->AddAction(&action, flyout, QStringLiteral("tools"));
        ArrowedWindow::SArrowParam arrow;
        arrow.position = EArrowPosition::TopLeft;
        button->SetMenuParameters(true, arrow, EDirection::Right, 20, EWidgetsAlign::AlignStart,
                                  QPoint());
        window.show();
    }

    bool isReady()
    {
        return QTest::qWaitForWindowActive(&window)
            && QTest::qWaitFor([this] { return colourInside(window) == Ground; }, 20'000);
    }
    QWidget *layer() const { return button->GetMenu()->window(); }
};

QRect onScreen(const QWidget &widget)
{
    const QWidget &window = *widget.window();
    const QPoint corner = Server().placeOf(xcb_window_t(window.winId()));
    return {corner + widget.mapTo(&window, QPoint(0, 0)), widget.size()};
}

bool isAnythingBlack(const QImage &screen, const QRect &rect)
{
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (screen.pixelColor(x, y) == Qt::black)
                return true;
        }
    }
    return false;
}

/// Whether a widget of a window is seen, and nothing black, which is nothing that these windows paint.
bool isSeenWithoutBlack(const QWidget &widget, const QImage &screen)
{
    const QRect rect = onScreen(*widget.window());
    const QPoint inside = onScreen(widget).center();
    return screen.rect().contains(rect) && screen.pixelColor(inside) != Ground
        && !isAnythingBlack(screen, rect);
}

/// Whether that is so, and the ground is seen at the corners of the window.
bool isSeenOnGround(const QWidget &widget)
{
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    if (!isSeenWithoutBlack(widget, screen))
        return false;
    const QRect rect = onScreen(*widget.window());
    const std::array<QPoint, 4> corners {rect.topLeft(), rect.topRight(), rect.bottomLeft(),
                                         rect.bottomRight()};
    return std::all_of(corners.cbegin(), corners.cend(), [&screen](const QPoint &corner) {
        return screen.pixelColor(corner) == Ground;
    });
}

bool isGround(const QPoint &global)
{
    return colourOnScreen(global) == Ground;
}

/// Whether it comes true; a window that comes may be seen at two places before it stands.
template<typename Condition>
bool comesTrue(Condition condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

bool comesOnGround(const QWidget &widget)
{
    return comesTrue([&widget] { return isSeenOnGround(widget); });
}

class SelectionCommand : public CommandBase
{
public:
    SelectionCommand()
        : CommandBase(nullptr)
    { }

    const QString commandId() const override { return QStringLiteral("selection"); }
    bool onExecuteAsync(bool) override { return true; }
};

QWidget *makeTip()
{
    auto *const tip = new QWidget;
    tip->setPalette(QPalette(Qt::white));
    tip->setFixedSize(160, 40);
    return tip;
}

} // namespace

class tst_TranslucencyDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void groundIsSeenAroundAFlyout();
    void shapeFollowsAFlyoutThatGrows();
    void groundIsSeenAroundATooltip();
    void groundIsSeenAroundACard_data();
    void groundIsSeenAroundACard();
    void separatorOfBarsIsNoBlackLine();
    void translucentFillIsPartOfTheShape();
    void groundIsSeenAroundADialog();
    void shapeFollowsADialogThatGrows();
    void windowsAreWholeWhereTheyAreBlended();
    void maskOfTheHostStays();
};

void tst_TranslucencyDesktop::groundIsSeenAroundAFlyout()
{
    Scene scene;
    QVERIFY(scene.isReady());
    for (int opening = 0; opening < 2; ++opening) {
        scene.button->ShowMenu();
        QVERIFY(comesOnGround(*scene.panel));
        const QPoint inside = onScreen(*scene.panel).center();
        scene.button->HideMenu();
        QVERIFY(comesTrue([inside] { return isGround(inside); }));
    }
}

void tst_TranslucencyDesktop::shapeFollowsAFlyoutThatGrows()
{
    Scene scene;
    QVERIFY(scene.isReady());
    scene.button->ShowMenu();
    QVERIFY(comesOnGround(*scene.panel));
    const int height = scene.layer()->height();
    scene.panel->setFixedSize(220, 150);
    QTRY_COMPARE(scene.layer()->height(), height + 90);
    QVERIFY(comesTrue([&] { return !isGround(onScreen(*scene.panel).bottomRight()); }));
    QVERIFY(comesOnGround(*scene.panel));
}

void tst_TranslucencyDesktop::groundIsSeenAroundATooltip()
{
    Scene scene;
    QWidget host(&scene.window);
    host.setGeometry(300, 300, 40, 40);
    auto *const tooltip = new TooltipObject(Group, &host);
    QWidget *const tip = makeTip();
    tooltip->SetTooltipControl(tip, true);
    tooltip->SetTooltipType(ATooltipObject::ETooltipType::TooltipRight);
    tooltip->SetCustomTooltipDismissTime(0);
    tooltip->AttachTo(&host);
    host.show();
    QVERIFY(scene.isReady());
    tooltip->ShowTooltip();
    QVERIFY(comesOnGround(*tip));
}

void tst_TranslucencyDesktop::groundIsSeenAroundACard_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("of a tooltip") << QStringLiteral("TooltipEx");
    QTest::newRow("beneath a panel") << QStringLiteral("InfoDialog");
}

void tst_TranslucencyDesktop::groundIsSeenAroundACard()
{
    QFETCH(QString, type);
    Scene scene;
    const std::unique_ptr<QWidget> card(TooltipExFactory::GetInstance().CreateExtendedTooltip(
        &scene.window, QStringLiteral("Smooth"), QStringLiteral("Takes the noise out."),
        QStringLiteral("Each step pulls every vertex towards its neighbours."), true, 240,
        ATooltipEx::EWidgetExVisibility::ExAlwaysShown, type));
    card->hide();
    card->move(300, 300);
    QVERIFY(FloatingLayer::makeWidgetFloating(card.get(), QMargins()));
    QVERIFY(scene.isReady());
    card->show();
    // Not every corner of a panel is round enough for the ground to be seen.
    const auto isSeen = [&card] {
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        return isSeenWithoutBlack(*card, screen)
            && screen.pixelColor(onScreen(*card).bottomRight()) == Ground;
    };
    QVERIFY(comesTrue(isSeen));
    card->resize(card->size() + QSize(60, 40));
    QVERIFY(comesTrue([&] { return !isGround(onScreen(*card).bottomRight() - QPoint(8, 8)); }));
    QVERIFY(comesTrue(isSeen));
}

void tst_TranslucencyDesktop::separatorOfBarsIsNoBlackLine()
{
    Scene scene;
    ToolBar bar(&scene.window, Qt::BottomToolBarArea);
    QAction action;
    bar.AddAction(&action, QStringLiteral("tools"));
    bar.AdjustToolBarSize(true);
    bar.move(200, 300);
    ToolbarManager manager(&bar);
    CommandGroup group(QStringLiteral("cmd_selection"), QString(), QStringLiteral("selection"));
    const auto command = std::make_shared<SelectionCommand>();
    group.addCommand(command);
    manager.addDynamicCommandGroup(&group);
    QVERIFY(scene.isReady());
    manager.commandGroupBegan(&group);
    const auto labels = scene.window.findChildren<QLabel *>();
    const auto line = std::find_if(labels.cbegin(), labels.cend(), [](const QLabel *label) {
        return FloatingLayer::getWidgetOriginalParent(const_cast<QLabel *>(label));
    });
    QVERIFY(line != labels.cend());
    QVERIFY(comesTrue([line] {
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        return (*line)->isVisible() && isSeenWithoutBlack(**line, screen);
    }));
    const QRect rect = onScreen(**line);
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    QVERIFY(qGray(screen.pixel(rect.center())) > 128);
}

// It is dark there, since it lies over nothing, but it is there.
void tst_TranslucencyDesktop::translucentFillIsPartOfTheShape()
{
    Scene scene;
    ArrowedWindow frame(&scene.window);
    auto *const content = new QWidget;
    content->setFixedSize(100, 50);
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0, 0, 200, 60));
    content->setPalette(palette);
    frame.AttachWidget(content);
    FloatingLayer::makeWidgetFloating(&frame, QMargins());
    frame.move(300, 300);
    QVERIFY(scene.isReady());
    frame.show();
    QVERIFY(comesOnGround(*content));
}

void tst_TranslucencyDesktop::groundIsSeenAroundADialog()
{
    Scene scene;
    QVERIFY(scene.isReady());
    TaskDialog dialog(&scene.window, QStringLiteral("Close the mesh?"), QString(),
                      EDialogButtons::ButtonsYesNoCancel, EDialogIcon::IconQuestion);
    dialog.show();
    const auto *const button = dialog.findChild<QPushButton *>(QStringLiteral("button1"));
    QVERIFY(comesOnGround(*button));
    QVERIFY(comesOnGround(*dialog.findChild<QFrame *>(QStringLiteral("frame"))));
    const QRect below = onScreen(*button);
    QVERIFY(!isGround(below.topRight() + QPoint(-1, 1)));
    QVERIFY(isGround(below.topRight() + QPoint(3, 1)));
}

void tst_TranslucencyDesktop::shapeFollowsADialogThatGrows()
{
    Scene scene;
    QVERIFY(scene.isReady());
    auto *const small = new QWidget;
    small->setFixedSize(60, 40);
    TaskDialog dialog(&scene.window, small, false, EDialogButtons::ButtonsYesNoCancel,
                      EDialogIcon::IconNone);
    dialog.show();
    QVERIFY(comesOnGround(*small));
    const int width = dialog.width();
    auto *const large = new QWidget;
    large->setFixedSize(500, 300);
    dialog.setWidget(large);
    QVERIFY(dialog.width() > width);
    QVERIFY(comesOnGround(*large));
    QVERIFY(comesOnGround(*dialog.findChild<QPushButton *>(QStringLiteral("button3"))));
}

void tst_TranslucencyDesktop::windowsAreWholeWhereTheyAreBlended()
{
    Scene scene;
    QVERIFY(scene.isReady());
    TaskDialog dialog(&scene.window, QStringLiteral("Close the mesh?"), QString(),
                      EDialogButtons::ButtonsYesNo, EDialogIcon::IconQuestion);
    {
        const Compositor compositor;
        QTRY_VERIFY(QX11Info::isCompositingManagerRunning());
        scene.button->ShowMenu();
        dialog.show();
        QVERIFY(scene.layer()->mask().isEmpty());
        QVERIFY(dialog.mask().isEmpty());
    }
    QTRY_VERIFY(!QX11Info::isCompositingManagerRunning());
    scene.button->HideMenu();
    dialog.hide();
    scene.button->ShowMenu();
    dialog.show();
    QVERIFY(!scene.layer()->mask().isEmpty());
    QVERIFY(!dialog.mask().isEmpty());
    const Compositor compositor;
    QTRY_VERIFY(QX11Info::isCompositingManagerRunning());
    scene.button->HideMenu();
    dialog.hide();
    scene.button->ShowMenu();
    dialog.show();
    QVERIFY(scene.layer()->mask().isEmpty());
    QVERIFY(dialog.mask().isEmpty());
}

void tst_TranslucencyDesktop::maskOfTheHostStays()
{
    Scene scene;
    QVERIFY(scene.isReady());
    const QRegion mask(10, 10, 50, 50);
    scene.layer()->setMask(mask);
    scene.button->ShowMenu();
    QCOMPARE(scene.layer()->mask(), mask);
}

LUMO_TEST_MAIN(tst_TranslucencyDesktop)
#include "tst_translucencydesktop.moc"
