// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/BaseView>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>
#include <ui_base/TooltipWrapper>

#include "desktop/desktopuser.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QStackedWidget>
#include <QWindow>

using namespace Vela::UiBase;
using Lumo::Test::clickAsUser;
using Lumo::Test::colourOnScreen;
using Lumo::Test::pointAsUser;
using Lumo::Test::typeAsUser;
using ETooltipType = ATooltipObject::ETooltipType;

namespace {

const QString Group = QStringLiteral("group");

// The user moves onto something: the second movement is one over it. The window manager may still be
// putting the window in its place, so the user looks whether it was hit.
bool pointAt(const QWidget &widget)
{
    const auto hit = [&widget] {
        const QPoint centre = widget.mapToGlobal(widget.rect().center());
        return pointAsUser(centre) && pointAsUser(centre + QPoint(2, 1)) && widget.underMouse();
    };
    return QTest::qWaitFor(hit, 20'000);
}

bool pointNowhere()
{
    return pointAsUser(QPoint(2, 2));
}

class Patch : public QWidget
{
public:
    explicit Patch(const QColor &color, QWidget *parent = nullptr)
        : QWidget(parent)
        , m_color(color)
    { }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), m_color); }

private:
    const QColor m_color;
};

// A view that paints in a window of the window system, with two hosts, beside a field to type into.
struct Scene
{
    QWidget window;
    QLineEdit *edit = new QLineEdit(&window);
    BaseView *view = new BaseView(&window, Qt::Widget);
    Patch *host = new Patch(Qt::darkBlue, view->getQtWidget());
    Patch *other = new Patch(Qt::darkBlue, view->getQtWidget());

    Scene()
    {
        pointNowhere();
        view->getQtWidget()->setAttribute(Qt::WA_NativeWindow);
        view->getQtWidget()->setAttribute(Qt::WA_DontCreateNativeAncestors);
        window.setGeometry(200, 150, 700, 500);
        edit->setGeometry(10, 10, 200, 30);
        view->getQtWidget()->setGeometry(0, 50, 700, 450);
        host->setGeometry(60, 180, 50, 40);
        other->setGeometry(60, 300, 50, 40);
        window.show();
    }

    bool isActive()
    {
        edit->setFocus();
        return QTest::qWaitForWindowActive(&window) && QTest::qWaitForWindowExposed(&window);
    }

    TooltipObject *addTooltip(QWidget *to, QWidget *content, int dismissTime = 0) const
    {
        auto *const tooltip = new TooltipObject(Group, to);
        tooltip->SetTooltipControl(content, true);
        tooltip->SetTooltipType(ETooltipType::TooltipRight);
        tooltip->SetCustomTooltipDismissTime(dismissTime);
        tooltip->AttachTo(to);
        return tooltip;
    }
};

QWidget *makeContent(const QColor &color = Qt::green)
{
    auto *const content = new Patch(color);
    content->setFixedSize(100, 40);
    return content;
}

bool isSeen(const QWidget *content, const QColor &color = Qt::green)
{
    return colourOnScreen(content->mapToGlobal(content->rect().center())) == color;
}

} // namespace

class tst_TooltipDesktop : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void comesWithThePointerAndGoesWithIt();
    void takesNoFocusWhenItComes();
    void aClickOnItTakesNoFocus();
    void aPressOnTheHostTakesItDown();
    void oneOfAGroupIsSeenAtATime();
    void staysWhileItIsPointedAt();
    void goesWithTheMinimisedWindow();
    void followsItsWindow();
    void showsOnRequestWithoutFocus();
    void theIconOfACardOpensIt();
};

void tst_TooltipDesktop::comesWithThePointerAndGoesWithIt()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent());
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible());
    QTRY_VERIFY(isSeen(tooltip->TooltipControl()));
    const ArrowedWindow *const frame = tooltip->GetArrowedWindow();
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()),
                 scene.host->mapToGlobal(QPoint(49 + 5, 19)));

    const QPoint centre = frame->mapToGlobal(frame->rect().center());
    QVERIFY(pointNowhere());
    QTRY_VERIFY(!tooltip->IsVisible());
    QTRY_VERIFY(colourOnScreen(centre) != QColor(Qt::green));
}

void tst_TooltipDesktop::takesNoFocusWhenItComes()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent());
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible() && isSeen(tooltip->TooltipControl()));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
    QVERIFY(scene.window.isActiveWindow());
    QVERIFY(scene.edit->hasFocus());
}

void tst_TooltipDesktop::aClickOnItTakesNoFocus()
{
    Scene scene;
    QVERIFY(scene.isActive());
    TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent(), 100'000);
    tooltip->SetClickToDismissTooltip(false);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible() && isSeen(tooltip->TooltipControl()));
    QVERIFY(pointAt(*tooltip->TooltipControl()));
    QVERIFY(clickAsUser(1));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
    QVERIFY(scene.window.isActiveWindow());
    QVERIFY(tooltip->IsVisible());

    // Elsewhere, or it would be the second half of a double click.
    tooltip->SetClickToDismissTooltip(true);
    const QWidget *const content = tooltip->TooltipControl();
    QVERIFY(pointAsUser(content->mapToGlobal(QPoint(15, 10))));
    QVERIFY(clickAsUser(1));
    QTRY_VERIFY(!tooltip->IsVisible());
    QVERIFY(scene.window.isActiveWindow());
}

void tst_TooltipDesktop::aPressOnTheHostTakesItDown()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent());
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible());
    QVERIFY(clickAsUser(1));
    QTRY_VERIFY(!tooltip->IsVisible());
}

void tst_TooltipDesktop::oneOfAGroupIsSeenAtATime()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const first = scene.addTooltip(scene.host, makeContent(), 100'000);
    const TooltipObject *const second =
        scene.addTooltip(scene.other, makeContent(Qt::red), 100'000);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(first->IsVisible() && isSeen(first->TooltipControl()));
    QVERIFY(pointAt(*scene.other));
    QTRY_VERIFY(second->IsVisible() && isSeen(second->TooltipControl(), Qt::red));
    QVERIFY(!first->IsVisible());
    QTRY_VERIFY(!isSeen(first->TooltipControl()));
}

void tst_TooltipDesktop::staysWhileItIsPointedAt()
{
    Scene scene;
    QVERIFY(scene.isActive());
    TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent(), 500);
    tooltip->SetEnableHoverEvents(true);
    const auto *const timer = tooltip->findChildren<QTimer *>().at(1);
    QCOMPARE(timer->interval(), 500);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible() && isSeen(tooltip->TooltipControl()));
    QVERIFY(pointAt(*tooltip->TooltipControl()));
    QTRY_VERIFY(!timer->isActive());
    QVERIFY(tooltip->IsVisible());
    QVERIFY(pointNowhere());
    QTRY_VERIFY(!tooltip->IsVisible());
}

void tst_TooltipDesktop::goesWithTheMinimisedWindow()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent(), 100'000);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible() && isSeen(tooltip->TooltipControl()));
    scene.window.showMinimized();
    QTRY_VERIFY(!tooltip->IsVisible());
    QTRY_VERIFY(!isSeen(tooltip->TooltipControl()));
    QVERIFY(pointNowhere());
    scene.window.showNormal();
    QTRY_VERIFY(scene.window.windowHandle()->isExposed());
    QVERIFY(!tooltip->IsVisible());
    QVERIFY(!tooltip->GetArrowedWindow()->isVisible());
}

void tst_TooltipDesktop::followsItsWindow()
{
    Scene scene;
    QVERIFY(scene.isActive());
    const TooltipObject *const tooltip = scene.addTooltip(scene.host, makeContent(), 100'000);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible() && isSeen(tooltip->TooltipControl()));
    const ArrowedWindow *const frame = tooltip->GetArrowedWindow();
    const QPoint before = scene.host->mapToGlobal(QPoint(0, 0));
    scene.window.move(scene.window.pos() + QPoint(60, 40));
    QTRY_VERIFY(scene.host->mapToGlobal(QPoint(0, 0)) != before);
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()),
                 scene.host->mapToGlobal(QPoint(49 + 5, 19)));
}

void tst_TooltipDesktop::showsOnRequestWithoutFocus()
{
    Scene scene;
    QVERIFY(scene.isActive());
    TooltipWrapper tooltip(Group, scene.view->getQtWidget());
    tooltip.SetTooltipControl(makeContent(), true);
    const QPoint point = scene.view->getQtWidget()->mapToGlobal(QPoint(350, 250));
    tooltip.Show(point, true, TooltipWrapper::ETooltipShowUpType::ShowUpManualDismiss);
    QTRY_VERIFY(isSeen(tooltip.TooltipControl()));
    QVERIFY(typeAsUser(QStringLiteral("abc")));
    QTRY_COMPARE(scene.edit->text(), QStringLiteral("abc"));
    const ArrowedWindow *const frame = tooltip.GetArrowedWindow();
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()), point - QPoint(0, 3 + 10 + 1));
    tooltip.ForceHideTooltip();
    QTRY_VERIFY(!isSeen(tooltip.TooltipControl()));
}

void tst_TooltipDesktop::theIconOfACardOpensIt()
{
    Scene scene;
    QVERIFY(scene.isActive());
    auto *const card =
        static_cast<TooltipEx *>(TooltipExFactory::GetInstance().CreateExtendedTooltip(
            nullptr, QStringLiteral("Smooth"), QStringLiteral("Evens out the surface."),
            makeContent(), true, 250, ATooltipEx::EWidgetExVisibility::ExHidden,
            QStringLiteral("TooltipEx")));
    TooltipObject *const tooltip = scene.addTooltip(scene.host, card, 100'000);
    tooltip->SetClickToDismissTooltip(false);
    QVERIFY(pointAt(*scene.host));
    QTRY_VERIFY(tooltip->IsVisible());
    const ArrowedWindow *const frame = tooltip->GetArrowedWindow();
    const QPoint apex = scene.host->mapToGlobal(QPoint(49 + 5, 19));
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()), apex);
    QVERIFY(!card->IsAdvancedWidgetVisible());

    const auto *const icon = card->findChild<QWidget *>(QStringLiteral("info_label"));
    QVERIFY(pointAt(*icon));
    QTRY_VERIFY(card->IsAdvancedWidgetVisible());
    QTRY_VERIFY(isSeen(card->AdvancedWidgets()->currentWidget()));
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()), apex);

    const auto *const title = card->findChild<QWidget *>(QStringLiteral("title_label"));
    QVERIFY(pointAt(*title));
    QVERIFY(clickAsUser(1));
    QTRY_VERIFY(!card->IsAdvancedWidgetVisible());
    QTRY_COMPARE(frame->mapToGlobal(frame->GetArrowPoint()), apex);
    QVERIFY(tooltip->IsVisible());
    QVERIFY(scene.window.isActiveWindow());
}

LUMO_TEST_MAIN(tst_TooltipDesktop)
#include "tst_tooltipdesktop.moc"
