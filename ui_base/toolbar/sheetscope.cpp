// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/sheetscope_p.h"

#include <QApplication>
#include <QRegularExpression>
#include <QWidget>

#include <array>

namespace Vela::UiBase::Internal {
namespace {

struct SRule
{
    QString selectors;
    QString declarations;
};

/// A selector taken apart as far as it matters here.
struct SSelector
{
    QString element; // of the widget it selects; empty or "*" for any
    QSet<QString> names;
    bool looksAround = false; // at other widgets, or at properties
};

QString withoutComments(QString sheet)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return sheet.remove(comment);
}

// False when there is more than plain rules.
bool takeApart(const QString &sheet, QVector<SRule> &rules)
{
    static const QRegularExpression rule(QStringLiteral("([^{}]*)\\{([^{}]*)\\}"));
    int end = 0;
    for (auto it = rule.globalMatch(sheet); it.hasNext();) {
        const QRegularExpressionMatch match = it.next();
        if (match.capturedStart() != end || match.captured(1).contains(QLatin1Char('@')))
            return false;
        rules.push_back({match.captured(1), match.captured(2)});
        end = match.capturedEnd();
    }
    return sheet.midRef(end).trimmed().isEmpty();
}

SSelector parsed(QString selector)
{
    static const QRegularExpression brackets(QStringLiteral("\\[[^\\]]*\\]?"));
    static const QRegularExpression gap(QStringLiteral("[\\s>]+"));
    static const QRegularExpression element(QStringLiteral("^\\.?([\\w-]*)"));
    static const QRegularExpression name(QStringLiteral("#([\\w-]+)"));
    SSelector result;
    const bool hasProperty = selector.contains(QLatin1Char('['));
    const QStringList parts = selector.remove(brackets).trimmed().split(gap);
    result.looksAround = hasProperty || parts.size() > 1;
    result.element = element.match(parts.last()).captured(1);
    for (auto it = name.globalMatch(parts.last()); it.hasNext();)
        result.names << it.next().captured(1);
    return result;
}

bool isOfElement(const QMetaObject &ofClass, const QString &element)
{
    if (element.isEmpty())
        return true;
    for (const QMetaObject *level = &ofClass; level; level = level->superClass()) {
        const QString name =
            QString::fromLatin1(level->className()).replace(QLatin1Char(':'), QLatin1Char('-'));
        if (name.compare(element, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

void addSelector(SSheetScope &scope, const SSelector &selector, bool setsProperties)
{
    if (selector.looksAround)
        scope.isCommon = false;
    else if (!selector.names.isEmpty())
        scope.names |= selector.names;
    else if (setsProperties)
        scope.isCommon = false;
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
    scope.isCommon = takeApart(withoutComments(sheet), rules);
    for (const SRule &rule : qAsConst(rules)) {
        const bool setsProperties =
            rule.declarations.contains(QLatin1String("qproperty-"), Qt::CaseInsensitive);
        for (const QString &text : rule.selectors.split(QLatin1Char(','))) {
            const SSelector selector = parsed(text);
            if (isOfElement(ofClass, selector.element))
                addSelector(scope, selector, setsProperties);
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
