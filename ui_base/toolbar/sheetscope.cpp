// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/sheetscope_p.h"

#include <QApplication>
#include <QStringList>
#include <QStringView>
#include <QVector>
#include <QWidget>

#include <algorithm>
#include <array>

namespace Vela::UiBase::Internal {
namespace {

struct SRule
{
    QStringView selectors;
    QStringView declarations;
};

/// One of the selectors that commas part.
struct SSelector
{
    QStringView part;         // the last one, for the selected widget itself
    bool looksAround = false; // or at properties
};

bool isQuote(QChar character)
{
    return character == QLatin1Char('"') || character == QLatin1Char('\'');
}

// What looks like a comment within a string is none.
QString withoutComments(const QString &sheet)
{
    const QString begin = QStringLiteral("/*");
    const QString end = QStringLiteral("*/");
    if (!sheet.contains(begin))
        return sheet;
    QString rest;
    rest.reserve(sheet.size());
    QChar quote;
    for (int at = 0; at < sheet.size(); ++at) {
        const QChar character = sheet.at(at);
        if (quote.isNull() && QStringView(sheet).mid(at).startsWith(begin)) {
            const int last = sheet.indexOf(end, at + begin.size());
            if (last < 0)
                break;
            at = last + 1;
            continue;
        }
        if (quote.isNull() ? isQuote(character) : character == quote)
            quote = quote.isNull() ? character : QChar();
        rest += character;
    }
    return rest;
}

// False when there is more than plain rules of plain names.
bool takeApart(const QString &sheet, QVector<SRule> &rules)
{
    if (sheet.contains(QLatin1Char('\\')))
        return false;
    const QStringView all(sheet);
    int begin = 0;
    for (int open = sheet.indexOf(QLatin1Char('{')); open >= 0;) {
        const int close = sheet.indexOf(QLatin1Char('}'), begin);
        const int next = sheet.indexOf(QLatin1Char('{'), open + 1);
        const QStringView selectors = all.mid(begin, open - begin);
        if (close < open || (next >= 0 && next < close) || selectors.contains(QLatin1Char('@')))
            return false;
        rules.push_back({selectors, all.mid(open + 1, close - open - 1)});
        begin = close + 1;
        open = next;
    }
    return all.mid(begin).trimmed().isEmpty();
}

bool isOfName(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_')
        || character == QLatin1Char('-');
}

QStringView nameAt(QStringView text, int begin)
{
    int end = begin;
    while (end < text.size() && isOfName(text.at(end)))
        ++end;
    return text.mid(begin, end - begin);
}

/// How a character parts a selector. The white space is that of style sheets.
enum class ESign {
    OfPart,
    Gap,
    OpeningBracket,
    ClosingBracket,
    End
};

ESign signOf(QChar character)
{
    switch (character.unicode()) {
    case ' ':
    case '\t':
    case '\n':
    case '\r':
    case '\f':
    case '>':
        return ESign::Gap;
    case '[':
        return ESign::OpeningBracket;
    case ']':
        return ESign::ClosingBracket;
    case ',':
        return ESign::End;
    default:
        return ESign::OfPart;
    }
}

/// Takes the first selector off.
SSelector takeSelector(QStringView &selectors)
{
    const QChar *const first = selectors.data();
    const QChar *const last = first + selectors.size();
    const QChar *begin = first;
    const QChar *at = first;
    int parts = 0;
    bool hasBrackets = false;
    bool isInBrackets = false;
    bool isBetween = true;
    for (ESign sign; at != last && (sign = signOf(*at)) != ESign::End; ++at) {
        if (sign == ESign::OpeningBracket)
            isInBrackets = hasBrackets = true;
        else if (sign == ESign::ClosingBracket)
            isInBrackets = false;
        const bool isGap = sign == ESign::Gap && !isInBrackets;
        if (isBetween && !isGap) {
            begin = at;
            ++parts;
        }
        isBetween = isGap;
    }
    selectors = at == last ? QStringView() : QStringView(at + 1, last);
    return {QStringView(begin, at), parts > 1 || hasBrackets};
}

QStringView elementOf(QStringView part)
{
    return nameAt(part, part.startsWith(QLatin1Char('.')) ? 1 : 0);
}

/// The names by which a sheet knows the class.
QStringList elementsOf(const QMetaObject &ofClass)
{
    QStringList names;
    for (const QMetaObject *level = &ofClass; level; level = level->superClass())
        names
            << QString::fromLatin1(level->className()).replace(QLatin1Char(':'), QLatin1Char('-'));
    return names;
}

bool isOneOf(const QStringList &elements, QStringView element)
{
    return element.isEmpty()
        || std::any_of(elements.cbegin(), elements.cend(), [element](const QString &name) {
               return element.size() == name.size()
                   && element.compare(name, Qt::CaseInsensitive) == 0;
           });
}

bool setsProperties(const SRule &rule)
{
    return rule.declarations.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive);
}

void addSelector(SSheetScope &scope, const SSelector &selector, const SRule &rule)
{
    const bool isNamed = selector.part.contains(QLatin1Char('#'));
    if (selector.looksAround || (!isNamed && setsProperties(rule)))
        scope.isCommon = false;
    if (selector.looksAround)
        return;
    for (int i = 0; (i = int(selector.part.indexOf(QLatin1Char('#'), i))) >= 0; ++i)
        scope.names << nameAt(selector.part, i + 1).toString();
}

/// The scope of both sheets, kept since it is asked for at each painting.
struct SKnownScope
{
    const QMetaObject *ofClass = nullptr;
    QString ownSheet;
    QString applicationSheet;
    SSheetScope scope;
};

const SSheetScope &knownScope(const QMetaObject &ofClass, const QString &ownSheet,
                              const QString &applicationSheet)
{
    static std::array<SKnownScope, 4> known;
    static std::size_t oldest = 0;
    for (const SKnownScope &one : known) {
        if (one.ofClass == &ofClass && one.ownSheet == ownSheet
            && one.applicationSheet == applicationSheet)
            return one.scope;
    }
    SSheetScope scope = scopeOfSheet(ownSheet, ofClass);
    const SSheetScope more = scopeOfSheet(applicationSheet, ofClass);
    scope.names |= more.names;
    scope.isCommon = scope.isCommon && more.isCommon;
    SKnownScope &place = known.at(oldest);
    oldest = (oldest + 1) % known.size();
    place = {&ofClass, ownSheet, applicationSheet, scope};
    return place.scope;
}

} // namespace

SSheetScope scopeOfSheet(const QString &sheet, const QMetaObject &ofClass)
{
    SSheetScope scope;
    QVector<SRule> rules;
    const QString text = withoutComments(sheet);
    const QStringList elements = elementsOf(ofClass);
    scope.isCommon = takeApart(text, rules);
    for (const SRule &rule : qAsConst(rules)) {
        for (QStringView rest = rule.selectors; !rest.isEmpty();) {
            const SSelector selector = takeSelector(rest);
            if (isOneOf(elements, elementOf(selector.part)))
                addSelector(scope, selector, rule);
        }
    }
    return scope;
}

bool isStyledByClass(const QWidget &button)
{
    for (const QWidget *widget = button.parentWidget(); widget; widget = widget->parentWidget()) {
        if (!widget->styleSheet().isEmpty())
            return false;
    }
    const SSheetScope &scope =
        knownScope(*button.metaObject(), button.styleSheet(), qApp->styleSheet());
    return scope.isCommon && (scope.names.isEmpty() || !scope.names.contains(button.objectName()));
}

} // namespace Vela::UiBase::Internal
