// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipex.h"
#include "ui_base/uibaseexport.h"

#include <QObject>
#include <QSize>
#include <QString>

class QLabel;

namespace Vela::UiBase {

/// Makes extended contents, the cards of tooltips and info dialogs, from their texts and pages, and
/// adds pages to them:
/// @code
/// TooltipExFactory &factory = TooltipExFactory::GetInstance();
/// auto *card = static_cast<TooltipEx *>(factory.CreateExtendedTooltip(
///     nullptr, tr("Smooth"), tr("Evens out the surface."), tr("Runs on the selection."), true,
///     300, ATooltipEx::EWidgetExVisibility::ExHidden, QStringLiteral("TooltipEx")));
/// int index = 0;
/// factory.AddStaticPage(card, tr("Borders stay."), QStringLiteral("borders"), index);
/// tooltip->SetTooltipControl(card, true);
/// tooltip->SetEnableHoverEvents(true); // stays while the pointer goes over to it
/// tooltip->SetCustomTooltipDismissTime(500);
/// card->ConnectTo(tooltip);
/// @endcode
/// Whatever cannot be made is null or false, and nothing is taken over then. Main thread only.
class LUMO_UI_BASE_EXPORT TooltipExFactory : public QObject
{
    Q_OBJECT

public:
    /// The one factory. Made at first use and there until the process ends.
    static TooltipExFactory &GetInstance();

    /// Makes a card whose first page is a widget.
    /// @param parent owner of the card; null gives a card that is the caller's
    /// @param title the title of the card
    /// @param content the text of the card
    /// @param advanced taken over as the first page, a custom one; null for a card without pages,
    ///                 which can't get any later
    /// @param alwaysMaxWidth whether the card has @p maxWidth also while the part is closed
    /// @param maxWidth width of the open card in logical pixels
    /// @param visibility when the part is open
    /// @param type the class to make: "TooltipEx" or "InfoDialog"
    /// @return null, with @p advanced left alone, for any other class
    QWidget *CreateExtendedTooltip(QWidget *parent, const QString &title, const QString &content,
                                   QWidget *advanced, bool alwaysMaxWidth, int maxWidth,
                                   ATooltipEx::EWidgetExVisibility visibility, const QString &type);
    /// Makes a card whose first page is the text @p advancedText. All else is as above.
    QWidget *CreateExtendedTooltip(QWidget *parent, const QString &title, const QString &content,
                                   const QString &advancedText, bool alwaysMaxWidth, int maxWidth,
                                   ATooltipEx::EWidgetExVisibility visibility, const QString &type);
    /// Makes a card whose first page is a picture. All else is as above.
    /// @param picturePath file or resource; the variants "@2x" and "@3x" beside it are used on
    ///                    screens that show more pixels. The card has no pages when there is no
    ///                    picture in it
    /// @param size the room that the picture is fitted into, in its own proportions; no picture gets
    ///             larger than 8192 device pixels
    QWidget *CreateExtendedTooltip(QWidget *parent, const QString &title, const QString &content,
                                   const QString &picturePath, const QSize &size,
                                   bool alwaysMaxWidth, int maxWidth,
                                   ATooltipEx::EWidgetExVisibility visibility, const QString &type);

    /// Adds a page of text to the end of a card's pages, in the width of the card.
    /// @param tooltip the card; null is refused, and so is one that was made without a first page
    /// @param text plain text; rich text is measured as if it were plain
    /// @param keyword written into the page's property "keyword"
    /// @param index receives the index of the page; untouched on failure
    bool AddStaticPage(ATooltipEx *tooltip, const QString &text, const QString &keyword,
                       int &index);
    /// Adds a picture as a page. False also for a file that is missing or damaged.
    bool AddStaticPage(ATooltipEx *tooltip, const QString &picturePath, const QSize &size,
                       const QString &keyword, int &index);
    /// Adds a widget as a page.
    /// @param widget taken over unless the call fails; null is refused
    /// @param type how the page takes the width of the card
    bool AddStaticPage(ATooltipEx *tooltip, QWidget *widget, const QString &keyword, int &index,
                       ATooltipEx::EWidgetType type);

private:
    TooltipExFactory();
    ~TooltipExFactory() override;

    Q_DISABLE_COPY(TooltipExFactory)
};

} // namespace Vela::UiBase
