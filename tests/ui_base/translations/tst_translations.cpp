// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <ui_base/ActionPanel>
#include <ui_base/BaseView>
#include <ui_base/CmdsViewController>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/ImageViewerToolBar>
#include <ui_base/InfoDialog>
#include <ui_base/MDialogBase>
#include <ui_base/NotificationBar>
#include <ui_base/QtUiToolkit>
#include <ui_base/SampleInnerTooltip>
#include <ui_base/TaskDialog>
#include <ui_base/ToolBar>
#include <ui_base/ToolButton>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipExFactory>
#include <ui_base/TooltipObject>

#include "support/testcase.h"
#include "support/testmain.h"
#include "ui_base/command/testcommand.h"

#include <lumo_common_res/String>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScopeGuard>
#include <QToolButton>
#include <QTranslator>

#include <functional>
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

QWidget *makeContent()
{
    auto *const panel = new QWidget;
    panel->setFixedSize(240, 60);
    return panel;
}

std::unique_ptr<QWidget> makeUnfoldedFlyout()
{
    std::unique_ptr<QWidget> flyout = makeFlyout();
    flyout->findChild<QAbstractButton *>(QStringLiteral("advanced_button"))->click();
    return flyout;
}

std::unique_ptr<QWidget> makeInfoFlyout()
{
    return std::unique_ptr<QWidget>(QtUiToolkit::Instance().CreateFlyout(
        nullptr, QStringLiteral("Smooth"), makeContent(), QStringLiteral("Evens out the surface."),
        true, true, true, true, nullptr));
}

std::unique_ptr<QWidget> makeFlyoutDialog()
{
    return std::unique_ptr<QWidget>(QtUiToolkit::Instance().CreateFlyoutDialog(
        nullptr, QStringLiteral("Smooth"), makeContent(), makeContent(), true, true, true, true));
}

std::unique_ptr<QWidget> makeCard(const char *type, bool isOpen)
{
    using EVisibility = ATooltipEx::EWidgetExVisibility;
    return std::unique_ptr<QWidget>(TooltipExFactory::GetInstance().CreateExtendedTooltip(
        nullptr, QStringLiteral("Smooth"), QStringLiteral("Evens out the surface of the mesh."),
        QStringLiteral("Works on the selection, or on all faces when none is selected."), true, 300,
        isOpen ? EVisibility::ExShown : EVisibility::ExHidden, QString::fromLatin1(type)));
}

std::unique_ptr<QWidget> makePanel()
{
    auto window = std::make_unique<QWidget>();
    window->resize(400, 300);
    auto *const panel = new ActionPanel(window.get());
    for (const char *const text : {"Open", "Save", "Smooth"})
        panel->AddAction(new QAction(QString::fromLatin1(text), window.get()),
                         QStringLiteral("group"), 1, true);
    panel->ShowMe();
    return window;
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

/// A bar in a window, with a button of an action that the host translates by itself.
struct BarScene
{
    BarScene()
    {
        window.resize(400, 300);
        action.setToolTip(QStringLiteral("Smooth the mesh"));
        bar.AddAction(&action, QStringLiteral("group"), 1, true);
        button = bar.findChild<ToolButton *>();
        window.show();
    }

    QLabel *shownTip() const
    {
        return button->GetTooltipObject()->TooltipControl()->findChild<QLabel *>();
    }

    QWidget window;
    QAction action {QStringLiteral("Smooth")};
    ToolBar bar {&window, Qt::TopToolBarArea};
    ToolButton *button = nullptr;
};

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

/// The first text that has less room than it wants.
QString firstCutOff(const QWidget &form)
{
    for (const QWidget *const leaf : visibleLeaves(form)) {
        const auto *const label = qobject_cast<const QLabel *>(leaf);
        const bool isWrapped = label && label->wordWrap();
        const QString text = leaf->property("text").toString();
        const int textWidth = leaf->fontMetrics().size(Qt::TextShowMnemonic, text).width();
        const bool isCut = isWrapped ? leaf->height() < leaf->heightForWidth(leaf->width())
                                     : leaf->width() < textWidth;
        if (!text.isEmpty() && isCut)
            return leaf->objectName() + QLatin1Char(' ') + text;
    }
    return {};
}

using Maker = std::function<std::unique_ptr<QWidget>()>;

} // namespace

Q_DECLARE_METATYPE(Maker)

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
    void groupTitlesFollow();
    void groupTitleOfTheHostStays();
    void closeButtonOfANotificationFollows();
    void openTooltipOfAButtonFollows();
    void tooltipThatWasNeverShownFollows();
    void tooltipThatTheHostWroteStays();
    void tooltipFollowsNothingButTheLanguage();
    void buttonOfACommandGroupFollows();
    void rightToLeftBreaksNoForm_data() { everyForm(); }
    void rightToLeftBreaksNoForm();
    void aChangeOfLanguageBreaksNoForm_data() { everyForm(); }
    void aChangeOfLanguageBreaksNoForm();
    void closeButtonOfANotificationCoversNoTextFromRightToLeft();
    void closeButtonChangesSidesFromRightToLeft();

private:
    static void everyForm();
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

void TestTranslations::groupTitlesFollow()
{
    QWidget window;
    auto *const view = new BaseView(&window, {});
    const CmdsViewController *const controller = new CmdsViewController(view);
    QCOMPARE(controller->ActionPanelGroup()->toolTip(), QStringLiteral("Actions"));
    speakGerman();
    QCOMPARE(controller->ActionPanelGroup()->toolTip(), QStringLiteral("Aktionen"));
    QCOMPARE(controller->ToolPanelGroup()->toolTip(), QStringLiteral("Werkzeuge"));
    QCOMPARE(controller->DynamicToolPanelGroup()->toolTip(),
             QStringLiteral("Dynamische Werkzeuge"));
    qApp->removeTranslator(&m_german);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(controller->ToolPanelGroup()->toolTip(), QStringLiteral("Tools"));
}

void TestTranslations::groupTitleOfTheHostStays()
{
    QWidget window;
    auto *const view = new BaseView(&window, {});
    const CmdsViewController *const controller = new CmdsViewController(view);
    controller->ToolPanelGroup()->setToolTip(QStringLiteral("Sculpting"));
    speakGerman();
    QCOMPARE(controller->ToolPanelGroup()->toolTip(), QStringLiteral("Sculpting"));
    qApp->removeTranslator(&m_german);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(controller->ToolPanelGroup()->toolTip(), QStringLiteral("Sculpting"));
}

void TestTranslations::closeButtonOfANotificationFollows()
{
    QWidget window;
    window.resize(400, 300);
    NotificationBar bar(&window);
    window.show();
    bar.ShowSimpleText(QStringLiteral("Saved"), eNotificationNoFade, 60'000, true);
    const auto *const close = bar.findChild<QToolButton *>();
    QCOMPARE(close->accessibleName(), QStringLiteral("Close"));
    speakGerman();
    QCOMPARE(close->accessibleName(), QStringLiteral("Schließen"));
}

void TestTranslations::openTooltipOfAButtonFollows()
{
    BarScene scene;
    scene.button->GetTooltipObject()->ShowTooltip();
    QVERIFY(scene.button->GetTooltipObject()->IsVisible());
    const int widthBefore = scene.button->GetTooltipObject()->TooltipControl()->width();
    speakGerman();
    // A host that hears of the change later than the button.
    scene.action.setToolTip(QStringLiteral("Das ganze Netz gleichmäßig glätten"));
    QTRY_COMPARE(scene.shownTip()->text(), scene.action.toolTip());
    QVERIFY(scene.button->GetTooltipObject()->IsVisible());
    const QWidget *const control = scene.button->GetTooltipObject()->TooltipControl();
    QTRY_VERIFY(control->width() > widthBefore);
    QTRY_VERIFY(control->parentWidget()->rect().contains(control->geometry()));
}

void TestTranslations::tooltipThatWasNeverShownFollows()
{
    BarScene scene;
    scene.action.setToolTip(QStringLiteral("Netz glätten"));
    speakGerman();
    QCoreApplication::processEvents();
    QCOMPARE(scene.shownTip()->text(), QStringLiteral("Netz glätten"));
}

void TestTranslations::tooltipThatTheHostWroteStays()
{
    BarScene scene;
    scene.button->GetTooltipObject()->setText(QStringLiteral("Click me"));
    scene.action.setToolTip(QStringLiteral("Netz glätten"));
    speakGerman();
    QCoreApplication::processEvents();
    QCOMPARE(scene.shownTip()->text(), QStringLiteral("Click me"));
}

void TestTranslations::tooltipFollowsNothingButTheLanguage()
{
    BarScene scene;
    QCOMPARE(scene.shownTip()->text(), QStringLiteral("Smooth the mesh"));
    scene.action.setToolTip(QStringLiteral("Smooth it all"));
    QCoreApplication::processEvents();
    QCOMPARE(scene.shownTip()->text(), QStringLiteral("Smooth the mesh"));
}

void TestTranslations::buttonOfACommandGroupFollows()
{
    QWidget window;
    ToolBar bar(&window, Qt::TopToolBarArea);
    const auto outer =
        std::make_shared<CommandGroup>(QString(), QString(), QStringLiteral("outer"));
    const auto group = std::make_shared<CommandGroup>(QString(), QStringLiteral("Display modes"),
                                                      QStringLiteral("modes"));
    group->addCommand(std::make_shared<Lumo::Test::TestCommand>(QStringLiteral("flat")), 1);
    outer->addCommand(group, 1);
    outer->setToolbar(&bar);
    bar.AddCommandGroup(outer.get());
    ToolButton *const button = group->toolButton();
    QVERIFY(button);
    QCOMPARE(button->accessibleName(), QStringLiteral("Display modes"));
    group->setToolTip(QStringLiteral("Darstellungen"));
    speakGerman();
    QTRY_COMPARE(button->accessibleName(), QStringLiteral("Darstellungen"));
    QCOMPARE(button->toolTip(), QStringLiteral("Darstellungen"));
    QCOMPARE(button->GetTooltipObject()->TooltipControl()->findChild<QLabel *>()->text(),
             QStringLiteral("Darstellungen"));
}

void TestTranslations::everyForm()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("flyout") << Maker([] { return std::unique_ptr<QWidget>(makeFlyout()); });
    QTest::newRow("flyout, unfolded") << Maker(makeUnfoldedFlyout);
    QTest::newRow("flyout with an info strip") << Maker(makeInfoFlyout);
    QTest::newRow("dialog around a flyout") << Maker(makeFlyoutDialog);
    QTest::newRow("question") << Maker([] { return std::unique_ptr<QWidget>(makeQuestion()); });
    QTest::newRow("card") << Maker([] { return makeCard("TooltipEx", false); });
    QTest::newRow("open card") << Maker([] { return makeCard("TooltipEx", true); });
    QTest::newRow("info dialog") << Maker([] { return makeCard("InfoDialog", true); });
    QTest::newRow("strip of an image viewer")
        << Maker([] { return std::make_unique<Vela::UiToolkit::ImageViewerToolBar>(); });
    QTest::newRow("action panel") << Maker(makePanel);
}

void TestTranslations::rightToLeftBreaksNoForm()
{
    QFETCH(Maker, make);
    qApp->setLayoutDirection(Qt::RightToLeft);
    const std::unique_ptr<QWidget> widget = make();
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
    QVERIFY(visibleLeaves(*widget).size() > 1);
    QTRY_COMPARE(firstOutside(*widget), QString());
    QCOMPARE(firstOverlap(*widget), QString());
    QCOMPARE(firstCutOff(*widget), QString());
}

void TestTranslations::aChangeOfLanguageBreaksNoForm()
{
    QFETCH(Maker, make);
    const std::unique_ptr<QWidget> widget = make();
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.get()));
    speakGerman();
    QTRY_COMPARE(firstCutOff(*widget), QString());
    QCOMPARE(firstOutside(*widget), QString());
    QCOMPARE(firstOverlap(*widget), QString());
}

void TestTranslations::closeButtonOfANotificationCoversNoTextFromRightToLeft()
{
    qApp->setLayoutDirection(Qt::RightToLeft);
    QWidget window;
    window.resize(400, 300);
    NotificationBar bar(&window);
    window.show();
    bar.ShowSimpleText(QStringLiteral("Saved"), eNotificationNoFade, 60'000, true);
    QTRY_VERIFY(bar.isVisible());
    const QRect close = placeIn(bar, *bar.findChild<QToolButton *>());
    const QRect text = placeIn(bar, *bar.findChild<QLabel *>());
    QVERIFY(bar.rect().contains(close) && bar.rect().contains(text));
    QVERIFY(!close.intersects(text));
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
