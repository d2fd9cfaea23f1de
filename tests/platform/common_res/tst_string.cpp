// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testcase.h"
#include "support/testmain.h"

#include <lumo_common_res/String>

#include <QList>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <memory>
#include <type_traits>

using namespace Vela::Resource;

static_assert(std::is_convertible_v<TranslatedText, QString>);
static_assert(std::is_convertible_v<StableName, QString>);
static_assert(!std::is_constructible_v<StableName, TranslatedText>);

namespace {

/// Answers every text of every context with the context and the text, marked.
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return QStringLiteral("[%1|%2]").arg(QLatin1String(context), QString::fromUtf8(text));
    }
};

const QList<TranslatedText> &texts()
{
    static const QList<TranslatedText> all {
        String::OK_BUTTON_TEXT,   String::CANCEL_BUTTON_TEXT,      String::CLOSE_BUTTON_TEXT,
        String::YES_BUTTON_TEXT,  String::NO_BUTTON_TEXT,          String::ACTIONS_GROUP_TEXT,
        String::TOOLS_GROUP_TEXT, String::DYNAMIC_TOOLS_GROUP_TEXT};
    return all;
}

const QList<StableName> &names()
{
    static const QList<StableName> all {String::COMMAND_DEFAULT_GROUP,
                                        String::COMMAND_ACTIONPANEL_GROUP_ID,
                                        String::COMMAND_TOOLPANEL_GROUP_ID,
                                        String::COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID,
                                        String::TAG_FLYOUT,
                                        String::WIDGET_PROPERTY_ISFLYOUT};
    return all;
}

} // namespace

class tst_String : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void textsAreEnglishWithoutATranslator();
    void textsFollowATranslatorInstalledLater();
    void textsAreEnglishAgainAfterTheTranslatorHasGone();
    void nullTextReadsAsEmpty();
    void namesStayTheSameUnderATranslator();
    void namesAreDistinctAsciiWords();
    void nameServesAsPropertyName();
};

void tst_String::textsAreEnglishWithoutATranslator()
{
    QCOMPARE(QString(String::OK_BUTTON_TEXT), QStringLiteral("OK"));
    QCOMPARE(QString(String::CANCEL_BUTTON_TEXT), QStringLiteral("Cancel"));
    QCOMPARE(QString(String::CLOSE_BUTTON_TEXT), QStringLiteral("Close"));
    QCOMPARE(QString(String::YES_BUTTON_TEXT), QStringLiteral("Yes"));
    QCOMPARE(QString(String::NO_BUTTON_TEXT), QStringLiteral("No"));
    QCOMPARE(QString(String::ACTIONS_GROUP_TEXT), QStringLiteral("Actions"));
    QCOMPARE(QString(String::TOOLS_GROUP_TEXT), QStringLiteral("Tools"));
    QCOMPARE(QString(String::DYNAMIC_TOOLS_GROUP_TEXT), QStringLiteral("Dynamic Tools"));
}

void tst_String::textsFollowATranslatorInstalledLater()
{
    QStringList before;
    for (const TranslatedText &text : texts())
        before << text;

    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));

    for (int i = 0; i < texts().size(); ++i)
        QCOMPARE(texts().at(i).toString(),
                 QStringLiteral("[Vela::Resource::String|%1]").arg(before.at(i)));
}

void tst_String::textsAreEnglishAgainAfterTheTranslatorHasGone()
{
    auto translator = std::make_unique<MarkingTranslator>();
    QVERIFY(QCoreApplication::installTranslator(translator.get()));
    translator.reset();
    QCOMPARE(QString(String::YES_BUTTON_TEXT), QStringLiteral("Yes"));
}

void tst_String::nullTextReadsAsEmpty()
{
    QVERIFY(TranslatedText(nullptr).toString().isEmpty());
}

void tst_String::namesStayTheSameUnderATranslator()
{
    QStringList before;
    for (const StableName &name : names())
        before << name;

    MarkingTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));

    for (int i = 0; i < names().size(); ++i)
        QCOMPARE(names().at(i).toString(), before.at(i));
}

void tst_String::namesAreDistinctAsciiWords()
{
    const QRegularExpression word(QStringLiteral("^[a-z_]+$"));
    QSet<QString> seen;
    for (const StableName &name : names()) {
        const QString text = name;
        QVERIFY2(word.match(text).hasMatch(), qPrintable(text));
        QVERIFY2(!seen.contains(text), qPrintable(text));
        seen << text;
    }
}

void tst_String::nameServesAsPropertyName()
{
    QObject object;
    object.setProperty(String::WIDGET_PROPERTY_ISFLYOUT.latin1(), true);
    const QString name = String::WIDGET_PROPERTY_ISFLYOUT;
    QVERIFY(object.property(name.toLatin1().constData()).toBool());
}

LUMO_TEST_MAIN(tst_String)

#include "tst_string.moc"
