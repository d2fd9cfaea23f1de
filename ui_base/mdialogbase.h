// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/popup/direction.h"
#include "ui_base/uibaseexport.h"

#include <QDialog>

#include <memory>

class QAbstractButton;
class QMouseEvent;
class QToolButton;

namespace Vela::UiBase {

class FlyoutBase;
class MDialogBasePrivate;
class QtUiToolkit;

/// A settings panel as a dialog: a FlyoutBase in a window without a frame, which the user moves by
/// the title row. It is always exactly as large as its flyout, also while that grows and shrinks.
///
/// QtUiToolkit::CreateFlyoutDialog() makes one. What its user does is told by the signals of the
/// flyout, the child of the name "mdialogflyout":
///
/// @code
/// MDialogBase *dialog =
///     QtUiToolkit::Instance().CreateFlyoutDialog(this, tr("Smooth"), panel, nullptr, true, true,
///                                                true, false);
/// const auto *flyout = dialog->findChild<FlyoutBase *>(QStringLiteral("mdialogflyout"));
/// connect(flyout, &FlyoutBase::ApplyChanges, this, &Smoother::run);
/// dialog->show();
/// @endcode
///
/// The close button and the cancel button of the flyout reject the dialog, as Escape does; the apply
/// button leaves it open. Return presses the apply button unless another button has the focus. The
/// dialog carries the title of the flyout as window title.
///
/// It stands where its owner moves it to, or at its reference point; otherwise the window system
/// places it. Owned as any dialog, by its parent or by its maker. Without a flyout, when there was
/// no memory for one or it has died, the operations that speak of it do nothing and answer neutrally.
/// Main thread only. For a message or a question there is UiToolkit::TaskDialog.
///
/// docs/dialogs.md tells more.
class LUMO_UI_BASE_EXPORT MDialogBase : public QDialog
{
    Q_OBJECT

public:
    ~MDialogBase() override;

    /// \sa FlyoutBase::MainPanel()
    QWidget *MainPanel() const;
    /// \sa FlyoutBase::AdvancedPanel()
    QWidget *AdvancedPanel() const;
    /// \sa FlyoutBase::InfoDialog()
    QWidget *InfoDialog() const;

    /// \sa FlyoutBase::ToolButton()
    QToolButton *ToolButton() const;
    /// \sa FlyoutBase::SetToolButton()
    void SetToolButton(QToolButton *button);

    /// The text of the title row; empty without a flyout.
    QString Title() const;
    /// Sets the text of the title row and of the window title. What the dialog is moved by is worked
    /// out when it is shown.
    void SetTitle(const QString &title);

    /// \sa FlyoutBase::SetCloseButtonVisible()
    void SetCloseButtonVisible(bool visible);
    /// \sa FlyoutBase::SetApplyButtonVisible()
    void SetApplyButtonVisible(bool visible);
    /// \sa FlyoutBase::SetCancelButtonVisible()
    void SetCancelButtonVisible(bool visible);
    /// \sa FlyoutBase::SetApplyButtonText()
    void SetApplyButtonText(const QString &text);
    /// \sa FlyoutBase::SetCancelButtonText()
    void SetCancelButtonText(const QString &text);
    /// \sa FlyoutBase::SetApplyButtonEnabled()
    void SetApplyButtonEnabled(bool enabled);
    /// \sa FlyoutBase::SetToggleApplyButtonEnabled()
    void SetToggleApplyButtonEnabled(bool enabled);

    /// \sa FlyoutBase::AddSubWidget()
    void AddSubWidget(QWidget *w, EDirection direction);
    /// \sa FlyoutBase::RemoveSubWidget()
    void RemoveSubWidget(QWidget *w);
    /// \sa FlyoutBase::EnableInfoButton()
    void EnableInfoButton(bool enable, QWidget *w);
    /// \sa FlyoutBase::SetBounds()
    void SetBounds(const QRect &bounds, const QRect &frame);

    /// Has each showing move the dialog to the lower right of a point, within the parent of the
    /// dialog; along each axis on which it would not fit, to the other side of the point. For a
    /// dialog with a parent: that of one without is kept relative to the dialog itself, so that each
    /// showing would move it on.
    /// @param global the point on the screen
    /// @param offset distance from the point along both axes
    /// \sa FlyoutBase::SetReferencePoint()
    void SetReferencePoint(const QPoint &global, const QPoint &offset);

    /// Has the closing of the flyout click @p b, once however often this is called. Null is ignored.
    void BindCloseButton(QAbstractButton *b);
    /// Has the closing of the flyout call @p slot of @p o, once however often this is called. Null
    /// is ignored.
    /// @param slot as SLOT() writes it, without arguments
    void BindCloseButton(QObject *o, const char *slot);
    /// Has the reset button of the flyout call @p slot of @p o, once however often this is called.
    /// Null is ignored.
    /// @param slot as SLOT() writes it, without arguments
    void BindResetButton(QObject *o, const char *slot);
    /// Has a click on @p b, such as one on the main panel, reject the dialog. Null is ignored.
    void SetCancelButton(QAbstractButton *b);
    /// Has a click on @p b, such as one on the main panel, accept the dialog. Null is ignored.
    void SetOKButton(QAbstractButton *b);

    /// Moves the dialog by the title row of the flyout and follows its size.
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Shows the flyout. The base class, which would centre the dialog, is not called.
    void showEvent(QShowEvent *event) override;

private:
    friend class QtUiToolkit;

    MDialogBase(const QString &title, QWidget *mainPanel, QWidget *advancedPanel, bool close,
                bool cancel, bool apply, bool reset, QWidget *parent);
    MDialogBase(QWidget *parent, const QString &title, QWidget *mainPanel, const QString &infoText,
                bool close, bool cancel, bool apply, bool reset, QWidget *advancedPanel);

    void Initialize(FlyoutBase *flyout);
    void Watch(QWidget *widget);
    void HandleMouse(const QMouseEvent &event, const QPoint &position);
    void Drag(const QMouseEvent &event);

    const std::unique_ptr<MDialogBasePrivate> d;
    Q_DISABLE_COPY(MDialogBase)
};

} // namespace Vela::UiBase
