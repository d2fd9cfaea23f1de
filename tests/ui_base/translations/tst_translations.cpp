// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/FlyoutBase>
#include <ui_base/InfoDialog>
#include <ui_base/QtUiToolkit>
#include <ui_base/SampleInnerTooltip>
#include <ui_base/TaskDialog>
#include <ui_base/TooltipEx>

#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/String>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QTranslator>

#include <memory>

using namespace Vela::UiBase;
using Vela::UiToolkit::EDialogButtons;
using Vela::UiToolkit::EDialogIcon;
using Vela::UiToolkit::SampleInnerTooltip;
using Vela::UiToolkit::TaskDialog;

namespace {

std::unique_ptr<FlyoutBase> makeFlyout()
{
    auto *const panel = new QWidget;
    panel->setFixedSize(240, 60);
    auto *const advanced = new QWidget;
    advanced->setFixedSize(240, 30);
    return std::unique_ptr<FlyoutBase>(QtUiToolkit::Instance().CreateFlyout(
        QStringLiteral("Smooth"), panel, advanced, true, true, true, true, nullptr));
}

std::unique_ptr<TaskDialog> makeQuestion()
{
    return std::make_unique<TaskDialog>(nullptr, QStringLiteral("Close the mesh?"),
                                        QStringLiteral("It has changed."),
                                        EDialogButtons::ButtonsYesNo, EDialogIcon::IconQuestion);
}

template<typename Child>
Child *part(const QWidget &form, const char *name)
{
    return form.findChild<Child *>(QString::fromLatin1(name));
}

QString textOf(const QWidget &form, const char *name)
{
    const auto *const widget = part<QWidget>(form, name);
    return widget ? widget->property("text").toString() : QString();
}

QString tipOf(const QWidget &form, const char *name)
{
    const auto *const widget = part<QWidget>(form, name);
    return widget ? widget->toolTip() : QString();
}

QRect placeIn(const QWidget &form, const QWidget &child)
{
    return {child.mapTo(&form, QPoint()), child.size()};
}

QList<const QWidget *> visibleLeaves(const QWidget &form)
{
    QList<const QWidget *> leaves;
    const QList<QWidget *> children = form.findChildren<QWidget *>();
    for (const QWidget *const child : children) {
        const bool isLeaf =
            qobject_cast<const QLabel *>(child) || qobject_cast<const QAbstractButton *>(child);
        if (isLeaf && child->isVisible() && child->window() == form.window())
            leaves << child;
    }
    return leaves;
}

QString firstOverlap(const QWidget &form)
{
    const QList<const QWidget *> leaves = visibleLeaves(form);
    for (const QWidget *const one : leaves) {
        for (const QWidget *const other : leaves) {
            const bool areNested = one->isAncestorOf(other) || other->isAncestorOf(one);
            if (one < other && !areNested && placeIn(form, *one).intersects(placeIn(form, *other)))
                return one->objectName() + QLatin1Char('/') + other->objectName();
        }
    }
    return {};
}

QString firstOutside(const QWidget &form)
{
    for (const QWidget *const leaf : visibleLeaves(form)) {
        if (!form.rect().contains(placeIn(form, *leaf)))
            return leaf->objectName();
    }
    return {};
}

} // namespace

class TestTranslations : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogButtonsSpeakTheLanguageOfTheApplication();
    void openDialogFollowsAChangeOfLanguage();
    void flyoutFollowsAChangeOfLanguageAndBack();
    void flyoutKeepsTheTextsOfTheHost();
    void applyButtonThatCancelsFollowsToo();
    void tooltipCardKeepsItsContent();
    void infoDialogFollows();
    void samplePageFollows();
    void rightToLeftBreaksNoForm_data();
    void rightToLeftBreaksNoForm();
    void closeButtonChangesSidesFromRightToLeft();

private:
    void speakGerman();

    QTranslator m_german;
};

void TestTranslations::init()
{
    QVERIFY(m_german.load(QLocale(QLocale::German), QStringLiteral("lumo_ui_base"),
                          QStringLiteral("_"), QStringLiteral(":/translations")));
}

void TestTranslations::cleanup()
{
    qApp->removeTranslator(&m_german);
    qApp->setLayoutDirection(Qt::LeftToRight);
    QCoreApplication::sendPostedEvents();
}

void TestTranslations::speakGerman()
{
    qApp->installTranslator(&m_german);
    QCoreApplication::sendPostedEvents();
}

void TestTranslations::dialogButtonsSpeakTheLanguageOfTheApplication()
{
    speakGerman();
    const auto dialog = makeQuestion();
    QCOMPARE(textOf(*dialog, "button2"), QStringLiteral("Ja"));
    QCOMPARE(textOf(*dialog, "button1"), QStringLiteral("Nein"));
    QCOMPARE(QString(Vela::Resource::String::CANCEL_BUTTON_TEXT), QStringLiteral("Abbrechen"));
}

void TestTranslations::openDialogFollowsAChangeOfLanguage()
{
    const auto dialog = makeQuestion();
    dialog->show();
    QCOMPARE(textOf(*dialog, "button2"), QStringLiteral("Yes"));
    speakGerman();
    QCOMPARE(textOf(*dialog, "button2"), QStringLiteral("Ja"));
    QCOMPARE(tipOf(*dialog, "close_button"), QStringLiteral("Meldung schließen"));
    QCOMPARE(textOf(*dialog, "title_label"), QStringLiteral("Close the mesh?"));
}

void TestTranslations::flyoutFollowsAChangeOfLanguageAndBack()
{
    const auto flyout = makeFlyout();
    flyout->show();
    speakGerman();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Anwenden"));
    QCOMPARE(textOf(*flyout, "cancel_button"), QStringLiteral("Abbrechen"));
    QCOMPARE(tipOf(*flyout, "close_button"), QStringLiteral("Einstellungen schließen"));
    QCOMPARE(part<QWidget>(*flyout, "close_button")->accessibleName(),
             QStringLiteral("Einstellungen schließen"));
    qApp->removeTranslator(&m_german);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Apply"));
    QCOMPARE(tipOf(*flyout, "close_button"), QStringLiteral("Close the flyout"));
}

void TestTranslations::flyoutKeepsTheTextsOfTheHost()
{
    const auto flyout = makeFlyout();
    flyout->SetApplyButtonText(QStringLiteral("Smooth it"));
    speakGerman();
    QCOMPARE(flyout->Title(), QStringLiteral("Smooth"));
    QCOMPARE(flyout->windowTitle(), QStringLiteral("Smooth"));
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Smooth it"));
    QCOMPARE(textOf(*flyout, "cancel_button"), QStringLiteral("Abbrechen"));
    qApp->removeTranslator(&m_german);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Smooth it"));
}

void TestTranslations::applyButtonThatCancelsFollowsToo()
{
    const auto flyout = makeFlyout();
    flyout->SetToggleApplyButtonEnabled(true);
    flyout->show();
    flyout->OnEnterBusyMode();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Cancel"));
    speakGerman();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Abbrechen"));
    flyout->OnExitBusyMode();
    QCOMPARE(textOf(*flyout, "apply_button"), QStringLiteral("Anwenden"));
}

void TestTranslations::tooltipCardKeepsItsContent()
{
    TooltipEx card;
    card.SetParams(QStringLiteral("Smooth"), QStringLiteral("Evens out the surface."), nullptr,
                   false, 300, TooltipEx::EWidgetExVisibility::ExHidden);
    speakGerman();
    QCOMPARE(textOf(card, "title_label"), QStringLiteral("Smooth"));
    QCOMPARE(textOf(card, "content_label"), QStringLiteral("Evens out the surface."));
    QCOMPARE(tipOf(card, "info_label"), QStringLiteral("Mehr anzeigen"));
}

void TestTranslations::infoDialogFollows()
{
    InfoDialog dialog;
    speakGerman();
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Information"));
    QCOMPARE(part<QWidget>(dialog, "close_button")->accessibleName(), QStringLiteral("Schließen"));
}

void TestTranslations::samplePageFollows()
{
    SampleInnerTooltip page;
    speakGerman();
    QCOMPARE(page.windowTitle(), QStringLiteral("Beispielseite"));
}

void TestTranslations::rightToLeftBreaksNoForm_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("flyout") << 0;
    QTest::newRow("question") << 1;
    QTest::newRow("card") << 2;
}

void TestTranslations::rightToLeftBreaksNoForm()
{
    QFETCH(int, form);
    qApp->setLayoutDirection(Qt::RightToLeft);
    std::unique_ptr<QWidget> widget;
    if (form == 0) {
        widget = makeFlyout();
    } else if (form == 1) {
        widget = makeQuestion();
    } else {
        auto card = std::make_unique<TooltipEx>();
        card->SetParams(QStringLiteral("Smooth"), QStringLiteral("Evens out the surface."), nullptr,
                        false, 300, TooltipEx::EWidgetExVisibility::ExHidden);
        widget = std::move(card);
    }
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
    QVERIFY(visibleLeaves(*widget).size() > 1);
    QCOMPARE(firstOutside(*widget), QString());
    QCOMPARE(firstOverlap(*widget), QString());
}

void TestTranslations::closeButtonChangesSidesFromRightToLeft()
{
    qApp->setLayoutDirection(Qt::RightToLeft);
    const auto flyout = makeFlyout();
    flyout->show();
    QVERIFY(QTest::qWaitForWindowExposed(flyout.get()));
    const QRect close = placeIn(*flyout, *part<QWidget>(*flyout, "close_button"));
    const QRect title = placeIn(*flyout, *part<QWidget>(*flyout, "title"));
    QVERIFY(close.right() < title.left());
}

LUMO_TEST_MAIN(TestTranslations)
#include "tst_translations.moc"
