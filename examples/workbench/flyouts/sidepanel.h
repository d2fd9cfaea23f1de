// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>
#include <QPointer>

class QLabel;

namespace Vela::UiBase {
class FlyoutBase;
}

namespace Workbench {

/// A panel at the right of an open flyout, over the view as that is.
///
/// The flyout is told of it and stays so far inside of the view that there is room for both. The
/// panel goes with the flyout wherever that goes, and closes with it.
class SidePanel : public QFrame
{
    Q_OBJECT

public:
    /// The room between the frame of the flyout and the panel, in logical pixels.
    static constexpr int gap = 5;

    /// A hidden panel of the flyout. @param content taken over
    SidePanel(Vela::UiBase::FlyoutBase &flyout, QWidget *content);

    void setTitle(const QString &title);

    /// Opens it beside the flyout, or closes it.
    void toggle();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// It was asked for; what it shows may be out of date.
    void aboutToOpen();

private:
    void open();
    void follow();
    QRect flyoutArea() const;

    const QPointer<Vela::UiBase::FlyoutBase> m_flyout;
    QLabel *const m_title;
};

} // namespace Workbench
