// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/icontype.h"
#include "ui_base/uibaseexport.h"

#include <QAction>
#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>

#include <memory>

class QWidget;

namespace Vela::UiBase {

class FlyoutBase;
class IIconProvider;
class MDialogBase;
class QtUiToolkitPrivate;

/// The factory of the Qt objects that the library and its hosts share a look for: icons by name,
/// actions with such icons and flyouts. Where icons come from is up to its icon provider.
///
/// There is one per process. Main thread only.
class LUMO_UI_BASE_EXPORT QtUiToolkit
{
public:
    virtual ~QtUiToolkit();

    /// The one instance, made on first use with a DefaultIconProvider; it needs no application
    /// object. It ends with the process, among the objects of static storage. Whoever asks later
    /// than that gets a stand-in with a default provider, so the call is always safe.
    static QtUiToolkit &Instance();

    /// The instance, made on first use; null once it has ended. For destructors that may run at the
    /// end of the process.
    static QtUiToolkit *InstanceIfAlive();

    /// Replaces the icon provider and deletes the old one. Null is ignored.
    /// @param provider is owned from now on
    virtual void IconProvider(IIconProvider *provider);

    /// The provider in use, owned by the toolkit; never null.
    virtual IIconProvider *IconProvider() const;

    /// Asks the provider for the icon @p name; see IIconProvider::CreateIcon().
    virtual QIcon CreateIcon(const QString &name, QAction *action, EIconType type,
                             const QSize &size) const;

    /// Asks the provider for the icon @p name from bitmaps in their own size.
    virtual QIcon CreateIcon(const QString &name) const;

    /// Has the provider give @p action its icon in the logical size @p size; null is ignored.
    virtual void UpdateIconSize(QAction *action, const QSize &size);

    /// Has the provider make @p icon again in the logical size @p size.
    virtual QIcon UpdateIconSize(const QIcon &icon, const QSize &size);

    /// Makes an action.
    /// @param iconName name for CreateIcon(); empty for an action without an icon
    /// @param text the action's text
    /// @param parent owns the action; with null the caller does
    /// @param shortcut is set unless it is empty
    /// @param receiver whose slot triggered() is connected to; null connects nothing
    /// @param slot the slot as SLOT() writes it; null connects nothing
    /// @param role where a platform with a menu of its own puts the action
    virtual QAction *CreateAction(const QString &iconName, const QString &text, QObject *parent,
                                  const QKeySequence &shortcut = {}, QObject *receiver = nullptr,
                                  const char *slot = nullptr,
                                  QAction::MenuRole role = QAction::TextHeuristicRole) const;

    /// Enables or disables every action of @p actions whose text is exactly @p text. Null entries
    /// are passed over, and so is an action that dies while others change.
    virtual void EnableAction(QList<QAction *> actions, const QString &text, bool enable);

    /// Returns the first action of @p widget whose text is exactly @p text, or null when there is
    /// none, @p widget is null or @p text is empty.
    QAction *FindAction(const QWidget *widget, const QString &text) const;

    /// Makes a settings panel around @p mainPanel. It can take the focus also by the wheel, and it
    /// alone is marked with the property Resource::String::WIDGET_PROPERTY_ISFLYOUT.
    /// @param title text of the title row and of the window title
    /// @param mainPanel taken over; null throws std::runtime_error("main panel cannot be null.")
    ///                  and leaves everything as it was
    /// @param advancedPanel taken over and folded; null for a flyout without one
    /// @param closeButton,cancelButton,applyButton,resetButton which buttons there are
    /// @param parent owner of the flyout; with null the caller is
    /// @return null when there is no memory for it; the panels are then where they were
    FlyoutBase *CreateFlyout(const QString &title, QWidget *mainPanel, QWidget *advancedPanel,
                             bool closeButton, bool cancelButton, bool applyButton,
                             bool resetButton, QWidget *parent) const;
    /// Makes a settings panel with a strip for information. The property that marks a flyout is set
    /// on it and on all widgets in it. All else is as above, but for the reset button, which gets
    /// no picture here.
    /// @param infoText the strip is shown unless this is empty; the text itself is not shown
    FlyoutBase *CreateFlyout(QWidget *parent, const QString &title, QWidget *mainPanel,
                             const QString &infoText, bool closeButton, bool cancelButton,
                             bool applyButton, bool resetButton, QWidget *advancedPanel) const;

    /// Makes a dialog around a settings panel, which CreateFlyout() makes of the same arguments.
    /// @param parent the window that the dialog stands before, and its owner; with null the caller
    ///               is
    /// @param mainPanel taken over; null throws std::runtime_error("main panel cannot be null.")
    ///                  and leaves everything as it was
    /// @return null when there is no memory for it; a dialog without a flyout when there is none for
    ///         that. The panels are then where they were
    MDialogBase *CreateFlyoutDialog(QWidget *parent, const QString &title, QWidget *mainPanel,
                                    QWidget *advancedPanel, bool closeButton, bool cancelButton,
                                    bool applyButton, bool resetButton) const;
    /// Makes a dialog around a settings panel with a strip for information. All else is as above.
    /// @param infoText the strip is shown unless this is empty; assistive tools get the text as
    ///                 description of the dialog
    MDialogBase *CreateFlyoutDialog(QWidget *parent, const QString &title, QWidget *mainPanel,
                                    const QString &infoText, bool closeButton, bool cancelButton,
                                    bool applyButton, bool resetButton,
                                    QWidget *advancedPanel) const;

protected:
    QtUiToolkit();

private:
    const std::unique_ptr<QtUiToolkitPrivate> d;
    Q_DISABLE_COPY(QtUiToolkit)
};

} // namespace Vela::UiBase
