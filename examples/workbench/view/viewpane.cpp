// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/viewpane.h"

#include "view/meshview.h"

#include <QLabel>
#include <QStackedLayout>

namespace Workbench {

ViewPane::ViewPane(QWidget *parent)
    : QWidget(parent)
    , m_stack(new QStackedLayout(this))
    , m_view(new MeshView(this))
    , m_message(new QLabel(this))
{
    m_message->setAlignment(Qt::AlignCenter);
    m_message->setWordWrap(true);
    m_message->setMargin(24);
    m_stack->addWidget(m_view);
    m_stack->addWidget(m_message);
    connect(m_view, &MeshView::unavailable, this, &ViewPane::showMessage);
}

QString ViewPane::message() const
{
    return m_message->text();
}

void ViewPane::showMessage(const QString &reason)
{
    m_message->setText(tr("The mesh can't be shown: this view needs OpenGL 3.3, and %1.\n"
                          "All commands work nevertheless.")
                           .arg(reason));
    // The view finds out while it paints, which is no moment to hide it.
    const auto replaceView = [this] { m_stack->setCurrentWidget(m_message); };
    QMetaObject::invokeMethod(this, replaceView, Qt::QueuedConnection);
}

} // namespace Workbench
