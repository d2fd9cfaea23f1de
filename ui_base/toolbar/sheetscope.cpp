// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/sheetscope_p.h"

#include <QApplication>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <algorithm>
#include <array>

namespace Vela::UiBase::Internal {
namespace {

struct SRule
{
    QStringRef selectors;
    QStringRef declarations;
};

// Where the two characters stand beside each other. Qt searches for one character much faster than
// for a text.
int indexOfPair(const QString &sheet, char first, char second, int begin)
{
    int place = sheet.indexOf(QLatin1Char(first), begin);
    while (place >= 0 && sheet.midRef(place + 1, 1) != QLatin1Char(second))
        place = sheet.indexOf(QLatin1Char(first), place + 1);
    return place;
}

QString withoutComments(const QString &sheet)
{
    QString rest;
    rest.reserve(sheet.size());
    int begin = 0;
    while (begin >= 0) {
        const int comment = indexOfPair(sheet, '/', '*', begin);
        rest += sheet.midRef(begin, comment < 0 ? -1 : comment - begin);
        const int end = comment < 0 ? -1 : indexOfPair(sheet, '*', '/', comment + 2);
        begin = end < 0 ? -1 : end + 2;
    }
    return rest;
}

// False when there is more than plain rules.
bool takeApart(const QString &sheet, QVector<SRule> &rules)
{
    int begin = 0;
    for (int open = 0; (open = sheet.indexOf(QLatin1Char('{'), begin)) >= 0;) {
        const int close = sheet.indexOf(QLatin1Char('}'), begin);
        const QStringRef selectors = sheet.midRef(begin, open - begin);
        const QStringRef declarations = sheet.midRef(open + 1, close - open - 1);
        if (close < open || declarations.contains(QLatin1Char('{'))
            || selectors.contains(QLatin1Char('@')))
            return false;
        rules.push_back({selectors, declarations});
        begin = close + 1;
    }
    return sheet.midRef(begin).trimmed().isEmpty();
}

bool isOfName(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_')
        || character == QLatin1Char('-');
}

QStringRef nameAt(const QStringRef &text, int begin)
{
    int end = begin;
    while (end < text.size() && isOfName(text.at(end)))
        ++end;
    return text.mid(begin, end - begin);
}

// Where the last part begins, which is the one for the selected widget itself.
int lastPart(const QStringRef &selector)
{
    int begin = 0;
    bool isInBrackets = false;
    for (int i = 0; i < selector.size(); ++i) {
        const QChar character = selector.at(i);
        if (character == QLatin1Char('[') || character == QLatin1Char(']'))
            isInBrackets = character == QLatin1Char('[');
        else if (!isInBrackets && (character.isSpace() || character == QLatin1Char('>')))
            begin = i + 1;
    }
    return begin;
}

QStringRef elementOf(const QStringRef &part)
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

bool isOneOf(const QStringList &elements, const QStringRef &element)
{
    return element.isEmpty()
        || std::any_of(elements.cbegin(), elements.cend(), [&element](const QString &name) {
               return element.size() == name.size()
                   && element.compare(name, Qt::CaseInsensitive) == 0;
           });
}

bool setsProperties(const SRule &rule)
{
    return rule.declarations.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive);
}

void addSelector(SSheetScope &scope, const QStringRef &selector, int lastPart, const SRule &rule)
{
    const QStringRef part = selector.mid(lastPart);
    const bool looksAround = lastPart > 0 || selector.contains(QLatin1Char('['));
    if (looksAround || (!part.contains(QLatin1Char('#')) && setsProperties(rule)))
        scope.isCommon = false;
    if (looksAround)
        return;
    for (int i = 0; (i = part.indexOf(QLatin1Char('#'), i)) >= 0; ++i)
        scope.names << nameAt(part, i + 1).toString();
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
        for (const QStringRef &part : rule.selectors.split(QLatin1Char(','))) {
            const QStringRef selector = part.trimmed();
            const int last = lastPart(selector);
            if (isOneOf(elements, elementOf(selector.mid(last))))
                addSelector(scope, selector, last, rule);
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
