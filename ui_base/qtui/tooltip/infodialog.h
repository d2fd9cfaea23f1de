// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipex.h"

namespace Vela::UiBase {

class InfoDialogPrivate;

/// A small panel of pages with a close button, as it hangs beneath a flyout. Its advanced part is
/// all there is of it, and is always open; it does not turn pages by itself.
///
/// TooltipExFactory makes one; its owner shows, places and hides it. Main thread only.
class LUMO_UI_BASE_EXPORT InfoDialog : public ATooltipEx
{
    Q_OBJECT

public:
    /// An empty panel.
    explicit InfoDialog(QWidget *parent = nullptr);
    ~InfoDialog() override;

    /// The margins of the top of the panel and of the part, left and right.
    int GetAdvancedWidgetMargins() const override;
    /// Fills the panel. Title, content and visibility are not used.
    /// \sa ATooltipEx::SetParams()
    void SetParams(const QString &title, const QString &content, QStackedWidget *advanced,
                   bool alwaysMaxWidth, int maxWidth, EWidgetExVisibility visibility) override;
    /// Does nothing: the part does not close.
    void SetHeightOnAdvancedWidgetHidden(int width) override;
    /// True, also while the panel is hidden.
    bool IsAdvancedWidgetVisible() const override;

Q_SIGNALS:
    /// The panel was shown or hidden, by whomever.
    void VisibilityChanged(bool visible);

protected:
    /// On a change of language the form's own texts follow; those that were set stay.
    void changeEvent(QEvent *event) override;
    void OnAdvancedWidgetVisibilityChange(bool visible) override;
    void AddWidgetToLayout(QWidget *stack) override;

    /// Paints the rounded ground and its outline.
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

protected Q_SLOTS:
    /// Hides the panel. The form looks this slot up by its name.
    void on_close_button_clicked();

private:
    Q_DECLARE_PRIVATE(InfoDialog)
    Q_DISABLE_COPY(InfoDialog)
};

} // namespace Vela::UiBase
