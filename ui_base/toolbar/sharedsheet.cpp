// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/sharedsheet_p.h"

#include "ui_base/toolbar/sheetscope_p.h"

#include <QApplication>
#include <QPalette>
#include <QPointer>
#include <QStyle>
#include <QVector>
#include <QWidget>

#include <algorithm>

namespace Vela::UiBase::Internal {
namespace {

// The classes of buttons, in both palettes.
constexpr int mostModels = 8;

/// All that polishing depends on for a button that the sheets treat like others of its class.
struct SKind
{
    const QMetaObject *ofClass = nullptr;
    QPointer<QStyle> style;
    QPointer<QStyle> base;
    QString sheet;
    QString applicationSheet;
    qint64 palette = 0;

    bool operator==(const SKind &other) const
    {
        return ofClass == other.ofClass && style && style == other.style && base
            && base == other.base && palette == other.palette && sheet == other.sheet
            && applicationSheet == other.applicationSheet;
    }
};

/// What polishing changed at a button.
struct SModel
{
    SKind kind;
    bool isHovered = false; // hears of the pointer
    QPalette palette;
};

QVector<SModel> &models()
{
    static QVector<SModel> known;
    return known;
}

bool isSheetStyle(const QStyle *style)
{
    return style && style->inherits("QStyleSheetStyle");
}

// What paints beside the sheets. The sheet of the application stands on a style that is its child.
QStyle *baseStyle()
{
    QStyle *const style = QApplication::style();
    return isSheetStyle(style) ? style->findChild<QStyle *>(QString(), Qt::FindDirectChildrenOnly)
                               : style;
}

SKind kindOf(const QWidget &button)
{
    return {button.metaObject(), button.style(),     baseStyle(),
            button.styleSheet(), qApp->styleSheet(), button.palette().cacheKey()};
}

bool hasUsualSurroundings(const QWidget &button)
{
    return !button.testAttribute(Qt::WA_SetPalette) && !button.testAttribute(Qt::WA_SetStyle)
        && !QCoreApplication::testAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles)
        && isSheetStyle(button.style()) && isStyledByClass(button)
        && QApplication::font(&button) == QApplication::font()
        && QApplication::palette(&button) == QApplication::palette();
}

/// What nothing but polishing may change, for the sheet may do more than is taken over.
struct SLayoutTraits
{
    explicit SLayoutTraits(const QWidget &button)
        : smallest(button.minimumSize())
        , largest(button.maximumSize())
        , font(button.font())
        , isOpaque(button.testAttribute(Qt::WA_OpaquePaintEvent))
        , isFilled(button.autoFillBackground())
        , isStyled(button.testAttribute(Qt::WA_StyledBackground))
    { }

    bool operator==(const SLayoutTraits &other) const
    {
        return smallest == other.smallest && largest == other.largest && font == other.font
            && isOpaque == other.isOpaque && isFilled == other.isFilled
            && isStyled == other.isStyled;
    }

    QSize smallest;
    QSize largest;
    QFont font;
    bool isOpaque;
    bool isFilled;
    bool isStyled;
};

void learnFrom(QWidget &button, const SKind &kind, const std::function<void()> &polish)
{
    const SLayoutTraits before(button);
    polish();
    if (!(SLayoutTraits(button) == before))
        return;
    if (models().size() >= mostModels)
        models().removeFirst();
    models() << SModel {kind, button.testAttribute(Qt::WA_Hover), button.palette()};
}

void becomeLike(QWidget &button, const SModel &model)
{
    model.kind.base->polish(&button);
    if (model.isHovered)
        button.setAttribute(Qt::WA_Hover);
    if (model.palette.resolve() != 0)
        button.setPalette(model.palette);
    button.setAttribute(Qt::WA_WState_Polished);
}

} // namespace

void setSharedSheet(QWidget &button, const QString &sheet)
{
    static QPointer<QStyle> shared;
    const bool hasStyle = button.style() != QApplication::style();
    if (!hasStyle && shared) {
        // Qt counts the widgets that share a style for sheets, as those do that inherit one.
        button.setStyle(shared);
        button.setAttribute(Qt::WA_SetStyle, false);
    }
    button.setStyleSheet(sheet);
    if (!hasStyle && !shared && isSheetStyle(button.style()))
        shared = button.style();
}

bool polishAlike(QWidget &button, const std::function<void()> &polish)
{
    if (!hasUsualSurroundings(button)) {
        polish();
        return false;
    }
    const SKind kind = kindOf(button);
    const auto model = std::find_if(models().cbegin(), models().cend(),
                                    [&kind](const SModel &known) { return known.kind == kind; });
    if (model == models().cend()) {
        learnFrom(button, kind, polish);
        return false;
    }
    const SModel known = *model;
    becomeLike(button, known);
    return true;
}

void polishInFull(QWidget &button)
{
    // Qt may have polished it by itself, starting from the palette that was taken over.
    if (button.testAttribute(Qt::WA_StyleSheetTarget))
        button.style()->unpolish(&button);
    button.setPalette(QPalette());
    button.style()->polish(&button);
}

} // namespace Vela::UiBase::Internal
