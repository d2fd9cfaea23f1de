// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipexfactory.h"

#include "ui_base/qtui/devicepixmap_p.h"
#include "ui_base/qtui/tooltip/infodialog.h"
#include "ui_base/qtui/tooltip/tooltipex.h"

#include <QLabel>
#include <QStackedWidget>
#include <QVariant>

#include <memory>

namespace Vela::UiBase {
namespace {

using EWidgetType = ATooltipEx::EWidgetType;
using EWidgetExVisibility = ATooltipEx::EWidgetExVisibility;

QLabel *CreateWidgetFromText(const QString &text)
{
    auto *const label = new QLabel(text);
    label->setFocusPolicy(Qt::NoFocus);
    label->setAlignment(Qt::AlignJustify | Qt::AlignVCenter);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    return label;
}

// More pixels than any screen has would only cost memory, and with many more of them there is none.
QSize seenRoom(const QSize &size, qreal ratio)
{
    return size.boundedTo(QSize(8192, 8192) / ratio);
}

// Null when there is nothing to show.
QLabel *CreateWidgetFromPicture(const QString &path, const QSize &size)
{
    // The page has no screen yet.
    const qreal ratio = Internal::highestDevicePixelRatio();
    const QPixmap picture =
        Internal::fitted(Internal::loadPixmap(path, ratio), seenRoom(size, ratio), ratio);
    if (picture.isNull())
        return nullptr;
    auto *const label = new QLabel;
    label->setFocusPolicy(Qt::NoFocus);
    label->setPixmap(picture);
    // A narrower page makes the label smaller than its picture.
    label->setScaledContents(true);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return label;
}

void SetWidgetProperties(QWidget *page, EWidgetType type, const QString &keyword)
{
    page->setProperty("widget_type", QVariant::fromValue(type));
    page->setProperty("keyword", keyword);
    page->setProperty("original_size", page->size());
}

QStackedWidget *InternalCreateAdvancedWidget(QWidget *page)
{
    if (!page)
        return nullptr;
    auto *const stack = new QStackedWidget;
    stack->setFocusPolicy(Qt::NoFocus);
    stack->addWidget(page);
    return stack;
}

ATooltipEx *makeCard(const QString &type, QWidget *parent)
{
    if (type == QLatin1String("TooltipEx"))
        return new TooltipEx(parent);
    if (type == QLatin1String("InfoDialog"))
        return new InfoDialog(parent);
    return nullptr;
}

struct SCardParams
{
    const QString &title;
    const QString &content;
    bool alwaysMaxWidth;
    int maxWidth;
    EWidgetExVisibility visibility;
};

QWidget *InternalCreateExtendedTooltip(ATooltipEx *card, const SCardParams &params, QWidget *page,
                                       EWidgetType type)
{
    if (page)
        SetWidgetProperties(page, type, QString());
    card->setFocusPolicy(Qt::NoFocus);
    card->SetParams(params.title, params.content, InternalCreateAdvancedWidget(page),
                    params.alwaysMaxWidth, params.maxWidth, params.visibility);
    return card;
}

bool addPage(ATooltipEx &card, QWidget *page, EWidgetType type, const QString &keyword, int &index)
{
    SetWidgetProperties(page, type, keyword);
    index = card.AdvancedWidgets()->addWidget(page);
    card.SetAdvancedWidgetWidth(page);
    return true;
}

bool takesPages(const ATooltipEx *card)
{
    return card && card->AdvancedWidgets();
}

} // namespace

TooltipExFactory::TooltipExFactory() = default;

TooltipExFactory::~TooltipExFactory() = default;

TooltipExFactory &TooltipExFactory::GetInstance()
{
    static auto *const instance = new TooltipExFactory;
    return *instance;
}

QWidget *TooltipExFactory::CreateExtendedTooltip(QWidget *parent, const QString &title,
                                                 const QString &content, QWidget *advanced,
                                                 bool alwaysMaxWidth, int maxWidth,
                                                 EWidgetExVisibility visibility,
                                                 const QString &type)
{
    ATooltipEx *const card = makeCard(type, parent);
    if (!card)
        return nullptr;
    return InternalCreateExtendedTooltip(card,
                                         {title, content, alwaysMaxWidth, maxWidth, visibility},
                                         advanced, EWidgetType::Custom);
}

QWidget *TooltipExFactory::CreateExtendedTooltip(QWidget *parent, const QString &title,
                                                 const QString &content,
                                                 const QString &advancedText, bool alwaysMaxWidth,
                                                 int maxWidth, EWidgetExVisibility visibility,
                                                 const QString &type)
{
    ATooltipEx *const card = makeCard(type, parent);
    if (!card)
        return nullptr;
    return InternalCreateExtendedTooltip(card,
                                         {title, content, alwaysMaxWidth, maxWidth, visibility},
                                         CreateWidgetFromText(advancedText), EWidgetType::Text);
}

QWidget *TooltipExFactory::CreateExtendedTooltip(QWidget *parent, const QString &title,
                                                 const QString &content, const QString &picturePath,
                                                 const QSize &size, bool alwaysMaxWidth,
                                                 int maxWidth, EWidgetExVisibility visibility,
                                                 const QString &type)
{
    ATooltipEx *const card = makeCard(type, parent);
    if (!card)
        return nullptr;
    return InternalCreateExtendedTooltip(
        card, {title, content, alwaysMaxWidth, maxWidth, visibility},
        CreateWidgetFromPicture(picturePath, size), EWidgetType::Picture);
}

bool TooltipExFactory::AddStaticPage(ATooltipEx *tooltip, const QString &text,
                                     const QString &keyword, int &index)
{
    return takesPages(tooltip)
        && addPage(*tooltip, CreateWidgetFromText(text), EWidgetType::Text, keyword, index);
}

bool TooltipExFactory::AddStaticPage(ATooltipEx *tooltip, const QString &picturePath,
                                     const QSize &size, const QString &keyword, int &index)
{
    if (!takesPages(tooltip))
        return false;
    QWidget *const page = CreateWidgetFromPicture(picturePath, size);
    return page && addPage(*tooltip, page, EWidgetType::Picture, keyword, index);
}

bool TooltipExFactory::AddStaticPage(ATooltipEx *tooltip, QWidget *widget, const QString &keyword,
                                     int &index, EWidgetType type)
{
    return widget && takesPages(tooltip) && addPage(*tooltip, widget, type, keyword, index);
}

} // namespace Vela::UiBase
