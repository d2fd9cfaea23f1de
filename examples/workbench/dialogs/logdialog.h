// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/DialogEx>

#include <memory>

class QBoxLayout;
class QPlainTextEdit;

namespace Workbench {

class MessageLog;

/// Lists the lines of a log, the latest at the bottom and in sight unless the user has scrolled up.
/// It is moved by its title and resized by the grip.
class LogDialog : public Vela::UiBase::DialogEx
{
    Q_OBJECT

public:
    LogDialog(std::shared_ptr<MessageLog> log, QWidget *parent);

    /// The lines that are shown.
    QString text() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void buildLayout();
    void keepGripAtTheRight();

    const std::shared_ptr<MessageLog> m_log;
    QPlainTextEdit *const m_text;
    QBoxLayout *const m_row;
};

} // namespace Workbench
