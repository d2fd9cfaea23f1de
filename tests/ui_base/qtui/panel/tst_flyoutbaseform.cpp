// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The layout, texts, styles and pictures of the form: hosts and style sheets know them by name.

#include <ui_base/ArrowedWindow>
#include <ui_base/FlyoutBase>

#include "flyoutparts.h"
#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/Styles>

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScopeGuard>
#include <QToolButton>

using namespace Vela::UiBase;
using namespace Vela::Resource;
using namespace Lumo::Test;

namespace {

/// What an icon of this size draws on the screen.
QImage drawn(const QIcon &icon, int size = 16)
{
    const qreal ratio = qApp->devicePixelRatio();
    QImage image(QSize(size, size) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, QRect(0, 0, size, size));
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

} // namespace

Q_DECLARE_METATYPE(QMargins)

class FlyoutBaseFormTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theColumnIsAsTold();
    void theTitleRowIsAsTold();
    void rowsHaveTheirMargins_data();
    void rowsHaveTheirMargins();
    void theButtonRowIsAsTold();
    void theStripIsAsTold();
    void theStyleSheetHasItsRules_data();
    void theStyleSheetHasItsRules();
    void theDarkPaletteReachesTheForm();
    void theGroundGoesWithTheTextsOnADarkDesktop();
    void picturesHaveTheResolutionOfTheScreen();

    void theStripShowsForAnInfoText();
};

void FlyoutBaseFormTest::theColumnIsAsTold()
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

void FlyoutBaseFormTest::theTitleRowIsAsTold()
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
    const Flyout second = makeInfoFlyout({}, makePanel());
    QVERIFY(part(second, "reset_button")->styleSheet().isEmpty());
}

void FlyoutBaseFormTest::rowsHaveTheirMargins_data()
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

void FlyoutBaseFormTest::rowsHaveTheirMargins()
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

void FlyoutBaseFormTest::theButtonRowIsAsTold()
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

void FlyoutBaseFormTest::theStripIsAsTold()
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

void FlyoutBaseFormTest::theStyleSheetHasItsRules_data()
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

void FlyoutBaseFormTest::theStyleSheetHasItsRules()
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

void FlyoutBaseFormTest::theDarkPaletteReachesTheForm()
{
    Styles::Instance().SetPalette(EPalette::Dark);
    const Flyout flyout = makeFlyout();
    Styles::Instance().SetPalette(EPalette::Light);
    QVERIFY(!flyout->styleSheet().contains(QLatin1String("#404040")));
    QVERIFY(!part(flyout, "title")->styleSheet().contains(QLatin1String("#404040")));
    QVERIFY(flyout->styleSheet().contains(QLatin1String("color: #FFFFFF")));
}

// A desktop chooses the palette of the application, a host that of the library.
void FlyoutBaseFormTest::theGroundGoesWithTheTextsOnADarkDesktop()
{
    const QPalette before = QApplication::palette();
    const auto restored = qScopeGuard([&] { QApplication::setPalette(before); });
    QApplication::setPalette(QPalette(QColor(40, 40, 40)));
    ArrowedWindow window;
    window.AttachWidget(makeFlyout().release());
    window.show();
    const QImage picture = window.grab().toImage();
    const auto *const title = window.findChild<QLabel *>(QStringLiteral("title"));
    const QPoint beside(title->mapTo(&window, title->rect().center()).x(),
                        title->mapTo(&window, QPoint()).y() - 2);
    QCOMPARE(picture.pixelColor(beside * picture.devicePixelRatio()), QColor(0xF0, 0xF0, 0xF0));
}

void FlyoutBaseFormTest::picturesHaveTheResolutionOfTheScreen()
{
    const Flyout flyout = makeFlyout({}, makePanel());
    const QString suffix = qApp->devicePixelRatio() > 1 ? "@2x" : "";
    const QString file = QStringLiteral(":/resources/images/%1%2.png");
    const auto drawnBy = [&](const char *name) {
        return drawn(part<QAbstractButton>(flyout, name)->icon());
    };
    QCOMPARE(drawnBy("advanced_button"), pixelsOf(file.arg("sys_panel_expand", suffix)));
    QCOMPARE(drawnBy("cancel_button"), pixelsOf(file.arg("sys_issue_ignore", suffix)));
    for (const char *name : {"info_button", "ibutton"}) {
        const QIcon icon = part<QAbstractButton>(flyout, name)->icon();
        QCOMPARE(drawn(icon, 40), pixelsOf(file.arg("sys_message_box_info", suffix)));
    }
    flyout->show();
    click(flyout, "advanced_button");
    QCOMPARE(drawnBy("advanced_button"), pixelsOf(file.arg("sys_panel_collapse", suffix)));
    click(flyout, "advanced_button");
    QCOMPARE(drawnBy("advanced_button"), pixelsOf(file.arg("sys_panel_expand", suffix)));
}

void FlyoutBaseFormTest::theStripShowsForAnInfoText()
{
    const Flyout without = makeInfoFlyout({}, makePanel());
    const Flyout with = makeInfoFlyout(QStringLiteral("Runs on the selection"), makePanel());
    QVERIFY(part(without, "ipanel")->isHidden());
    QVERIFY(!part(with, "ipanel")->isHidden());
    QVERIFY(with->height() > without->height());
}

LUMO_TEST_MAIN(FlyoutBaseFormTest)
#include "tst_flyoutbaseform.moc"
