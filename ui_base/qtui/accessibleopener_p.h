// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAccessibleWidget>

#include <functional>

class QAbstractButton;

namespace Vela::UiBase::Internal {

/// What assistive tools see of a button that opens something: what that is, whether it is open, and
/// an action that opens and closes it. Qt knows this of buttons with a QMenu only, and of those that
/// open it on a press it offers nothing to be done.
class AccessibleOpener : public QAccessibleWidget
{
public:
    enum class EKind {
        Menu,   ///< of entries or buttons
        Popup,  ///< a panel in a window of its own
        Section ///< of the window that the button is in
    };
    struct SOpened
    {
        QWidget *widget = nullptr; ///< null for a button that opens nothing at the time
        EKind kind = EKind::Menu;
    };
    /// Answers what the button opens.
    using Opens = std::function<SOpened()>;

    AccessibleOpener(QAbstractButton &button, Opens opens);

    /// To be called when what @p button opens was shown or hidden, so that a screen reader says so.
    static void tellState(QAbstractButton &button, bool isOpen);

    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text type) const override;

    QStringList actionNames() const override;
    /// Acts later, since what opens may run an event loop of its own.
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    QAbstractButton &button() const;
    QString mainAction() const;
    /// The menu where it belongs to the button, as that of a bar does.
    QWidget *ownMenu() const;

    const Opens m_opens;
};

} // namespace Vela::UiBase::Internal
