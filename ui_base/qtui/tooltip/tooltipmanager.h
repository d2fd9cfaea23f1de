// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QObject>
#include <QString>

#include <memory>

class QWidget;

namespace Vela::UiBase {

class ATooltipObject;
class TooltipManagerPrivate;

/// The register of all tooltips by group. It sees to it that two tooltips of one group are never up
/// together: one that appears clears the others at once. It also tells the view that bounds a
/// tooltip.
///
/// Tooltips register themselves and leave when they die; hosts rarely call this. The manager owns
/// none of them. Main thread only.
///
/// docs/tooltips.md tells how groups are used.
class LUMO_UI_BASE_EXPORT TooltipManager : public QObject
{
    Q_OBJECT

public:
    /// An empty register of its own, beside the one of the process.
    explicit TooltipManager(QObject *parent);
    ~TooltipManager() override;

    /// The register that tooltips use. Made at first use and there until the process ends.
    static TooltipManager &GetInstance();

    /// Enters @p tooltip at the end of @p group, unless it is in it already. A tooltip may be in
    /// several groups. The empty name is a group like others here, but its members do not clear
    /// each other and RemoveTooltip() does not find them.
    /// @param tooltip not owned; null is ignored
    void AddTooltip(ATooltipObject *tooltip, const QString &group);
    /// Takes @p tooltip out of the first group with a name, in alphabetical order, that it is in.
    /// Unknown tooltips and null are ignored. A tooltip that dies leaves all of its groups, also
    /// the one without a name.
    void RemoveTooltip(ATooltipObject *tooltip);

    /// Hides all tooltips of @p group but one, also those that are hidden already. What that runs
    /// may change the register and delete tooltips: those that were in the group at the time of the
    /// call and are still alive are hidden.
    /// @param except the one to leave alone; may be null
    /// @param group an empty name stands for the first named group that @p except is in; nothing
    ///              happens for an unknown one
    void HideAllTooltipsInGroupExcept(ATooltipObject *except, const QString &group);

    /// The widget of the view that @p tooltip has to stay in: the nearest one with a BaseView,
    /// going up from the tooltip's parent. From a widget that floats the way goes on at the parent
    /// that it had before.
    /// @return null for null, when the tooltip's parent is no widget, and outside of any view
    QWidget *getRootViewOfTooltip(ATooltipObject *tooltip);

protected:
    /// For subclasses with a private class of their own.
    /// @param dd taken over and deleted by the manager
    TooltipManager(TooltipManagerPrivate &dd, QObject *parent);

    /// The state of the manager.
    const std::unique_ptr<TooltipManagerPrivate> d_ptr;

private:
    friend class ATooltipObject;
    void forget(ATooltipObject *tooltip);

    Q_DECLARE_PRIVATE(TooltipManager)
    Q_DISABLE_COPY(TooltipManager)
};

} // namespace Vela::UiBase
