// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/atooltipobject.h"

namespace Vela::UiBase {

class TooltipObjectPrivate;

/// The tooltip of a host widget: it comes up beside the host when the pointer moves onto it and
/// rests, and goes some time after the pointer has left, at once when the host is pressed, disabled
/// or hidden.
///
/// Make one with the host as the parent, give it a content by SetTooltipControl() and attach it:
/// @code
/// auto *tooltip = new TooltipObject(QStringLiteral("my bar"), button);
/// tooltip->SetTooltipControl(ATooltipObject::CreateTooltipControl(tr("Fills holes")), true);
/// tooltip->SetTooltipType(ATooltipObject::ETooltipType::TooltipRight);
/// tooltip->AttachTo(button);
/// @endcode
/// Tool buttons have one of their own. Main thread only.
///
/// docs/tooltips.md tells the timing.
class LUMO_UI_BASE_EXPORT TooltipObject : public ATooltipObject
{
    Q_OBJECT

public:
    /// A tooltip without host. The arguments are those of ATooltipObject.
    TooltipObject(const QString &groupName, QWidget *parent);
    ~TooltipObject() override;

    /// Watches @p host from now on and stands beside it. The host loses its focus policy and gets
    /// mouse tracking. A former host stays as it is, and no longer brings the tooltip up; one
    /// that is up beside it is hidden.
    /// @param host not owned, may die at any time; null and the present host are ignored
    void AttachTo(QWidget *host);
    /// Hides the tooltip and lets go of the host, which keeps its settings.
    void Detach();

    /// Whether the tooltip stays while the pointer is over it or its host, and whether the handlers
    /// of hovering are told.
    void SetEnableHoverEvents(bool enable) override;
    /// Enabled, with a content and a host that is visible.
    bool CanTooltipBeShown() override;
    /// Whether the pointer is over the host or the window of the tooltip; false without a host.
    bool CheckMouseHover() const override;

Q_SIGNALS:
    /// For subclasses and owners to emit; the tooltip itself does not.
    void HostWidgetClicked();

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the tooltip
    TooltipObject(TooltipObjectPrivate &dd, const QString &groupName, QWidget *parent);

    /// The pointer came over the host.
    void EventFilterOnEnter(QObject *watched) override;
    /// The pointer left host or window.
    void EventFilterOnLeave(QObject *watched) override;
    /// The pointer moved over the host: the time until the tooltip comes begins anew.
    void EventFilterOnMouseMove(QObject *watched, QEvent *event) override;
    /// A press on the host hides the tooltip; one on the window is that of ATooltipObject.
    void EventFilterOnMouseButtonPress(QObject *watched, QEvent *event) override;
    /// The tooltip is hidden with its host.
    void EventFilterOnHide(QObject *watched) override;

private:
    Q_DECLARE_PRIVATE(TooltipObject)
    Q_DISABLE_COPY(TooltipObject)
};

} // namespace Vela::UiBase
