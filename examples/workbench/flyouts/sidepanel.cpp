// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/sidepanel.h"

#include "flyouts/besideflyout.h"

#include <lumo_common_res/Styles>
#include <ui_base/ArrowedWindow>
#include <ui_base/FloatingLayer>
#include <ui_base/FlyoutBase>

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

QString outlineSheet()
{
    const auto &styles = Vela::Resource::Styles::Instance();
    return QStringLiteral("QFrame#side_panel { background: %1; border: 1px solid %2; }")
        .arg(styles.ColorActionPanelGroupBack().name(), styles.ColorActionPanelBorder().name());
}

QLabel *makeTitle()
{
    auto *const title = new QLabel;
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    return title;
}

} // namespace

SidePanel::SidePanel(FlyoutBase &flyout, QWidget *content)
    : QFrame(&flyout)
    , m_flyout(&flyout)
    , m_title(makeTitle())
{
    setObjectName(QStringLiteral("side_panel"));
    setStyleSheet(outlineSheet());
    auto *const column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->setContentsMargins(9, 9, 9, 9);
    column->setSpacing(8);
    column->addWidget(m_title);
    column->addWidget(content);
    hide();
    flyout.AddSubWidget(this, EDirection::Right);
    flyout.installEventFilter(this);
    floatBeside(flyout, this);
}

void SidePanel::setTitle(const QString &title)
{
    m_title->setText(title);
    setAccessibleName(title);
}

void SidePanel::toggle()
{
    if (isVisible())
        hide();
    else
        open();
    if (m_flyout)
        Q_EMIT m_flyout->SubWidgetVisibilityChanged(isVisible());
}

void SidePanel::open()
{
    if (!m_flyout || !m_flyout->isVisible())
        return;
    Q_EMIT aboutToOpen();
    // The layer of the flyout is the window that moves.
    m_flyout->window()->installEventFilter(this);
    layout()->activate();
    follow();
    show();
}

bool SidePanel::eventFilter(QObject *watched, QEvent *event)
{
    // The flyout may be on its way out, and no flyout any more.
    if (event->type() == QEvent::Hide)
        hide();
    else if (isVisible() && (event->type() == QEvent::Move || event->type() == QEvent::Resize))
        follow();
    return QFrame::eventFilter(watched, event);
}

/// What is seen of the flyout, on the screen. While its layer moves, what is in that is not in its
/// place yet, so the layer is asked.
QRect SidePanel::flyoutArea() const
{
    QWidget *const seen = m_flyout->parentWidget();
    const QPoint corner =
        seen->window()->mapToGlobal(QPoint(0, 0)) + FloatingLayer::getWidgetOffset(seen);
    const auto *const frame = qobject_cast<const ArrowedWindow *>(seen);
    return frame ? frame->GetBounds().translated(corner) : QRect(corner, seen->size());
}

/// In line with the upper edge of the flyout, unless it would leave the view below.
void SidePanel::follow()
{
    const QWidget *const view = FloatingLayer::getWidgetOriginalParent(this);
    if (!view || !m_flyout)
        return;
    const QRect beside = flyoutArea();
    const QPoint place = view->mapFromGlobal({beside.right() + 1 + gap, beside.top()});
    move(place.x(), std::min(place.y(), view->height() - gap - height()));
}

} // namespace Workbench
