// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// Where a flyout stands, and what stands beside it.

#include <ui_base/FlyoutBase>
#include <ui_base/InfoDialog>

#include "flyoutparts.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <QDialog>
#include <QLabel>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolButton>

#include <memory>

using namespace Vela::UiBase;
using namespace Lumo::Test;

namespace {

/// Never made: names what the dialog around a flyout may call.
class Inside : public FlyoutBase
{
public:
    using FlyoutBase::GetCloseButton;
    using FlyoutBase::GetResetButton;
    using FlyoutBase::GetTitleLabel;
    using FlyoutBase::GetTitleRegionForMoving;
};

QList<QWidget *> subWidgets(const QObject *object)
{
    QList<QWidget *> result;
    const QVariantList list = object->property("sub_widgets").toList();
    for (const QVariant &entry : list)
        result << entry.value<QWidget *>();
    return result;
}

std::unique_ptr<InfoDialog> makeInfoDialog(QWidget *parent = nullptr)
{
    auto dialog = std::make_unique<InfoDialog>(parent);
    auto *const stack = new QStackedWidget;
    auto *const page = new QWidget;
    page->setProperty("widget_type", QVariant::fromValue(ATooltipEx::EWidgetType::Custom));
    page->setFixedHeight(40);
    stack->addWidget(page);
    dialog->SetParams({}, {}, stack, true, 200, ATooltipEx::EWidgetExVisibility::ExHidden);
    return dialog;
}

} // namespace

class FlyoutBasePlacesTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aSubWidgetIsListed();
    void theListHoldsOnlyTheLastAndWhatItCarries();
    void aSubWidgetThatListsItselfIsNotWritten();
    void removingAnOrdinarySubWidgetEmptiesTheList();
    void aSubWidgetThatDiesLeavesTheList();

    void theInfoButtonTogglesItsWidget();
    void theInfoButtonGetsItsRoom();
    void anInfoWidgetThatDiesIsForgotten();
    void theInfoDialogIsHeardOnce();
    void anotherInfoDialogReplacesTheFirst();
    void hidingHidesTheInfoWidget();
    void theInfoWidgetStandsBeneath();
    void boundsMoveAndFitTheInfoDialog();

    void opensBesideTheReferencePoint_data();
    void opensBesideTheReferencePoint();
    void flipsAtTheVeryEdge();
    void aFlyoutWithoutParentMovesItself();
    void theParentIsTheReferenceByDefault();
    void aParentDialogMovesOnTheScreen();
    void aReferenceThatDiesIsNotUsed();

    void theTitleRegionEndsAtTheFirstButton();
    void theTitleRegionIsMirrored();
};

void FlyoutBasePlacesTest::aSubWidgetIsListed()
{
    const Flyout flyout = makeFlyout();
    QWidget side;
    flyout->AddSubWidget(&side, EDirection::Right);
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {&side});
    QCOMPARE(side.property("direction_to").value<EDirection>(), EDirection::Right);
}

void FlyoutBasePlacesTest::theListHoldsOnlyTheLastAndWhatItCarries()
{
    const Flyout flyout = makeFlyout();
    QWidget first;
    QWidget second;
    QWidget carried;
    flyout->AddSubWidget(&first, EDirection::Left);
    second.setProperty("sub_widgets", QVariantList {QVariant::fromValue(&carried)});
    flyout->AddSubWidget(&second, EDirection::Right);
    QCOMPARE(subWidgets(flyout.get()), (QList<QWidget *> {&carried, &second}));
    flyout->setProperty("sub_widgets", {});
}

void FlyoutBasePlacesTest::aSubWidgetThatListsItselfIsNotWritten()
{
    const Flyout flyout = makeFlyout();
    QWidget first;
    QWidget second;
    second.setProperty("sub_widgets", QVariantList {QVariant::fromValue(&second)});
    flyout->AddSubWidget(&first, EDirection::Left);
    flyout->AddSubWidget(&second, EDirection::Top);
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {&first});
    QCOMPARE(second.property("direction_to").value<EDirection>(), EDirection::Top);
    flyout->RemoveSubWidget(&second);
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {&first});
}

void FlyoutBasePlacesTest::removingAnOrdinarySubWidgetEmptiesTheList()
{
    const Flyout flyout = makeFlyout();
    QWidget side;
    QWidget other;
    flyout->AddSubWidget(&side, EDirection::Right);
    flyout->RemoveSubWidget(&other);
    QVERIFY(subWidgets(flyout.get()).isEmpty());
}

void FlyoutBasePlacesTest::aSubWidgetThatDiesLeavesTheList()
{
    const Flyout flyout = makeFlyout();
    auto side = std::make_unique<QWidget>();
    auto carried = std::make_unique<QWidget>();
    side->setProperty("sub_widgets", QVariantList {QVariant::fromValue(carried.get())});
    flyout->AddSubWidget(side.get(), EDirection::Right);
    carried.reset();
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {side.get()});
    side.reset();
    QVERIFY(subWidgets(flyout.get()).isEmpty());
    flyout->AddSubWidget(new QWidget(flyout.get()), EDirection::Right);
}

void FlyoutBasePlacesTest::theInfoButtonTogglesItsWidget()
{
    QWidget info;
    info.show();
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, &info);
    flyout->show();
    QVERIFY(!info.isVisible());
    QCOMPARE(flyout->InfoDialog(), &info);
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {&info});
    QCOMPARE(info.property("direction_to").value<EDirection>(), EDirection::Bottom);
    click(flyout, "info_button");
    QVERIFY(info.isVisible());
    click(flyout, "info_button");
    QVERIFY(!info.isVisible());
    flyout->EnableInfoButton(false, &info);
    QVERIFY(!part(flyout, "info_button")->isVisible());
}

void FlyoutBasePlacesTest::theInfoButtonGetsItsRoom()
{
    const Flyout flyout = makeFlyout();
    flyout->SetTitle(QString(100, QLatin1Char('m')));
    flyout->show();
    const int width = flyout->width();
    QWidget info;
    flyout->EnableInfoButton(true, &info);
    QCOMPARE(flyout->width(), width + 20 + 6);
}

void FlyoutBasePlacesTest::anInfoWidgetThatDiesIsForgotten()
{
    const Flyout flyout = makeFlyout();
    auto info = std::make_unique<QWidget>();
    flyout->EnableInfoButton(true, info.get());
    flyout->show();
    info.reset();
    QVERIFY(!flyout->InfoDialog());
    click(flyout, "info_button");
    flyout->SetInfoWidgetPos();
    flyout->hide();
    QVERIFY(subWidgets(flyout.get()).isEmpty());
}

void FlyoutBasePlacesTest::theInfoDialogIsHeardOnce()
{
    const auto dialog = makeInfoDialog();
    const Flyout flyout = makeFlyout();
    QSignalSpy told(flyout.get(), &FlyoutBase::SubWidgetVisibilityChanged);
    flyout->EnableInfoButton(true, dialog.get());
    flyout->EnableInfoButton(true, dialog.get());
    flyout->show();
    dialog->show();
    dialog->hide();
    QCOMPARE(told.count(), 2);
    QCOMPARE(told.at(0).at(0).toBool(), true);
    QCOMPARE(told.at(1).at(0).toBool(), false);
    flyout->EnableInfoButton(false, dialog.get());
    dialog->show();
    QCOMPARE(told.count(), 2);
}

void FlyoutBasePlacesTest::anotherInfoDialogReplacesTheFirst()
{
    const auto first = makeInfoDialog();
    const auto second = makeInfoDialog();
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, first.get());
    flyout->EnableInfoButton(true, second.get());
    QSignalSpy told(flyout.get(), &FlyoutBase::SubWidgetVisibilityChanged);
    first->show();
    QCOMPARE(told.count(), 0);
    second->show();
    QCOMPARE(told.count(), 1);
    QCOMPARE(flyout->InfoDialog(), second.get());
}

void FlyoutBasePlacesTest::hidingHidesTheInfoWidget()
{
    QWidget info;
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, &info);
    flyout->show();
    info.show();
    flyout->hide();
    QVERIFY(!info.isVisible());
}

void FlyoutBasePlacesTest::theInfoWidgetStandsBeneath()
{
    QWidget window;
    window.setGeometry(100, 50, 600, 400);
    window.show();
    QWidget info(&window);
    QWidget free;
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    flyout->move(30, 20);
    flyout->EnableInfoButton(true, &info);
    flyout->SetInfoWidgetPos();
    const QPoint corner = flyout->geometry().bottomLeft();
    QCOMPARE(info.pos(), corner + QPoint(0, 5));
    flyout->EnableInfoButton(true, &free);
    flyout->SetInfoWidgetPos();
    QCOMPARE(free.pos(), window.mapToGlobal(corner) + QPoint(0, 5));
}

void FlyoutBasePlacesTest::boundsMoveAndFitTheInfoDialog()
{
    QWidget window;
    const auto dialog = makeInfoDialog(&window);
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, dialog.get());
    flyout->SetBounds(QRect(10, 20, 300, 200), QRect(15, 5, 260, 190));
    QCOMPARE(dialog->pos(), QPoint(10 + 15, 219 + 5));
    dialog->show();
    window.show();
    QCOMPARE(dialog->width(), 260);
    QWidget other(&window);
    flyout->EnableInfoButton(true, &other);
    const QPoint before = other.pos();
    flyout->SetBounds(QRect(10, 20, 300, 200), QRect(15, 5, 260, 190));
    QCOMPARE(other.pos(), before);
}

void FlyoutBasePlacesTest::opensBesideTheReferencePoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("left");
    QTest::addColumn<bool>("above");
    QTest::newRow("room on both sides") << QPoint(100, 100) << false << false;
    QTest::newRow("near the right edge") << QPoint(780, 100) << true << false;
    QTest::newRow("near the bottom edge") << QPoint(100, 580) << false << true;
    QTest::newRow("near the corner") << QPoint(780, 580) << true << true;
}

void FlyoutBasePlacesTest::opensBesideTheReferencePoint()
{
    QFETCH(QPoint, point);
    QFETCH(bool, left);
    QFETCH(bool, above);
    QWidget window;
    window.setGeometry(40, 30, 800, 600);
    window.show();
    QWidget holder(&window);
    const Flyout flyout = makeFlyout({}, nullptr, &holder);
    flyout->SetReferencePoint(window.mapToGlobal(point), &window, QPoint(7, 9));
    QPoint place;
    QVERIFY(flyout->GetPositionOnReferencePoint(place));
    QCOMPARE(place.x(), left ? point.x() - 7 - flyout->width() : point.x() + 7);
    QCOMPARE(place.y(), above ? point.y() - 9 - flyout->height() : point.y() + 9);
    flyout->show();
    holder.show();
    QCOMPARE(holder.pos(), place);
}

void FlyoutBasePlacesTest::flipsAtTheVeryEdge()
{
    QWidget window;
    window.resize(800, 600);
    const Flyout flyout = makeFlyout();
    const QPoint last(800 - flyout->width(), 600 - flyout->height());
    const auto placeFor = [&](const QPoint &point) {
        QPoint place;
        flyout->SetReferencePoint(window.mapToGlobal(point), &window, QPoint());
        flyout->GetPositionOnReferencePoint(place);
        return place;
    };
    QCOMPARE(placeFor(last - QPoint(1, 1)), last - QPoint(1, 1));
    QCOMPARE(placeFor(last - QPoint(0, 1)), QPoint(last.x() - flyout->width(), last.y() - 1));
    QCOMPARE(placeFor(last - QPoint(1, 0)), QPoint(last.x() - 1, last.y() - flyout->height()));
}

void FlyoutBasePlacesTest::aFlyoutWithoutParentMovesItself()
{
    QWidget window;
    window.setGeometry(0, 0, 700, 500);
    window.show();
    const Flyout flyout = makeFlyout();
    flyout->SetReferencePoint(window.mapToGlobal(QPoint(50, 60)), &window, QPoint(5, 5));
    flyout->show();
    QCOMPARE(flyout->pos(), QPoint(55, 65));
}

void FlyoutBasePlacesTest::theParentIsTheReferenceByDefault()
{
    QWidget window;
    window.setGeometry(40, 30, 700, 500);
    const Flyout flyout = makeFlyout({}, nullptr, &window);
    flyout->SetReferencePoint(window.mapToGlobal(QPoint(50, 60)), nullptr, QPoint(5, 5));
    QPoint place;
    QVERIFY(flyout->GetPositionOnReferencePoint(place));
    QCOMPARE(place, QPoint(55, 65));
}

void FlyoutBasePlacesTest::aParentDialogMovesOnTheScreen()
{
    QWidget window;
    window.setGeometry(40, 30, 700, 500);
    window.show();
    QDialog dialog(&window, Qt::FramelessWindowHint);
    const Flyout flyout = makeFlyout({}, nullptr, &dialog);
    flyout->SetReferencePoint(window.mapToGlobal(QPoint(50, 60)), &window, QPoint(5, 5));
    flyout->show();
    dialog.show();
    QCOMPARE(dialog.pos(), window.mapToGlobal(QPoint(55, 65)));
}

void FlyoutBasePlacesTest::aReferenceThatDiesIsNotUsed()
{
    const Flyout flyout = makeFlyout();
    QPoint place(3, 4);
    QVERIFY(!flyout->GetPositionOnReferencePoint(place));
    auto window = std::make_unique<QWidget>();
    flyout->SetReferencePoint(QPoint(50, 60), window.get(), QPoint());
    window.reset();
    QVERIFY(!flyout->GetPositionOnReferencePoint(place));
    QCOMPARE(place, QPoint(3, 4));
    const QPoint before = flyout->pos();
    flyout->show();
    QCOMPARE(flyout->pos(), before);
    flyout->SetReferencePoint(QPoint(50, 60), nullptr, QPoint());
    QVERIFY(!flyout->GetPositionOnReferencePoint(place));
}

void FlyoutBasePlacesTest::theTitleRegionEndsAtTheFirstButton()
{
    const Flyout flyout = makeFlyout({true, true, true, true});
    flyout->show();
    const auto region = &Inside::GetTitleRegionForMoving;
    const QWidget *const title = (flyout.get()->*(&Inside::GetTitleLabel))();
    const QWidget *const reset = (flyout.get()->*(&Inside::GetResetButton))();
    const QWidget *const close = (flyout.get()->*(&Inside::GetCloseButton))();
    QCOMPARE(title, part(flyout, "title"));
    QCOMPARE((flyout.get()->*region)(),
             QRect(0, 0, reset->geometry().left(), title->geometry().bottom()));
    flyout->SetResetButtonVisible(false);
    flyout->layout()->activate();
    QCOMPARE((flyout.get()->*region)().width(), close->geometry().left());
    flyout->SetCloseButtonVisible(false);
    QCOMPARE((flyout.get()->*region)().width(), flyout->width());
}

void FlyoutBasePlacesTest::theTitleRegionIsMirrored()
{
    const Flyout flyout = makeFlyout();
    flyout->setLayoutDirection(Qt::RightToLeft);
    flyout->show();
    const QRect region = (flyout.get()->*(&Inside::GetTitleRegionForMoving))();
    QCOMPARE(region.right(), flyout->width() - 1);
    QCOMPARE(region.left(), part(flyout, "close_button")->geometry().right() + 1);
}

LUMO_TEST_MAIN(FlyoutBasePlacesTest)
#include "tst_flyoutbaseplaces.moc"
