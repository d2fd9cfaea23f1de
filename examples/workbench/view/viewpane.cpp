// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/viewpane.h"

#include "controllers/meshviewcontroller.h"
#include "language.h"
#include "view/meshview.h"

#include <ui_base/BaseView>

#include <QLabel>
#include <QStackedLayout>

namespace Workbench {

ViewPane::ViewPane(const std::shared_ptr<MeshDocument> &document, QWidget *parent)
    : QWidget(parent)
    , m_stack(new QStackedLayout(this))
    , m_controller(new MeshViewController(new Vela::UiBase::BaseView(this, {}), document))
    , m_message(new QLabel(this))
{
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setWordWrap(true);
    m_message->setMargin(24);
    m_stack->addWidget(view());
    m_stack->addWidget(m_message);
    connect(view(), &MeshView::unavailable, this, &ViewPane::showMessage);
    inEveryLanguage(*this, [this] { sayMessage(); });
}

MeshViewController *ViewPane::controller() const
{
    return m_controller;
}

MeshView *ViewPane::view() const
{
    return m_controller ? m_controller->meshView() : nullptr;
}

QString ViewPane::message() const
{
    return m_message->text();
}

/// A view that is not seen while the window is minimised is left hidden.
void ViewPane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_stack->currentWidget())
        m_stack->currentWidget()->show();
}

void ViewPane::sayMessage()
{
    if (!view() || view()->reason().isEmpty())
        return;
    m_message->setText(tr("The mesh can't be shown: this view needs OpenGL 3.3, and %1.\n"
                          "The commands that change it work nevertheless.")
                           .arg(view()->reason()));
}

void ViewPane::showMessage()
{
    sayMessage();
    // The view finds out while it paints, which is no moment to hide it.
    const auto replaceView = [this] { m_stack->setCurrentWidget(m_message); };
    QMetaObject::invokeMethod(this, replaceView, Qt::QueuedConnection);
}

} // namespace Workbench
