// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QLabel;
class QStackedLayout;

namespace Workbench {

class MeshView;

/// The place of the view in the window. Where there is no OpenGL it shows a message instead.
class ViewPane : public QWidget
{
    Q_OBJECT

public:
    explicit ViewPane(QWidget *parent = nullptr);

    MeshView &view() const { return *m_view; }

    /// Why there is no picture, or an empty text when there is one.
    QString message() const;

private:
    void showMessage(const QString &reason);

    QStackedLayout *const m_stack;
    MeshView *const m_view;
    QLabel *const m_message;
};

} // namespace Workbench
