// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/InfoDialog>
#include <ui_base/TooltipExFactory>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/qtui/tooltip/atooltipex_p.h"

#include <lumo_common_res/Styles>

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <memory>

using namespace Vela::UiBase;
using EVisibility = ATooltipEx::EWidgetExVisibility;

namespace {

class Panel : public InfoDialog
{
public:
    using InfoDialog::InfoDialog;
    using InfoDialog::OnIndexChanged;

    ATooltipExPrivate &state() const { return *d_ptr; }
    template<typename Child = QWidget>
    Child *part(const char *name) const
    {
        return findChild<Child *>(QLatin1String(name));
    }
};

QStackedWidget *makeStack()
{
    auto *const stack = new QStackedWidget;
    for (const int height : {30, 70, 50}) {
        auto *const page = new QWidget;
        page->setProperty("widget_type", QVariant::fromValue(ATooltipEx::EWidgetType::Custom));
        page->setFixedHeight(height);
        stack->addWidget(page);
    }
    return stack;
}

std::unique_ptr<Panel> makePanel()
{
    auto panel = std::make_unique<Panel>();
    panel->SetParams(QStringLiteral("Title"), QStringLiteral("Content"), makeStack(), true, 300,
                     EVisibility::ExHidden);
    return panel;
}

} // namespace

class InfoDialogTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void theFormIsAsTold();
    void showsNeitherTitleNorContent();
    void isAlwaysOpen();
    void marginsAreThoseOfTheTopAndThePart();
    void doesNotTurnPages();
    void aPageChosenWhileHiddenFitsWhenShown();
    void anotherWidthFitsIt();
    void tellsItsVisibility();
    void theCloseButtonHidesIt();
    void paintsARoundedGround();
    void theDarkPaletteReachesItsTexts();
};

void InfoDialogTest::theFormIsAsTold()
{
    Panel panel;
    QCOMPARE(panel.objectName(), QStringLiteral("InfoDialog"));
    QCOMPARE(panel.windowTitle(), QStringLiteral("Information"));
    for (const char *rule : {"QWidget#InfoDialog", "border: none", "background-color: transparent",
                             "QLabel", "'Arial'", "12px", "#606060"})
        QVERIFY2(panel.styleSheet().contains(QLatin1String(rule)), rule);
    const auto *const grid = qobject_cast<QGridLayout *>(panel.layout());
    QCOMPARE(grid->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->contentsMargins(), QMargins(0, 0, 0, 0));
    const auto *const all = panel.part<QVBoxLayout>("vlayout_all");
    QCOMPARE(grid->itemAt(0)->layout(), all);
    QCOMPARE(all->spacing(), 6);
    QCOMPARE(all->contentsMargins(), QMargins(0, 9, 0, 6));

    const auto *const top = panel.part<QHBoxLayout>("vlayout_top");
    QCOMPARE(all->itemAt(0)->layout(), top);
    QCOMPARE(top->spacing(), 6);
    QCOMPARE(top->contentsMargins(), QMargins(9, 0, 9, 0));
    QCOMPARE(top->itemAt(0)->widget(), panel.part("label"));
    QCOMPARE(panel.part<QLabel>("label")->text(), QStringLiteral("title"));
    QCOMPARE(top->itemAt(1)->spacerItem()->sizeHint(), QSize(40, 20));
    const auto *const close = panel.part<QToolButton>("close_button");
    QCOMPARE(top->itemAt(2)->widget(), close);
    QCOMPARE(close->minimumSize(), QSize(20, 20));
    QCOMPARE(close->maximumSize(), QSize(20, 20));
    QCOMPARE(close->accessibleName(), QStringLiteral("Close"));
    QVERIFY(close->styleSheet().contains(QLatin1String(":/resources/images/sys_close_18.png")));

    const auto *const extended = panel.part<QVBoxLayout>("vlayout_extended");
    QCOMPARE(all->itemAt(1)->layout(), extended);
    QCOMPARE(extended->spacing(), 6);
    const auto *const widget = panel.part("widget");
    QCOMPARE(extended->itemAt(0)->widget(), widget);
    QVERIFY(widget->styleSheet().contains(QLatin1String("QWidget#widget")));
    QVERIFY(widget->styleSheet().contains(QLatin1String("transparent")));
    const auto *const inner = qobject_cast<QGridLayout *>(widget->layout());
    QCOMPARE(inner->objectName(), QStringLiteral("gridLayout_2"));
    QCOMPARE(inner->spacing(), 6);
    QCOMPARE(inner->contentsMargins(), QMargins(11, 11, 11, 11));
    QCOMPARE(inner->itemAt(0)->layout()->objectName(), QStringLiteral("verticalLayout"));
}

void InfoDialogTest::showsNeitherTitleNorContent()
{
    const auto panel = makePanel();
    panel->show();
    for (const QLabel *label : panel->findChildren<QLabel *>())
        QVERIFY(label->text().isEmpty());
    QCOMPARE(panel->state().maxWidth, 300);
    QVERIFY(panel->state().alwaysMaxWidth);
}

void InfoDialogTest::isAlwaysOpen()
{
    const auto panel = makePanel();
    QCOMPARE(panel->state().visibility, EVisibility::ExAlwaysShown);
    QVERIFY(panel->IsAdvancedWidgetVisible());
    panel->show();
    QVERIFY(panel->part("widget")->isVisible());
    QTest::mouseClick(panel.get(), Qt::LeftButton, {}, QPoint(3, 3));
    QVERIFY(panel->part("widget")->isVisible());
    const QSize size = panel->size();
    panel->SetHeightOnAdvancedWidgetHidden(100);
    QCOMPARE(panel->size(), size);
    panel->hide();
    QVERIFY(!panel->part("widget")->isHidden());
    QVERIFY(panel->IsAdvancedWidgetVisible());
}

void InfoDialogTest::marginsAreThoseOfTheTopAndThePart()
{
    const auto panel = makePanel();
    QCOMPARE(panel->GetAdvancedWidgetMargins(), 18 + 22);
    QCOMPARE(panel->AdvancedWidgets()->widget(0)->width(), 300 - 40);
}

void InfoDialogTest::doesNotTurnPages()
{
    const auto panel = makePanel();
    for (int i = 0; i < 3; ++i) {
        panel->show();
        QCOMPARE(panel->AdvancedWidgets()->currentIndex(), 0);
        panel->hide();
    }
}

void InfoDialogTest::aPageChosenWhileHiddenFitsWhenShown()
{
    const auto panel = makePanel();
    panel->show();
    const int height = panel->height();
    panel->hide();
    panel->OnIndexChanged(1);
    panel->show();
    QCOMPARE(panel->AdvancedWidgets()->height(), 70);
    QCOMPARE(panel->height(), height + 40);
}

void InfoDialogTest::anotherWidthFitsIt()
{
    const auto panel = makePanel();
    panel->SetMaxWidthForAllAdvancedWidgets(200);
    QCOMPARE(panel->width(), 200);
    QCOMPARE(panel->AdvancedWidgets()->width(), 160);
    panel->show();
    QCOMPARE(panel->width(), 200);
    // In the middle of the part, whose own margins are 11.
    QCOMPARE(panel->AdvancedWidgets()->geometry().left(), 11 + (200 - 22 - 160) / 2);
}

void InfoDialogTest::tellsItsVisibility()
{
    const auto panel = makePanel();
    QSignalSpy spy(panel.get(), &InfoDialog::VisibilityChanged);
    panel->show();
    QCOMPARE(spy, (QList<QVariantList> {{true}}));
    panel->hide();
    QCOMPARE(spy, (QList<QVariantList> {{true}, {false}}));
}

void InfoDialogTest::theCloseButtonHidesIt()
{
    const auto panel = makePanel();
    panel->show();
    QSignalSpy spy(panel.get(), &InfoDialog::VisibilityChanged);
    QTest::mouseClick(panel->part("close_button"), Qt::LeftButton);
    QVERIFY(panel->isHidden());
    QCOMPARE(spy, (QList<QVariantList> {{false}}));
    QMetaObject::invokeMethod(panel.get(), "on_close_button_clicked");
    QVERIFY(panel->isHidden());
}

void InfoDialogTest::paintsARoundedGround()
{
    const auto panel = makePanel();
    panel->resize(300, 280);
    QImage picture(panel->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::green);
    panel->render(&picture, {}, {}, QWidget::RenderFlags());
    const int right = picture.width() - 2;
    const int bottom = picture.height() - 2;
    QCOMPARE(picture.pixelColor(150, 140), QColor(Qt::white));
    QCOMPARE(picture.pixelColor(0, bottom / 2), QColor(Qt::gray));
    QCOMPARE(picture.pixelColor(right + 1, bottom / 2), QColor(Qt::gray));
    QCOMPARE(picture.pixelColor(150, bottom + 1), QColor(Qt::gray));
    QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::green));
}

void InfoDialogTest::theDarkPaletteReachesItsTexts()
{
    auto &styles = Vela::Resource::Styles::Instance();
    qApp->setStyleSheet(styles.ApplicationStyleSheet());
    styles.SetPalette(Vela::Resource::EPalette::Dark);
    QWidget window;
    Panel panel(&window);
    panel.resize(80, 60);
    window.resize(100, 80);
    window.show();
    const QImage picture = window.grab().toImage();
    styles.SetPalette(Vela::Resource::EPalette::Light);
    qApp->setStyleSheet({});
    const QColor text = panel.part<QLabel>("label")->palette().color(QPalette::WindowText);
    QVERIFY2(text.lightness() > 150, qPrintable(text.name()));
    QVERIFY(picture.pixelColor(panel.geometry().topLeft() + QPoint(4, 30)).lightness() < 100);
}

LUMO_TEST_MAIN(InfoDialogTest)
#include "tst_infodialog.moc"
