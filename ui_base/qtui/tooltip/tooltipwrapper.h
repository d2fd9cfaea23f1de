// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipobject.h"

class QPoint;

namespace Vela::UiBase {

class TooltipWrapperPrivate;

/// A tooltip that is shown on request, at a point or beside a widget, and watches no host: a remark
/// at a vertex that was just picked, a hint beside a field. It goes with its parent when that is
/// hidden.
///
/// The content may hear UpdateTooltipText(), as DefaultTooltip does by its slot onUpdateTooltip().
/// Main thread only.
///
/// docs/tooltips.md shows one.
class LUMO_UI_BASE_EXPORT TooltipWrapper : public ATooltipObject
{
    Q_OBJECT

public:
    /// How a tooltip that was shown goes again.
    enum class ETooltipShowUpType : int {
        ShowUpAutoDismiss = 0,  ///< after 20 seconds
        ShowUpManualDismiss = 1 ///< with DelayHide() or ForceHideTooltip() only
    };

    /// A tooltip without content. The arguments are those of ATooltipObject.
    TooltipWrapper(const QString &groupName, QWidget *parent);
    ~TooltipWrapper() override;

    /// Brings the tooltip up. Without a content nothing appears.
    /// @param point where the arrow points, in global coordinates
    /// @param useRefPoint whether @p point is used; if not, the tooltip stands where the reference
    ///                    of GetPosCalculator() is, which is the last point unless it was changed
    /// @param type a manual one also ends the time of an automatic one before
    void Show(const QPoint &point, bool useRefPoint, ETooltipShowUpType type);
    /// Hides the tooltip after the dismiss time, see SetCustomTooltipDismissTime().
    void DelayHide();
    /// Asks the content for another text: emits UpdateTooltipText().
    void UpdateText(const QString &text);

Q_SIGNALS:
    /// The content has to show this text.
    void UpdateTooltipText(QString text);

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the tooltip
    TooltipWrapper(TooltipWrapperPrivate &dd, const QString &groupName, QWidget *parent);

    /// Hides the tooltip.
    void EventFilterOnHide(QObject *watched) override;

private:
    Q_DECLARE_PRIVATE(TooltipWrapper)
    Q_DISABLE_COPY(TooltipWrapper)
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::TooltipWrapper::ETooltipShowUpType)
