// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "dialogs/logdialog.h"

#include "dialogs/dialogparts.h"
#include "dialogs/messagelog.h"
#include "language.h"

#include <QBoxLayout>
#include <QEvent>
#include <QFontDatabase>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOptionSizeGrip>

#include <utility>

namespace Workbench {
namespace {

/// Shows where the dialog is resized, and leaves the mouse to it.
class GripMark : public QWidget
{
public:
    explicit GripMark(QWidget *parent)
        : QWidget(parent)
    {
        setObjectName(QStringLiteral("grip"));
        setFixedSize(16, 16);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QStyleOptionSizeGrip option;
        option.initFrom(this);
        option.corner = Qt::BottomRightCorner;
        QPainter painter(this);
        style()->drawControl(QStyle::CE_SizeGrip, &option, &painter, this);
    }
};

} // namespace

LogDialog::LogDialog(std::shared_ptr<MessageLog> log, QWidget *parent)
    : DialogEx(parent, true)
    , m_log(std::move(log))
    , m_text(new QPlainTextEdit(this))
    , m_row(new QHBoxLayout)
{
    setObjectName(QStringLiteral("log_dialog"));
    inEveryLanguage(*m_text, [this] { m_text->setAccessibleName(tr("Lines of the log")); });
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setMaximumBlockCount(MessageLog::largestCount);
    m_text->setTabChangesFocus(true);
    m_text->setPlainText(m_log->lines().join(QLatin1Char('\n')));
    buildLayout();
    connect(m_log.get(), &MessageLog::appended, m_text, &QPlainTextEdit::appendPlainText);
    connect(m_log.get(), &MessageLog::cleared, m_text, &QPlainTextEdit::clear);
    m_text->moveCursor(QTextCursor::End);
    resize(620, 380);
}

QString LogDialog::text() const
{
    return m_text->toPlainText();
}

void LogDialog::changeEvent(QEvent *event)
{
    DialogEx::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        keepGripAtTheRight();
}

/// The dialog is resized there in either direction of reading, and nothing else may stand there.
void LogDialog::keepGripAtTheRight()
{
    m_row->setDirection(isRightToLeft() ? QBoxLayout::RightToLeft : QBoxLayout::LeftToRight);
}

void LogDialog::buildLayout()
{
    auto *clear = new QPushButton(this);
    inEveryLanguage(*clear, [clear] { clear->setText(tr("C&lear")); });
    clear->setObjectName(QStringLiteral("clear"));
    clear->setAutoDefault(false);
    connect(clear, &QPushButton::clicked, m_log.get(), &MessageLog::clear);

    m_row->addWidget(clear);
    m_row->addStretch();
    m_row->addWidget(new GripMark(this), 0, Qt::AlignBottom);
    keepGripAtTheRight();
    QBoxLayout *column = dressUp(*this, [] { return tr("Log"); });
    column->addWidget(m_text, 1);
    column->addLayout(m_row);
    m_text->setFocus();
    EnableMouseTracking(true);
}

} // namespace Workbench
