// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFrame>

class QLabel;

namespace Workbench {

/// A line above the view that tells the user what did not work, until he dismisses it. Hidden at
/// first.
class MessageBanner : public QFrame
{
    Q_OBJECT

public:
    explicit MessageBanner(QWidget *parent = nullptr);

    /// The sentence that is shown, or an empty text while the banner is hidden.
    QString message() const;

    /// Shows @p text in place of the one of before.
    void showMessage(const QString &text);

public Q_SLOTS:
    void dismiss();

private:
    QLabel *const m_label;
};

} // namespace Workbench
