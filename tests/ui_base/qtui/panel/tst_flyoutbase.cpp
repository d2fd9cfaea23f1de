// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ArrowedWindow>
#include <ui_base/FlyoutBase>
#include <ui_base/InfoDialog>
#include <ui_base/QtUiToolkit>

#include "support/failingnew.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/String>
#include <lumo_common_res/Styles>

#include <QDialog>
#include <QGraphicsDropShadowEffect>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>
#include <stdexcept>

using namespace Vela::UiBase;
using namespace Vela::Resource;

namespace {

/// Never made: names what the dialog around a flyout may call.
class Inside : public FlyoutBase
{
public:
    using FlyoutBase::GetCloseButton;
    using FlyoutBase::GetResetButton;
    using FlyoutBase::GetTitleLabel;
    using FlyoutBase::GetTitleRegionForMoving;
    using FlyoutBase::SetButtonVisible;
    using FlyoutBase::SetShadow;
};

struct SParts
{
    bool close = true;
    bool cancel = true;
    bool apply = true;
    bool reset = false;
};

QWidget *makePanel(int height = 60)
{
    auto *const panel = new QWidget;
    panel->setFixedSize(240, height);
    return panel;
}

using Flyout = std::unique_ptr<FlyoutBase>;

Flyout makeFlyout(const SParts &parts = {}, QWidget *advanced = nullptr, QWidget *parent = nullptr)
{
    return Flyout(QtUiToolkit::Instance().CreateFlyout(QStringLiteral("Smooth"), makePanel(),
                                                       advanced, parts.close, parts.cancel,
                                                       parts.apply, parts.reset, parent));
}

Flyout makeInfoFlyout(const QString &info, QWidget *main, QWidget *advanced = nullptr)
{
    return Flyout(QtUiToolkit::Instance().CreateFlyout(nullptr, QStringLiteral("Smooth"), main,
                                                       info, true, true, true, true, advanced));
}

template<typename Child = QWidget>
Child *part(const Flyout &flyout, const char *name)
{
    return flyout->findChild<Child *>(QLatin1String(name));
}

QVBoxLayout *column(const Flyout &flyout)
{
    return part<QVBoxLayout>(flyout, "mainLayout");
}

QLayoutItem *itemAt(const QLayout *layout, int index)
{
    return layout ? layout->itemAt(index) : nullptr;
}

/// The height of the spacer at @p index of the column; -1 when there is none.
int spacerHeight(const Flyout &flyout, int index)
{
    QLayoutItem *const item = itemAt(column(flyout), index);
    return item && item->spacerItem() ? item->sizeHint().height() : -1;
}

void click(const Flyout &flyout, const char *name)
{
    auto *const button = part<QAbstractButton>(flyout, name);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

bool isMarked(const QObject *object)
{
    return object->property(String::WIDGET_PROPERTY_ISFLYOUT.latin1()).toBool();
}

/// What an icon of 16 by 16 draws on the screen.
QImage drawn(const QIcon &icon)
{
    const qreal ratio = qApp->devicePixelRatio();
    QImage image(QSize(16, 16) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, QRect(0, 0, 16, 16));
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

QImage pixelsOf(const QString &path)
{
    QImage image = QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(1);
    return image;
}

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

Q_DECLARE_METATYPE(QMargins)

class FlyoutBaseTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void aNullMainPanelThrowsAndTakesNothing();
    void aFailingAllocationGivesNull();
    void theColumnIsAsTold();
    void theTitleRowIsAsTold();
    void rowsHaveTheirMargins_data();
    void rowsHaveTheirMargins();
    void theButtonRowIsAsTold();
    void theStripIsAsTold();
    void theStyleSheetHasItsRules_data();
    void theStyleSheetHasItsRules();
    void theDarkPaletteReachesTheForm();
    void picturesHaveTheResolutionOfTheScreen();

    void ownsBothPanels();
    void panelsThatDieAreForgotten();
    void theSamePanelTwiceIsTheMainPanel();
    void onlyTheFirstFormMarksItselfAlone();
    void theStripShowsForAnInfoText();

    void titleIsLabelAndWindowTitle();
    void flagsOfButtonsHoldWhileHidden();
    void buttonsCarryAShadowWhileShown();
    void withoutButtonsTheirRowLeavesNoGap();
    void buttonsThatComeBackRestoreTheSize();
    void fittingRestoresTheMargins();
    void textsOfButtonsCanBeReplaced();

    void theAdvancedPanelBeginsFolded();
    void openingTheAdvancedPanelRestoresTheSpacers();
    void openingWithoutButtonsKeepsLineAndSpacerAway();
    void closingTheAdvancedPanelRestoresTheSize();
    void resizingIsTold();
    void aTallWindowIsNotCutOff();
    void aChangeWithinAResizeIsMadeUpFor();
    void theFrameFollowsTheFlyout();

    void closingAHiddenFlyoutIsSilent();
    void closeHidesThenTells();
    void cancelHidesThenTells();
    void resetAndApplyAreTold();
    void escapeDoesNotClose();
    void aListenerMayDeleteTheFlyout();

    void busyModeDisablesTheButtons();
    void busyModeLeavesHiddenButtonsAlone();
    void inToggleModeApplyCancelsWhileBusy();
    void busyTwiceKeepsTheText();
    void toggleModeHidesTheCancelButtonEitherWay();

    void aSubWidgetIsListed();
    void theListHoldsOnlyTheLastAndWhatItCarries();
    void aSubWidgetThatListsItselfIsNotWritten();
    void removingAnOrdinarySubWidgetEmptiesTheList();
    void aSubWidgetThatDiesLeavesTheList();

    void theInfoButtonTogglesItsWidget();
    void theInfoDialogIsHeardOnce();
    void anotherInfoDialogReplacesTheFirst();
    void hidingHidesTheInfoWidget();
    void theInfoWidgetStandsBeneath();
    void boundsMoveAndFitTheInfoDialog();

    void opensBesideTheReferencePoint_data();
    void opensBesideTheReferencePoint();
    void aParentDialogMovesOnTheScreen();
    void aReferenceThatDiesIsNotUsed();

    void theTitleRegionEndsAtTheFirstButton();
    void theTitleRegionIsMirrored();
    void findsItemsOfTheColumn();
    void nullIsIgnored();
};

void FlyoutBaseTest::aNullMainPanelThrowsAndTakesNothing()
{
    QWidget parent;
    const std::unique_ptr<QWidget> advanced(makePanel());
    QtUiToolkit &toolkit = QtUiToolkit::Instance();
    for (const bool isFirst : {true, false}) {
        try {
            if (isFirst)
                toolkit.CreateFlyout({}, nullptr, advanced.get(), true, true, true, true, &parent);
            else
                toolkit.CreateFlyout(&parent, {}, nullptr, {}, true, true, true, true,
                                     advanced.get());
            QFAIL("no exception");
        } catch (const std::runtime_error &error) {
            QCOMPARE(error.what(), "main panel cannot be null.");
        }
        QVERIFY(parent.children().isEmpty());
        QVERIFY(!advanced->parent());
    }
}

void FlyoutBaseTest::aFailingAllocationGivesNull()
{
    const std::unique_ptr<QWidget> panel(makePanel());
    QtUiToolkit &toolkit = QtUiToolkit::Instance();
    for (const bool isFirst : {true, false}) {
        Lumo::Test::FailingNew fault(0);
        const FlyoutBase *const flyout = isFirst
            ? toolkit.CreateFlyout({}, panel.get(), nullptr, true, true, true, true, nullptr)
            : toolkit.CreateFlyout(nullptr, {}, panel.get(), {}, true, true, true, true, nullptr);
        fault.disarm();
        QVERIFY(fault.happened());
        QVERIFY(!flyout);
        QVERIFY(!panel->parent());
    }
}

void FlyoutBaseTest::theColumnIsAsTold()
{
    auto *const advanced = makePanel();
    const Flyout flyout = makeFlyout({}, advanced);
    QCOMPARE(flyout->objectName(), QStringLiteral("FlyoutBase"));
    const auto *const grid = qobject_cast<QGridLayout *>(flyout->layout());
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(grid->spacing(), 0);
    QCOMPARE(grid->itemAtPosition(1, 0)->layout(), column(flyout));
    QCOMPARE(column(flyout)->spacing(), 0);
    QCOMPARE(column(flyout)->contentsMargins(), QMargins(0, 8, 0, 0));

    flyout->show();
    click(flyout, "advanced_button");
    const QList<QVariant> told {"titleLayout",
                                7,
                                "horizontalLayout_4",
                                5,
                                "mainPanelHolderLayout",
                                6,
                                "advancedLayout",
                                7,
                                "horizontalLayout_3",
                                5,
                                advanced->objectName(),
                                7,
                                "horizontalLayout_2",
                                8,
                                "buttonLayout",
                                5,
                                "ipanel"};
    QCOMPARE(column(flyout)->count(), told.size());
    QCOMPARE(column(flyout)->itemAt(10)->widget(), advanced);
    for (int i = 0; i < told.size(); ++i) {
        QLayoutItem *const item = column(flyout)->itemAt(i);
        if (item->spacerItem())
            QCOMPARE(item->sizeHint(), QSize(20, told.at(i).toInt()));
        else if (item->layout())
            QCOMPARE(item->layout()->objectName(), told.at(i).toString());
        else
            QCOMPARE(item->widget()->objectName(), told.at(i).toString());
    }
}

void FlyoutBaseTest::theTitleRowIsAsTold()
{
    const Flyout flyout = makeFlyout();
    const auto *const row = part<QHBoxLayout>(flyout, "titleLayout");
    QCOMPARE(row->spacing(), 6);
    QCOMPARE(row->count(), 5);
    QCOMPARE(row->stretch(0), 1);
    const auto *const title = part<QLabel>(flyout, "title");
    QCOMPARE(row->itemAt(0)->widget(), title);
    for (const char *rule : {"Arial", "16px", "#404040"})
        QVERIFY2(title->styleSheet().contains(QLatin1String(rule)), rule);
    const auto *const info = part<QToolButton>(flyout, "info_button");
    QCOMPARE(row->itemAt(1)->widget(), info);
    QCOMPARE(info->minimumSize(), QSize(20, 20));
    QCOMPARE(info->maximumSize(), QSize(20, 20));
    QVERIFY(!info->icon().isNull());
    QVERIFY(info->toolTip().isEmpty());
    QVERIFY(info->isHidden());
    QCOMPARE(row->itemAt(2)->spacerItem()->sizeHint(), QSize(40, 20));
    QVERIFY(row->itemAt(2)->expandingDirections() & Qt::Horizontal);
    const auto *const reset = part<QToolButton>(flyout, "reset_button");
    QCOMPARE(row->itemAt(3)->widget(), reset);
    QCOMPARE(reset->minimumSize(), QSize(20, 20));
    QCOMPARE(reset->toolTip(), QStringLiteral("Reset"));
    const auto *const close = part<QToolButton>(flyout, "close_button");
    QCOMPARE(row->itemAt(4)->widget(), close);
    QCOMPARE(close->minimumSize(), QSize(20, 20));
    QCOMPARE(close->toolTip(), QStringLiteral("Close the flyout"));
    QCOMPARE(close->styleSheet(),
             Styles::Instance().ToolButtonSystemClose().arg(
                 QStringLiteral(":/resources/images/sys_close_18.png"),
                 QStringLiteral(":/resources/images/sys_close_hover_18.png")));
    const Flyout withReset = makeFlyout({true, true, true, true});
    QCOMPARE(part(withReset, "reset_button")->styleSheet(),
             Styles::Instance().ToolButtonSystem().arg(
                 QStringLiteral(":/resources/images/sys_reset.png"),
                 QStringLiteral(":/resources/images/sys_reset_hover.png")));
}

void FlyoutBaseTest::rowsHaveTheirMargins_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<QString>("first");
    QTest::newRow("titleLayout") << QMargins(9, 0, 9, 0) << "title";
    QTest::newRow("horizontalLayout_4") << QMargins(9, 0, 9, 0) << "belowTitleLine";
    QTest::newRow("mainPanelHolderLayout") << QMargins(7, 0, 7, 0) << "";
    QTest::newRow("advancedLayout") << QMargins(9, 0, 9, 0) << "advanced_button";
    QTest::newRow("horizontalLayout_3") << QMargins(9, 0, 9, 0) << "advancedLine";
    QTest::newRow("horizontalLayout_2") << QMargins(9, 0, 9, 0) << "aboveButtonLine";
    QTest::newRow("buttonLayout") << QMargins(9, 0, 9, 0) << "cancel_button";
    QTest::newRow("gridLayout_2") << QMargins(0, 0, 0, 0) << "";
    QTest::newRow("horizontalLayout") << QMargins(9, 0, 9, 0) << "iline_left";
}

void FlyoutBaseTest::rowsHaveTheirMargins()
{
    QFETCH(QMargins, margins);
    QFETCH(QString, first);
    const Flyout flyout = makeFlyout();
    const auto *const row = part<QLayout>(flyout, QTest::currentDataTag());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), margins);
    if (first.isEmpty())
        return;
    const QWidget *const widget = row->itemAt(0)->widget();
    QCOMPARE(widget->objectName(), first);
    if (const auto *const line = qobject_cast<const QFrame *>(widget); first.contains("ine"))
        QCOMPARE(line->frameShape(), QFrame::HLine);
}

void FlyoutBaseTest::theButtonRowIsAsTold()
{
    const Flyout flyout = makeFlyout();
    const auto *const advanced = part<QToolButton>(flyout, "advanced_button");
    QCOMPARE(advanced->iconSize(), QSize(16, 16));
    QCOMPARE(advanced->text(), QStringLiteral("..."));
    QCOMPARE(advanced->toolTip(), QStringLiteral("Show/Hide advanced settings"));
    QCOMPARE(part<QLabel>(flyout, "advancedLabel")->text(), QStringLiteral("Advanced"));
    const auto *const row = part<QHBoxLayout>(flyout, "buttonLayout");
    QCOMPARE(row->spacing(), 6);
    const auto *const cancel = part<QPushButton>(flyout, "cancel_button");
    QVERIFY(cancel->isFlat());
    QCOMPARE(cancel->text(), QStringLiteral("Cancel"));
    QCOMPARE(cancel->toolTip(), QStringLiteral("Cancel the changes"));
    QVERIFY(!cancel->icon().isNull());
    const auto *const apply = part<QPushButton>(flyout, "apply_button");
    QCOMPARE(row->itemAt(1)->widget(), apply);
    QVERIFY(apply->isFlat());
    QCOMPARE(apply->text(), QStringLiteral("Apply"));
    QCOMPARE(apply->toolTip(), QStringLiteral("Apply the changes"));
    QVERIFY(apply->icon().isNull());
}

void FlyoutBaseTest::theStripIsAsTold()
{
    const Flyout flyout = makeFlyout();
    const auto *const strip = part<QFrame>(flyout, "ipanel");
    QCOMPARE(strip->frameShape(), QFrame::StyledPanel);
    QVERIFY(strip->isHidden());
    QCOMPARE(part<QLayout>(flyout, "gridLayout_2")->parent(), strip);
    QCOMPARE(part<QGridLayout>(flyout, "gridLayout_2")->spacing(), 0);
    const auto *const row = part<QHBoxLayout>(flyout, "horizontalLayout");
    QCOMPARE(row->spacing(), 0);
    const auto *const button = part<QToolButton>(flyout, "ibutton");
    QCOMPARE(row->itemAt(1)->widget(), button);
    QCOMPARE(button->iconSize(), QSize(24, 24));
    QCOMPARE(button->toolTip(), QStringLiteral("Information"));
    QCOMPARE(row->itemAt(2)->widget(), part(flyout, "iline_right"));
}

void FlyoutBaseTest::theStyleSheetHasItsRules_data()
{
    QTest::addColumn<QString>("selector");
    QTest::addColumn<QStringList>("rules");
    QTest::newRow("disabled") << "QWidget:disabled"
                              << QStringList {"color: #808080", "background-color: #F0F0F0"};
    QTest::newRow("labels") << "QLabel"
                            << QStringList {"'Arial'", "12px", "color: #404040", "border: none"};
    QTest::newRow("lines") << "QLineEdit"
                           << QStringList {"'Arial'", "12px", "color: #404040",
                                           "border: 1px solid #606060"};
    QTest::newRow("buttons") << "QPushButton" << QStringList {"background-color: #5383B5",
                                                              "color: #FFFFFF",
                                                              "border: none",
                                                              "height: 38px",
                                                              "'Arial'",
                                                              "14px"};
    QTest::newRow("hover") << "QPushButton:hover" << QStringList {"background-color: #2965A3"};
    QTest::newRow("disabled buttons")
        << "QPushButton:disabled" << QStringList {"background-color: #F0F0F0", "color: #C0C0C0"};
}

void FlyoutBaseTest::theStyleSheetHasItsRules()
{
    QFETCH(QString, selector);
    QFETCH(QStringList, rules);
    const Flyout flyout = makeFlyout();
    const QString sheet = flyout->styleSheet();
    const int begin = sheet.indexOf(selector + " {");
    QVERIFY(begin >= 0);
    const QString block = sheet.mid(begin, sheet.indexOf('}', begin) - begin);
    for (const QString &rule : rules)
        QVERIFY2(block.contains(rule), qPrintable(rule));
    QVERIFY(part(flyout, "apply_button")->sizeHint().height() >= 38);
}

void FlyoutBaseTest::theDarkPaletteReachesTheForm()
{
    Styles::Instance().SetPalette(EPalette::Dark);
    const Flyout flyout = makeFlyout();
    Styles::Instance().SetPalette(EPalette::Light);
    QVERIFY(!flyout->styleSheet().contains(QLatin1String("#404040")));
    QVERIFY(!part(flyout, "title")->styleSheet().contains(QLatin1String("#404040")));
    QVERIFY(flyout->styleSheet().contains(QLatin1String("color: #FFFFFF")));
}

void FlyoutBaseTest::picturesHaveTheResolutionOfTheScreen()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    const QString suffix = qApp->devicePixelRatio() > 1 ? "@2x" : "";
    const QString file = QStringLiteral(":/resources/images/%1%2.png");
    const auto drawnBy = [&](const char *name) {
        return drawn(part<QAbstractButton>(flyout, name)->icon());
    };
    QCOMPARE(drawnBy("advanced_button"), pixelsOf(file.arg("sys_panel_expand", suffix)));
    QCOMPARE(drawnBy("cancel_button"), pixelsOf(file.arg("sys_issue_ignore", suffix)));
    flyout->show();
    click(flyout, "advanced_button");
    QCOMPARE(drawnBy("advanced_button"), pixelsOf(file.arg("sys_panel_collapse", suffix)));
}

void FlyoutBaseTest::ownsBothPanels()
{
    QPointer<QWidget> main = makePanel();
    QPointer<QWidget> advanced = makePanel();
    Flyout flyout = makeInfoFlyout({}, main, advanced);
    QCOMPARE(flyout->MainPanel(), main.data());
    QCOMPARE(flyout->AdvancedPanel(), advanced.data());
    QCOMPARE(itemAt(part<QLayout>(flyout, "mainPanelHolderLayout"), 0)->widget(), main.data());
    flyout.reset();
    QVERIFY(!main);
    QVERIFY(!advanced);
}

void FlyoutBaseTest::panelsThatDieAreForgotten()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    delete flyout->MainPanel();
    delete flyout->AdvancedPanel();
    QVERIFY(!flyout->MainPanel());
    QVERIFY(!flyout->AdvancedPanel());
    flyout->show();
    const QSize size = flyout->size();
    click(flyout, "advanced_button");
    QCOMPARE(flyout->size(), size);
}

void FlyoutBaseTest::theSamePanelTwiceIsTheMainPanel()
{
    auto *const panel = makePanel();
    const Flyout flyout = makeInfoFlyout({}, panel, panel);
    QCOMPARE(flyout->MainPanel(), panel);
    QVERIFY(!flyout->AdvancedPanel());
}

void FlyoutBaseTest::onlyTheFirstFormMarksItselfAlone()
{
    const Flyout first = makeFlyout();
    QVERIFY(isMarked(first.get()));
    QCOMPARE(first->focusPolicy(), Qt::WheelFocus);
    QVERIFY(!isMarked(first->MainPanel()));
    auto *const panel = makePanel();
    auto *const deep = new QWidget(new QWidget(panel));
    const Flyout second = makeInfoFlyout({}, panel);
    QVERIFY(isMarked(second.get()));
    QVERIFY(isMarked(panel));
    QVERIFY(isMarked(deep));
    QVERIFY(isMarked(part(second, "apply_button")));
    QVERIFY(second->focusPolicy() != Qt::WheelFocus);
}

void FlyoutBaseTest::theStripShowsForAnInfoText()
{
    const Flyout without = makeInfoFlyout({}, makePanel());
    const Flyout with = makeInfoFlyout(QStringLiteral("Runs on the selection"), makePanel());
    QVERIFY(part(without, "ipanel")->isHidden());
    QVERIFY(!part(with, "ipanel")->isHidden());
    QVERIFY(with->height() > without->height());
}

void FlyoutBaseTest::titleIsLabelAndWindowTitle()
{
    const Flyout flyout = makeFlyout();
    QCOMPARE(flyout->Title(), QStringLiteral("Smooth"));
    QCOMPARE(flyout->windowTitle(), QStringLiteral("Smooth"));
    flyout->SetTitle(QStringLiteral("Fill holes"));
    QCOMPARE(part<QLabel>(flyout, "title")->text(), QStringLiteral("Fill holes"));
    QCOMPARE(flyout->Title(), QStringLiteral("Fill holes"));
    QCOMPARE(flyout->windowTitle(), QStringLiteral("Fill holes"));
}

void FlyoutBaseTest::flagsOfButtonsHoldWhileHidden()
{
    const Flyout flyout = makeFlyout();
    QVERIFY(flyout->IsCloseButtonVisible());
    QVERIFY(!flyout->IsResetButtonVisible());
    QVERIFY(part(flyout, "reset_button")->isHidden());
    flyout->SetCloseButtonVisible(false);
    flyout->SetResetButtonVisible(true);
    QVERIFY(!flyout->IsCloseButtonVisible());
    QVERIFY(flyout->IsResetButtonVisible());
    QVERIFY(part(flyout, "close_button")->isHidden());
    QVERIFY(!part(flyout, "reset_button")->isHidden());
}

void FlyoutBaseTest::buttonsCarryAShadowWhileShown()
{
    const Flyout flyout = makeFlyout();
    for (const char *name : {"cancel_button", "apply_button"}) {
        const auto *const shadow =
            qobject_cast<QGraphicsDropShadowEffect *>(part(flyout, name)->graphicsEffect());
        QVERIFY(shadow);
        QVERIFY(shadow->isEnabled());
        QCOMPARE(shadow->blurRadius(), 5.0);
        QCOMPARE(shadow->offset(), QPointF(0, 0));
    }
    auto *const apply = part(flyout, "apply_button");
    const QGraphicsEffect *const effect = apply->graphicsEffect();
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(apply->graphicsEffect(), effect);
    flyout->SetApplyButtonVisible(false);
    QVERIFY(apply->isHidden());
    QVERIFY(!apply->graphicsEffect());
    flyout->SetApplyButtonVisible(true);
    QVERIFY(!apply->isHidden());
    QVERIFY(apply->graphicsEffect());
}

void FlyoutBaseTest::withoutButtonsTheirRowLeavesNoGap()
{
    const Flyout full = makeFlyout();
    const Flyout bare = makeFlyout({true, false, false, false});
    const Flyout one = makeFlyout({true, false, true, false});
    QVERIFY(part(bare, "advancedLine")->isHidden());
    QVERIFY(!part(one, "advancedLine")->isHidden());
    QCOMPARE(one->height(), full->height());
    const int row = part(full, "apply_button")->sizeHint().height();
    const int line = part(full, "advancedLine")->sizeHint().height();
    QCOMPARE(full->height() - bare->height(), 8 + row + 5 + line);
    QCOMPARE(bare->layout()->contentsMargins().bottom(), 0);
    bare->show();
    const QRect panel = bare->MainPanel()->geometry();
    QCOMPARE(bare->height(), panel.bottom() + 1 + 6);
}

void FlyoutBaseTest::buttonsThatComeBackRestoreTheSize()
{
    const Flyout flyout = makeFlyout();
    flyout->show();
    const QSize size = flyout->size();
    flyout->SetApplyButtonVisible(false);
    flyout->SetCancelButtonVisible(false);
    QVERIFY(flyout->height() < size.height());
    flyout->SetApplyButtonVisible(true);
    flyout->SetCancelButtonVisible(true);
    QCOMPARE(flyout->size(), size);
}

void FlyoutBaseTest::fittingRestoresTheMargins()
{
    const Flyout flyout = makeFlyout();
    flyout->layout()->setContentsMargins(1, 2, 3, 4);
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(flyout->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
}

void FlyoutBaseTest::textsOfButtonsCanBeReplaced()
{
    const Flyout flyout = makeFlyout();
    flyout->SetApplyButtonText(QStringLiteral("Run"));
    flyout->SetCancelButtonText(QStringLiteral("Stop"));
    flyout->SetApplyButtonEnabled(false);
    QCOMPARE(part<QPushButton>(flyout, "apply_button")->text(), QStringLiteral("Run"));
    QCOMPARE(part<QPushButton>(flyout, "cancel_button")->text(), QStringLiteral("Stop"));
    QVERIFY(!part(flyout, "apply_button")->isEnabled());
    flyout->SetApplyButtonEnabled(true);
    QVERIFY(part(flyout, "apply_button")->isEnabled());
}

void FlyoutBaseTest::theAdvancedPanelBeginsFolded()
{
    const Flyout with = makeFlyout({}, makePanel());
    QVERIFY(with->AdvancedPanel()->isHidden());
    QVERIFY(part(with, "aboveButtonLine")->isHidden());
    QCOMPARE(spacerHeight(with, 7), 7);
    QCOMPARE(spacerHeight(with, 9), 0);
    QCOMPARE(spacerHeight(with, 11), 0);
    const Flyout without = makeFlyout();
    QVERIFY(part(without, "advanced_button")->isHidden());
    QVERIFY(part(without, "advancedLabel")->isHidden());
    QCOMPARE(spacerHeight(without, 7), 0);
    QCOMPARE(with->height() - without->height(),
             7 + part(with, "advanced_button")->sizeHint().height());
}

void FlyoutBaseTest::openingTheAdvancedPanelRestoresTheSpacers()
{
    const Flyout flyout = makeFlyout({}, makePanel(50));
    flyout->show();
    const int folded = flyout->height();
    const qint64 expand = part<QToolButton>(flyout, "advanced_button")->icon().cacheKey();
    click(flyout, "advanced_button");
    QVERIFY(flyout->AdvancedPanel()->isVisible());
    QVERIFY(part(flyout, "aboveButtonLine")->isVisible());
    QVERIFY(part<QToolButton>(flyout, "advanced_button")->icon().cacheKey() != expand);
    QCOMPARE(spacerHeight(flyout, 9), 5);
    QCOMPARE(spacerHeight(flyout, 11), 7);
    const int line = part(flyout, "aboveButtonLine")->sizeHint().height();
    QCOMPARE(flyout->height() - folded, 5 + 50 + 7 + line);
}

void FlyoutBaseTest::openingWithoutButtonsKeepsLineAndSpacerAway()
{
    const Flyout flyout = makeFlyout({true, false, false, false}, makePanel(50));
    flyout->show();
    const int folded = flyout->height();
    click(flyout, "advanced_button");
    QVERIFY(flyout->AdvancedPanel()->isVisible());
    QVERIFY(!part(flyout, "aboveButtonLine")->isVisible());
    QCOMPARE(spacerHeight(flyout, 9), 5);
    QCOMPARE(spacerHeight(flyout, 11), 0);
    QCOMPARE(flyout->height() - folded, 5 + 50);
}

void FlyoutBaseTest::closingTheAdvancedPanelRestoresTheSize()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    const QSize folded = flyout->size();
    click(flyout, "advanced_button");
    click(flyout, "advanced_button");
    QVERIFY(!flyout->AdvancedPanel()->isVisible());
    QVERIFY(!part(flyout, "aboveButtonLine")->isVisible());
    QCOMPARE(flyout->size(), folded);
}

void FlyoutBaseTest::resizingIsTold()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    QSignalSpy resized(flyout.get(), &FlyoutBase::FlyoutResized);
    click(flyout, "advanced_button");
    QVERIFY(resized.count() >= 1);
    resized.clear();
    flyout->SetApplyButtonVisible(true);
    QCOMPARE(resized.count(), 0);
}

void FlyoutBaseTest::aTallWindowIsNotCutOff()
{
    auto *const panel = new QWidget;
    auto *const list = new QVBoxLayout(panel);
    for (int i = 0; i < 3; ++i) {
        auto *const spacer =
            new QSpacerItem(240, 600, QSizePolicy::Minimum, QSizePolicy::Preferred);
        list->addItem(spacer);
    }
    const Flyout flyout = makeInfoFlyout({}, panel);
    QVERIFY(flyout->height() > 1800);
    QCOMPARE(flyout->size(), flyout->sizeHint());
}

void FlyoutBaseTest::aChangeWithinAResizeIsMadeUpFor()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    flyout->show();
    int depth = 0;
    int deepest = 0;
    connect(flyout.get(), &FlyoutBase::FlyoutResized, flyout.get(), [&] {
        deepest = std::max(deepest, ++depth);
        flyout->SetApplyButtonVisible(false);
        flyout->SetCancelButtonVisible(false);
        --depth;
    });
    click(flyout, "advanced_button");
    QCOMPARE(deepest, 1);
    QCOMPARE(flyout->size(), flyout->sizeHint());
}

void FlyoutBaseTest::theFrameFollowsTheFlyout()
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    ArrowedWindow frame(&window);
    Flyout flyout = makeFlyout({}, makePanel());
    frame.AttachWidget(flyout.get());
    frame.SetArrow(EArrowPosition::Left, 10, false, 0, 90, true, 0);
    frame.show();
    const QSize folded = frame.size();
    const int panel = flyout->height();
    click(flyout, "advanced_button");
    QTRY_COMPARE(frame.height() - folded.height(), flyout->height() - panel);
    QVERIFY(flyout->height() > panel);
    flyout->CloseMe();
    QTRY_VERIFY(!frame.isVisible());
    frame.DetachWidget()->setParent(nullptr);
}

void FlyoutBaseTest::closingAHiddenFlyoutIsSilent()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->CloseMe();
    part<QToolButton>(flyout, "close_button")->click();
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::closeHidesThenTells()
{
    const Flyout flyout = makeFlyout();
    QList<bool> visible;
    connect(flyout.get(), &FlyoutBase::CloseFlyout, flyout.get(),
            [&] { visible << flyout->isVisible(); });
    flyout->show();
    click(flyout, "close_button");
    flyout->show();
    flyout->CloseMe();
    QCOMPARE(visible, (QList<bool> {false, false}));
}

void FlyoutBaseTest::cancelHidesThenTells()
{
    const Flyout flyout = makeFlyout();
    QList<bool> visible;
    connect(flyout.get(), &FlyoutBase::CancelChanges, flyout.get(),
            [&] { visible << flyout->isVisible(); });
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->show();
    click(flyout, "cancel_button");
    part<QPushButton>(flyout, "cancel_button")->click();
    QCOMPARE(visible, (QList<bool> {false, false}));
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::resetAndApplyAreTold()
{
    const Flyout flyout = makeFlyout({true, true, true, true});
    QSignalSpy reset(flyout.get(), &FlyoutBase::ResetValues);
    QSignalSpy applied(flyout.get(), &FlyoutBase::ApplyChanges);
    flyout->show();
    click(flyout, "reset_button");
    QCOMPARE(reset.count(), 1);
    click(flyout, "apply_button");
    QCOMPARE(applied.count(), 1);
    QVERIFY(flyout->isVisible());
}

void FlyoutBaseTest::escapeDoesNotClose()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy closed(flyout.get(), &FlyoutBase::CloseFlyout);
    flyout->show();
    QTest::keyClick(flyout.get(), Qt::Key_Escape);
    QVERIFY(flyout->isVisible());
    QCOMPARE(closed.count(), 0);
}

void FlyoutBaseTest::aListenerMayDeleteTheFlyout()
{
    for (const auto signal : {&FlyoutBase::CloseFlyout, &FlyoutBase::CancelChanges}) {
        QPointer<FlyoutBase> flyout = makeFlyout().release();
        connect(flyout.data(), signal, flyout.data(), [&] { delete flyout; });
        flyout->show();
        if (signal == &FlyoutBase::CloseFlyout)
            flyout->CloseMe();
        else
            QMetaObject::invokeMethod(flyout, "on_cancel_button_clicked");
        QVERIFY(!flyout);
    }
}

void FlyoutBaseTest::busyModeDisablesTheButtons()
{
    const Flyout flyout = makeFlyout();
    QSignalSpy entered(flyout.get(), &FlyoutBase::EnterBusyMode);
    QSignalSpy left(flyout.get(), &FlyoutBase::ExitBusyMode);
    flyout->show();
    flyout->OnEnterBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(!part(flyout, name)->isEnabled(), name);
    QCOMPARE(entered.count(), 1);
    QVERIFY(flyout->isVisible());
    flyout->OnExitBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(part(flyout, name)->isEnabled(), name);
    QCOMPARE(left.count(), 1);
}

void FlyoutBaseTest::busyModeLeavesHiddenButtonsAlone()
{
    const Flyout flyout = makeFlyout();
    flyout->OnEnterBusyMode();
    for (const char *name : {"close_button", "cancel_button", "apply_button"})
        QVERIFY2(part(flyout, name)->isEnabled(), name);
}

void FlyoutBaseTest::inToggleModeApplyCancelsWhileBusy()
{
    const Flyout flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    QSignalSpy cancelled(flyout.get(), &FlyoutBase::CancelChanges);
    QSignalSpy applied(flyout.get(), &FlyoutBase::ApplyChanges);
    const auto *const apply = part<QPushButton>(flyout, "apply_button");
    flyout->show();
    flyout->OnEnterBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Cancel"));
    QVERIFY(apply->isEnabled());
    click(flyout, "apply_button");
    QVERIFY(!apply->isEnabled());
    QCOMPARE(cancelled.count(), 1);
    QCOMPARE(applied.count(), 0);
    QVERIFY(flyout->isVisible());
    flyout->OnExitBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Apply"));
    QVERIFY(apply->isEnabled());
    click(flyout, "apply_button");
    QCOMPARE(applied.count(), 1);
}

void FlyoutBaseTest::busyTwiceKeepsTheText()
{
    const Flyout flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    flyout->show();
    flyout->OnEnterBusyMode();
    flyout->OnEnterBusyMode();
    flyout->OnExitBusyMode();
    const auto *const apply = part<QPushButton>(flyout, "apply_button");
    QCOMPARE(apply->text(), QStringLiteral("Apply"));
    flyout->SetApplyButtonText(QStringLiteral("Cancel"));
    flyout->OnExitBusyMode();
    QCOMPARE(apply->text(), QStringLiteral("Cancel"));
}

void FlyoutBaseTest::toggleModeHidesTheCancelButtonEitherWay()
{
    for (const bool enabled : {true, false}) {
        const Flyout flyout = makeFlyout();
        flyout->SetToggleApplyButtonEnabled(enabled);
        QVERIFY(part(flyout, "cancel_button")->isHidden());
        QVERIFY(!part(flyout, "apply_button")->isHidden());
    }
}

void FlyoutBaseTest::aSubWidgetIsListed()
{
    const Flyout flyout = makeFlyout();
    QWidget side;
    flyout->AddSubWidget(&side, EDirection::Right);
    QCOMPARE(subWidgets(flyout.get()), QList<QWidget *> {&side});
    QCOMPARE(side.property("direction_to").value<EDirection>(), EDirection::Right);
}

void FlyoutBaseTest::theListHoldsOnlyTheLastAndWhatItCarries()
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

void FlyoutBaseTest::aSubWidgetThatListsItselfIsNotWritten()
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

void FlyoutBaseTest::removingAnOrdinarySubWidgetEmptiesTheList()
{
    const Flyout flyout = makeFlyout();
    QWidget side;
    QWidget other;
    flyout->AddSubWidget(&side, EDirection::Right);
    flyout->RemoveSubWidget(&other);
    QVERIFY(subWidgets(flyout.get()).isEmpty());
}

void FlyoutBaseTest::aSubWidgetThatDiesLeavesTheList()
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

void FlyoutBaseTest::theInfoButtonTogglesItsWidget()
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

void FlyoutBaseTest::theInfoDialogIsHeardOnce()
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

void FlyoutBaseTest::anotherInfoDialogReplacesTheFirst()
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

void FlyoutBaseTest::hidingHidesTheInfoWidget()
{
    QWidget info;
    const Flyout flyout = makeFlyout();
    flyout->EnableInfoButton(true, &info);
    flyout->show();
    info.show();
    flyout->hide();
    QVERIFY(!info.isVisible());
}

void FlyoutBaseTest::theInfoWidgetStandsBeneath()
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

void FlyoutBaseTest::boundsMoveAndFitTheInfoDialog()
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

void FlyoutBaseTest::opensBesideTheReferencePoint_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<bool>("left");
    QTest::addColumn<bool>("above");
    QTest::newRow("room on both sides") << QPoint(100, 100) << false << false;
    QTest::newRow("near the right edge") << QPoint(780, 100) << true << false;
    QTest::newRow("near the bottom edge") << QPoint(100, 580) << false << true;
    QTest::newRow("near the corner") << QPoint(780, 580) << true << true;
}

void FlyoutBaseTest::opensBesideTheReferencePoint()
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

void FlyoutBaseTest::aParentDialogMovesOnTheScreen()
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

void FlyoutBaseTest::aReferenceThatDiesIsNotUsed()
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

void FlyoutBaseTest::theTitleRegionEndsAtTheFirstButton()
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

void FlyoutBaseTest::theTitleRegionIsMirrored()
{
    const Flyout flyout = makeFlyout();
    flyout->setLayoutDirection(Qt::RightToLeft);
    flyout->show();
    const QRect region = (flyout.get()->*(&Inside::GetTitleRegionForMoving))();
    QCOMPARE(region.right(), flyout->width() - 1);
    QCOMPARE(region.left(), part(flyout, "close_button")->geometry().right() + 1);
}

void FlyoutBaseTest::findsItemsOfTheColumn()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    for (int i = 0; i < column(flyout)->count(); ++i)
        QCOMPARE(flyout->FindItemIndexInLayout(column(flyout)->itemAt(i)), i);
    QCOMPARE(flyout->FindItemIndexInLayout(itemAt(flyout->layout(), 0)), -1);
    QCOMPARE(flyout->FindItemIndexInLayout(nullptr), -1);
}

void FlyoutBaseTest::nullIsIgnored()
{
    const Flyout flyout = makeFlyout();
    flyout->AddSubWidget(nullptr, EDirection::Left);
    flyout->RemoveSubWidget(nullptr);
    flyout->EnableInfoButton(true, nullptr);
    QVERIFY(part(flyout, "info_button")->isHidden());
    flyout->SetInfoWidgetPos();
    flyout->SetBounds({}, {});
    QMetaObject::invokeMethod(flyout.get(), "on_info_button_clicked");
    QMetaObject::invokeMethod(flyout.get(), "on_advanced_button_clicked");
    (flyout.get()->*(&Inside::SetButtonVisible))(nullptr, true);
    QGraphicsDropShadowEffect *effect = nullptr;
    Inside::SetShadow(effect);
    QVERIFY(!effect);
    QToolButton button;
    flyout->SetToolButton(&button);
    QCOMPARE(flyout->ToolButton(), &button);
    flyout->SetToolButton(nullptr);
    QVERIFY(!flyout->ToolButton());
    QVERIFY(!flyout->property("sub_widgets").isValid());
}

LUMO_TEST_MAIN(FlyoutBaseTest)
#include "tst_flyoutbase.moc"
