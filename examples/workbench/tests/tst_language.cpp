// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "language.h"

#include "commands/comparecommand.h"
#include "commands/selectioncommand.h"
#include "commands/showallcommand.h"
#include "dialogs/aboutcommand.h"
#include "dialogs/logcommand.h"
#include "dialogs/preferencescommand.h"
#include "flyouts/decimateflyout.h"
#include "flyouts/measureflyout.h"
#include "flyouts/smoothflyout.h"
#include "image/imagepage.h"
#include "mainwindow.h"
#include "menu/mainmenu.h"
#include "meshdocument.h"
#include "preferences.h"
#include "statusline.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "toolbar/commandbars.h"
#include "view/viewpane.h"

#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/ToolButton>
#include <ui_base/TooltipEx>
#include <ui_base/TooltipObject>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

#include <algorithm>

using namespace Workbench;

Q_DECLARE_METATYPE(Workbench::ELanguage)

namespace {

void speak(ELanguage language)
{
    Language::instance().choose(language);
    // The posted events, and what these post.
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

void openBunny(MainWindow &window)
{
    window.openFile(QStringLiteral(WORKBENCH_DATA "/bunny.obj"));
    QTRY_VERIFY(!window.document().isEmpty());
    QTRY_VERIFY(window.statusLine().commandText().startsWith(QLatin1String("Open: ")));
}

/// What can be read on the screen or heard, with who says it, in no order.
QStringList textsOf(const QObject &root)
{
    QStringList texts;
    const QRegularExpression word(QStringLiteral("[A-Za-z]{3}"));
    for (const QObject *object : root.findChildren<QObject *>()) {
        for (const char *const property :
             {"text", "title", "toolTip", "whatsThis", "windowTitle", "accessibleName",
              "accessibleDescription", "currentText"}) {
            const QString text = object->property(property).toString();
            if (text.contains(word))
                texts << QStringLiteral("%1 %2 %3: %4")
                             .arg(QLatin1String(object->metaObject()->className()),
                                  object->objectName(), QLatin1String(property), text);
        }
    }
    texts.sort();
    return texts;
}

bool isSaid(const QObject &root, const QString &text)
{
    const QStringList texts = textsOf(root);
    return std::any_of(texts.begin(), texts.end(), [&text](const QString &each) {
        return each.endsWith(QLatin1String(": ") + text);
    });
}

QString itemText(const MainWindow &window, int index)
{
    const MainMenu &menu = window.menu();
    return menu.GetMenuBarItem(menu.names().at(index))->text();
}

template<typename Widget>
Widget *part(const QObject &root, const char *name)
{
    return root.findChild<Widget *>(QLatin1String(name));
}

} // namespace

class LanguageTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setAttribute(Qt::AA_DontCreateNativeWidgetSiblings); }
    void init() { speak(ELanguage::English); }
    void cleanup()
    {
        Language::instance().setSystem(QLocale::system());
        speak(ELanguage::English);
    }

    // The language

    void theSystemsLanguageIsSpokenIfItIsKnown_data()
    {
        QTest::addColumn<QLocale>("system");
        QTest::addColumn<ELanguage>("spoken");
        QTest::newRow("Austrian") << QLocale(QStringLiteral("de_AT")) << ELanguage::German;
        QTest::newRow("British") << QLocale(QStringLiteral("en_GB")) << ELanguage::English;
        QTest::newRow("none") << QLocale::c() << ELanguage::English;
        QTest::newRow("unknown here") << QLocale(QStringLiteral("fi_FI")) << ELanguage::English;
    }

    void theSystemsLanguageIsSpokenIfItIsKnown()
    {
        QFETCH(QLocale, system);
        QFETCH(ELanguage, spoken);
        Language::instance().setSystem(system);
        speak(ELanguage::System);
        QCOMPARE(Language::instance().spoken(), spoken);
        const bool isGerman = spoken == ELanguage::German;
        QCOMPARE(MainWindow::tr("Open a mesh"),
                 isGerman ? QStringLiteral("Netz öffnen") : QStringLiteral("Open a mesh"));
    }

    void numbersAreWrittenAsTheLanguageDoes()
    {
        speak(ELanguage::German);
        QCOMPARE(QLocale().toString(1234.5, 'f', 1), QStringLiteral("1.234,5"));
        Language::instance().setSystem(QLocale(QStringLiteral("de_CH")));
        QCOMPARE(QLocale().country(), QLocale::Switzerland);
        speak(ELanguage::English);
        QCOMPARE(QLocale().toString(1234.5, 'f', 1), QStringLiteral("1,234.5"));
    }

    void theSameChoiceAgainChangesNothing()
    {
        speak(ELanguage::German);
        QSignalSpy spy(&Language::instance(), &Language::changed);
        speak(ELanguage::German);
        QCOMPARE(spy.count(), 0);
        speak(ELanguage::English);
        QCOMPARE(spy.count(), 1);
    }

    void codesNameTheChoices()
    {
        for (const ELanguage language : {ELanguage::System, ELanguage::English, ELanguage::German})
            QCOMPARE(languageOf(codeOf(language)), language);
        QCOMPARE(languageOf(QStringLiteral("tlh")), ELanguage::System);
    }

    // What is on the screen

    void nothingStaysEnglishAndAllComesBack()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        window.commands().preferences->trigger();
        window.commands().log->trigger();
        window.commands().about->trigger();
        QCoreApplication::processEvents();
        const QStringList english = textsOf(window);
        QVERIFY(english.size() > 60);
        speak(ELanguage::German);
        for (const QString &text : textsOf(window))
            QVERIFY2(!english.contains(text) || isTheSameInGerman(text), qPrintable(text));
        speak(ELanguage::English);
        QCOMPARE(textsOf(window), english);
    }

    void menusFollowWithoutClashingLetters()
    {
        MainWindow window;
        window.show();
        speak(ELanguage::German);
        QCOMPARE(itemText(window, 0), QStringLiteral("&Datei"));
        QCOMPARE(window.menu().recentMenu()->title(), QStringLiteral("&Zuletzt geöffnet"));
        QStringList items;
        for (int i = 0; i < window.menu().names().size(); ++i) {
            items << itemText(window, i);
            const QMenu *const menu = window.menu().menuOf(window.menu().names().at(i));
            QCOMPARE(menu->accessibleName(), itemText(window, i).remove(QLatin1Char('&')));
            QStringList entries;
            for (const QAction *entry : menu->actions())
                entries << entry->text();
            checkLetters(entries);
        }
        checkLetters(items);
    }

    void itemsHaveTheirRoom()
    {
        MainWindow window;
        window.show();
        speak(ELanguage::German);
        for (const QString &name : window.menu().names()) {
            const auto item = window.menu().GetMenuBarItem(name);
            QTRY_VERIFY(item->width() >= item->sizeHint().width());
        }
    }

    void theBarKeepsItsCornerFromRightToLeft()
    {
        MainWindow window;
        window.setLayoutDirection(Qt::RightToLeft);
        window.show();
        QToolButton *const item =
            window.menu().GetMenuBarItem(window.menu().names().constFirst()).data();
        const int widthBefore = window.menu().width();
        item->setText(QStringLiteral("Dateien und Ordner und mehr"));
        QTRY_VERIFY(window.menu().width() > widthBefore);
        QCOMPARE(window.menu().geometry().right(), window.rect().right());
    }

    void statusLineFollows()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        window.commands().showAll->trigger();
        speak(ELanguage::German);
        QCOMPARE(window.statusLine().meshText(), QStringLiteral("1.839 Eckpunkte, 3.674 Flächen"));
        QVERIFY(window.statusLine().commandText().startsWith(QLatin1String("Alles zeigen: ")));
    }

    void buttonsAndTheirCardsFollow()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        const Vela::UiBase::CommandBase &command = *window.commands().smoothFlyout;
        const Vela::UiBase::ToolButton &button = *command.toolButton();
        const auto titleOfCard = [&button] {
            return part<QLabel>(*button.GetTooltipObject()->TooltipControl(), "title_label")
                ->text();
        };
        QVERIFY(titleOfCard().startsWith(QLatin1String("Smooth with settings")));
        speak(ELanguage::German);
        QCOMPARE(button.accessibleName(), QStringLiteral("Glätten mit Einstellungen"));
        QVERIFY(titleOfCard().startsWith(QStringLiteral("Glätten mit Einstellungen")));
        const Vela::UiBase::ToolButton &modes = *window.commands().display->toolButton();
        QTRY_COMPARE(modes.accessibleName(), QStringLiteral("Wie die Oberfläche dargestellt wird"));
    }

    void openPanelsFollow()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        DecimateFlyout &decimate = *window.commands().decimateFlyout;
        decimate.trigger();
        QTRY_VERIFY(decimate.flyout()->isVisible());
        speak(ELanguage::German);
        QVERIFY(decimate.flyout()->isVisible());
        QCOMPARE(decimate.flyout()->Title(), QStringLiteral("Dezimieren"));
        QVERIFY(isSaid(*decimate.flyout(), QStringLiteral("Größter Fehler")));
    }

    void measuresFollow()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        speak(ELanguage::German);
        MeasureFlyout &measure = *window.commands().measureFlyout;
        QTRY_VERIFY(measure.isEnabled());
        measure.trigger();
        QTRY_VERIFY(measure.flyout()->isVisible());
        QVERIFY(isSaid(*measure.flyout(), QStringLiteral("Flächeninhalt")));
        QVERIFY(isSaid(*measure.flyout(), QStringLiteral("Flächen: 0, Inhalt: 0")));
        speak(ELanguage::English);
        QVERIFY(isSaid(*measure.flyout(), QStringLiteral("faces: 0, area: 0")));
    }

    void comparisonFollows()
    {
        MainWindow window;
        window.show();
        openBunny(window);
        window.commands().compare->trigger();
        QTRY_VERIFY(isSaid(window, QStringLiteral("Before")));
        speak(ELanguage::German);
        QVERIFY(isSaid(window, QStringLiteral("Vorher")));
        QVERIFY(isSaid(window, QStringLiteral("Nachher")));
        QVERIFY(!isSaid(window, QStringLiteral("Before")));
    }

    void placeOfTheViewSaysInGermanWhyItIsEmpty()
    {
        MainWindow window;
        window.show();
        QTRY_VERIFY(!window.pane().message().isEmpty());
        speak(ELanguage::German);
        QVERIFY(window.pane().message().contains(QLatin1String("braucht OpenGL 3.3")));
        QVERIFY(window.pane().message().contains(QLatin1String("hat keinen Bildschirm")));
    }

    // The choice

    void theChoiceActsAtOnceAndIsGivenUpWithTheDialog()
    {
        MainWindow window;
        window.show();
        PreferencesCommand &command = *window.commands().preferences;
        command.trigger();
        chooseLast(*part<QComboBox>(*command.dialog(), "language"));
        QTRY_COMPARE(command.dialog()->windowTitle(), QStringLiteral("Einstellungen"));
        QCOMPARE(itemText(window, 1), QStringLiteral("&Bearbeiten"));
        QTest::keyClick(command.dialog(), Qt::Key_Escape);
        QTRY_VERIFY(!command.dialog());
        QCOMPARE(Language::instance().choice(), ELanguage::System);
        QTRY_COMPARE(itemText(window, 1), QStringLiteral("&Edit"));
    }

    void theChoiceThatIsAppliedStays()
    {
        MainWindow window;
        window.show();
        PreferencesCommand &command = *window.commands().preferences;
        command.trigger();
        chooseLast(*part<QComboBox>(*command.dialog(), "language"));
        part<QAbstractButton>(*command.dialog(), "apply_button")->click();
        QTRY_VERIFY(!command.dialog());
        QCOMPARE(window.preferences().values().language, ELanguage::German);
        QCOMPARE(itemText(window, 1), QStringLiteral("&Bearbeiten"));
    }

    void theChoiceIsKeptInTheFile()
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("preferences.ini"));
        QCOMPARE(readPreferences(file).language, ELanguage::System);
        SPreferences values;
        values.language = ELanguage::German;
        QVERIFY(writePreferences(file, values));
        QCOMPARE(readPreferences(file).language, ELanguage::German);
    }

private:
    static bool isTheSameInGerman(const QString &text)
    {
        const QStringList same {QStringLiteral(": English"), QStringLiteral(": Deutsch"),
                                QStringLiteral(": Information"), QStringLiteral("bunny.obj")};
        return std::any_of(same.begin(), same.end(),
                           [&text](const QString &each) { return text.contains(each); });
    }

    static void checkLetters(const QStringList &texts)
    {
        QStringList letters;
        for (const QString &text : texts)
            letters << QKeySequence::mnemonic(text).toString();
        letters.removeAll(QString());
        QVERIFY2(letters.removeDuplicates() == 0, qPrintable(texts.join(QLatin1String(", "))));
    }

    static void chooseLast(QComboBox &box) { QTest::keyClick(&box, Qt::Key_End); }
};

LUMO_TEST_MAIN(LanguageTest)
#include "tst_language.moc"
