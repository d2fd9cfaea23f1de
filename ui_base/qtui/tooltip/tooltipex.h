// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipex.h"

namespace Vela::UiBase {

class TooltipExPrivate;

/// The card of an extended tooltip: a title with an information icon, a text, the advanced part and
/// a footer that promises help. The part opens when the pointer moves over the icon; a click on the
/// card opens and closes it, so let the click not dismiss the tooltip
/// (ATooltipObject::SetClickToDismissTooltip()).
///
/// TooltipExFactory makes one from its texts. Give it to a tooltip as the content and link the two
/// with ConnectTo(). Main thread only.
///
/// docs/tooltips.md shows one.
class LUMO_UI_BASE_EXPORT TooltipEx : public ATooltipEx
{
    Q_OBJECT

public:
    /// A card with placeholders for its texts.
    explicit TooltipEx(QWidget *parent = nullptr);
    ~TooltipEx() override;

    /// The margins of the top of the card and of the part, left and right.
    int GetAdvancedWidgetMargins() const override;
    /// Fills the card and opens or closes its part. \sa ATooltipEx::SetParams()
    void SetParams(const QString &title, const QString &content, QStackedWidget *advanced,
                   bool alwaysMaxWidth, int maxWidth, EWidgetExVisibility visibility) override;
    /// Fixes the height at what title, text and footer need.
    void SetHeightOnAdvancedWidgetHidden(int width) override;
    /// Whether the part is open and the card is up.
    bool IsAdvancedWidgetVisible() const override;

    /// Opens the part when the pointer moves over the information icon.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// On a change of language the form's own texts follow; those that were set stay.
    void changeEvent(QEvent *event) override;
    /// Leaves the corners of the card clear.
    void showEvent(QShowEvent *event) override;
    void OnAdvancedWidgetVisibilityChange(bool visible) override;
    void AddWidgetToLayout(QWidget *stack) override;

private:
    Q_DECLARE_PRIVATE(TooltipEx)
    Q_DISABLE_COPY(TooltipEx)
};

} // namespace Vela::UiBase
