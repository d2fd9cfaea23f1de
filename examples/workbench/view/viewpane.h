// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>

#include <memory>

class QLabel;
class QStackedLayout;

namespace Workbench {

class MeshDocument;
class MeshView;
class MeshViewController;

/// The place of the view in the window. Where there is no OpenGL it shows a message instead.
class ViewPane : public QWidget
{
    Q_OBJECT

public:
    explicit ViewPane(const std::shared_ptr<MeshDocument> &document, QWidget *parent = nullptr);

    /// The controller of the view; null when that was closed.
    MeshViewController *controller() const;
    /// The view; null when it was closed.
    MeshView *view() const;

    /// Why there is no picture, or an empty text when there is one.
    QString message() const;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void showMessage();
    void sayMessage();

    QStackedLayout *const m_stack;
    const QPointer<MeshViewController> m_controller;
    QLabel *const m_message;
};

} // namespace Workbench
