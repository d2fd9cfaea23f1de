// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/mdialogbase.h"

#include "ui_base/popup/windowsize_p.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/qtui/panel/panelloan_p.h"
#include "ui_base/qtui/qtuitoolkit.h"

#include <lumo_common_res/Styles>

#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>

#include <new>

namespace Vela::UiBase {

class MDialogBasePrivate
{
public:
    QPointer<FlyoutBase> flyout;
    QPoint lastGlobalPos;
    bool moving = false;
    QRect titleRegion; ///< in the flyout, as it was when the dialog was shown
    QPointer<QLabel> titleLabel;
};

MDialogBase::MDialogBase(const QString &title, QWidget *mainPanel, QWidget *advancedPanel,
                         bool close, bool cancel, bool apply, bool reset, QWidget *parent)
    : QDialog(parent, Qt::FramelessWindowHint)
    , d(std::make_unique<MDialogBasePrivate>())
{
    Internal::PanelLoan loan {mainPanel, advancedPanel};
    Initialize(QtUiToolkit::Instance().CreateFlyout(title, mainPanel, advancedPanel, close, cancel,
                                                    apply, reset, parent));
    loan.keep();
}

MDialogBase::MDialogBase(QWidget *parent, const QString &title, QWidget *mainPanel,
                         const QString &infoText, bool close, bool cancel, bool apply, bool reset,
                         QWidget *advancedPanel)
    : QDialog(parent, Qt::FramelessWindowHint)
    , d(std::make_unique<MDialogBasePrivate>())
{
    Internal::PanelLoan loan {mainPanel, advancedPanel};
    Initialize(QtUiToolkit::Instance().CreateFlyout(parent, title, mainPanel, infoText, close,
                                                    cancel, apply, reset, advancedPanel));
    setAccessibleDescription(infoText);
    loan.keep();
}

MDialogBase::~MDialogBase() = default;

void MDialogBase::Initialize(FlyoutBase *flyout)
{
    if (!flyout)
        return;
    flyout->setParent(this);
    d->flyout = flyout;
    d->titleLabel = flyout->GetTitleLabel();
    flyout->move(0, 0);
    Watch(flyout);
    if (flyout->IsCloseButtonVisible())
        Watch(flyout->GetCloseButton());
    if (flyout->IsResetButtonVisible())
        Watch(flyout->GetResetButton());
    if (!flyout->Title().isEmpty())
        Watch(d->titleLabel);
    connect(flyout, &FlyoutBase::CloseFlyout, this, &QDialog::reject);
    // A cancelled flyout has gone, unless only its work was cancelled.
    connect(flyout, &FlyoutBase::CancelChanges, this, [this] {
        if (d->flyout && d->flyout->isHidden())
            reject();
    });
    connect(flyout, &QWidget::windowTitleChanged, this, &QWidget::setWindowTitle);
    flyout->setObjectName(QStringLiteral("mdialogflyout"));
    setObjectName(QStringLiteral("mdialog"));
    setStyleSheet(Resource::Styles::Instance().DialogGeneral().arg(QStringLiteral("mdialog")));
    setWindowTitle(flyout->Title());
    resize(flyout->size());
    // Left to itself a dialog makes its first button the default one, which is the one that cancels.
    if (auto *const apply = flyout->findChild<QPushButton *>(QStringLiteral("apply_button")))
        apply->setDefault(true);
}

void MDialogBase::Watch(QWidget *widget)
{
    widget->setMouseTracking(true);
    widget->installEventFilter(this);
}

QWidget *MDialogBase::MainPanel() const
{
    return d->flyout ? d->flyout->MainPanel() : nullptr;
}

QWidget *MDialogBase::AdvancedPanel() const
{
    return d->flyout ? d->flyout->AdvancedPanel() : nullptr;
}

QWidget *MDialogBase::InfoDialog() const
{
    return d->flyout ? d->flyout->InfoDialog() : nullptr;
}

QToolButton *MDialogBase::ToolButton() const
{
    return d->flyout ? d->flyout->ToolButton() : nullptr;
}

void MDialogBase::SetToolButton(QToolButton *button)
{
    if (d->flyout)
        d->flyout->SetToolButton(button);
}

QString MDialogBase::Title() const
{
    return d->flyout ? d->flyout->Title() : QString();
}

void MDialogBase::SetTitle(const QString &title)
{
    if (d->flyout)
        d->flyout->SetTitle(title);
}

void MDialogBase::SetCloseButtonVisible(bool visible)
{
    if (d->flyout)
        d->flyout->SetCloseButtonVisible(visible);
}

void MDialogBase::SetApplyButtonVisible(bool visible)
{
    if (d->flyout)
        d->flyout->SetApplyButtonVisible(visible);
}

void MDialogBase::SetCancelButtonVisible(bool visible)
{
    if (d->flyout)
        d->flyout->SetCancelButtonVisible(visible);
}

void MDialogBase::SetApplyButtonText(const QString &text)
{
    if (d->flyout)
        d->flyout->SetApplyButtonText(text);
}

void MDialogBase::SetCancelButtonText(const QString &text)
{
    if (d->flyout)
        d->flyout->SetCancelButtonText(text);
}

void MDialogBase::SetApplyButtonEnabled(bool enabled)
{
    if (d->flyout)
        d->flyout->SetApplyButtonEnabled(enabled);
}

void MDialogBase::SetToggleApplyButtonEnabled(bool enabled)
{
    if (d->flyout)
        d->flyout->SetToggleApplyButtonEnabled(enabled);
}

void MDialogBase::AddSubWidget(QWidget *w, EDirection direction)
{
    if (d->flyout)
        d->flyout->AddSubWidget(w, direction);
}

void MDialogBase::RemoveSubWidget(QWidget *w)
{
    if (d->flyout)
        d->flyout->RemoveSubWidget(w);
}

void MDialogBase::EnableInfoButton(bool enable, QWidget *w)
{
    if (d->flyout)
        d->flyout->EnableInfoButton(enable, w);
}

void MDialogBase::SetBounds(const QRect &bounds, const QRect &frame)
{
    if (d->flyout)
        d->flyout->SetBounds(bounds, frame);
}

void MDialogBase::SetReferencePoint(const QPoint &global, const QPoint &offset)
{
    if (d->flyout)
        d->flyout->SetReferencePoint(global, parentWidget(), offset);
}

void MDialogBase::BindCloseButton(QAbstractButton *b)
{
    if (d->flyout && b)
        connect(d->flyout, &FlyoutBase::CloseFlyout, b, &QAbstractButton::click,
                Qt::UniqueConnection);
}

void MDialogBase::BindCloseButton(QObject *o, const char *slot)
{
    if (d->flyout && o && slot)
        connect(d->flyout, SIGNAL(CloseFlyout()), o, slot, Qt::UniqueConnection);
}

void MDialogBase::BindResetButton(QObject *o, const char *slot)
{
    if (d->flyout && o && slot)
        connect(d->flyout, SIGNAL(ResetValues()), o, slot, Qt::UniqueConnection);
}

void MDialogBase::SetCancelButton(QAbstractButton *b)
{
    if (b)
        connect(b, &QAbstractButton::clicked, this, &QDialog::reject, Qt::UniqueConnection);
}

void MDialogBase::SetOKButton(QAbstractButton *b)
{
    if (b)
        connect(b, &QAbstractButton::clicked, this, &QDialog::accept, Qt::UniqueConnection);
}

// A flyout that is being destroyed still sends events, but none of these.
bool MDialogBase::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::Resize:
        if (d->flyout && watched == d->flyout) {
            Internal::claimSize(*this, d->flyout->size());
            resize(d->flyout->size());
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        if (d->flyout && (watched == d->flyout || watched == d->titleLabel)) {
            const auto &mouse = static_cast<const QMouseEvent &>(*event);
            HandleMouse(mouse, static_cast<QWidget *>(watched)->mapTo(d->flyout, mouse.pos()));
        }
        break;
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}

// The cursor after a release is the opposite of the one that a move shows.
void MDialogBase::HandleMouse(const QMouseEvent &event, const QPoint &position)
{
    if (d->titleRegion.isEmpty())
        d->titleRegion = d->flyout->GetTitleRegionForMoving();
    const bool isOnTitle = d->titleRegion.contains(position);
    if (event.type() == QEvent::MouseMove) {
        setCursor(d->moving || isOnTitle ? Qt::SizeAllCursor : Qt::ArrowCursor);
        Drag(event);
    } else if (event.button() != Qt::LeftButton) {
        return;
    } else if (event.type() == QEvent::MouseButtonRelease) {
        d->moving = false;
        setCursor(isOnTitle ? Qt::ArrowCursor : Qt::SizeAllCursor);
    } else if (isOnTitle) {
        d->moving = true;
        d->lastGlobalPos = event.globalPos();
    }
}

void MDialogBase::Drag(const QMouseEvent &event)
{
    if (!d->moving)
        return;
    if (event.buttons() != Qt::LeftButton) {
        d->moving = false;
        setCursor(Qt::ArrowCursor);
        return;
    }
    const QPoint way = event.globalPos() - d->lastGlobalPos;
    d->lastGlobalPos = event.globalPos();
    move(pos() + way);
}

void MDialogBase::showEvent(QShowEvent *)
{
    if (!d->flyout)
        return;
    d->flyout->show();
    if (d->flyout)
        d->titleRegion = d->flyout->GetTitleRegionForMoving();
}

// The toolkit's factory of these dialogs. It stands here since the toolkit itself knows no dialog.

MDialogBase *QtUiToolkit::CreateFlyoutDialog(QWidget *parent, const QString &title,
                                             QWidget *mainPanel, QWidget *advancedPanel,
                                             bool closeButton, bool cancelButton, bool applyButton,
                                             bool resetButton) const
{
    try {
        return new MDialogBase(title, mainPanel, advancedPanel, closeButton, cancelButton,
                               applyButton, resetButton, parent);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

MDialogBase *QtUiToolkit::CreateFlyoutDialog(QWidget *parent, const QString &title,
                                             QWidget *mainPanel, const QString &infoText,
                                             bool closeButton, bool cancelButton, bool applyButton,
                                             bool resetButton, QWidget *advancedPanel) const
{
    try {
        return new MDialogBase(parent, title, mainPanel, infoText, closeButton, cancelButton,
                               applyButton, resetButton, advancedPanel);
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

} // namespace Vela::UiBase
