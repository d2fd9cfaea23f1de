// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/qtuidebugger.h"

#include <QApplication>
#include <QCursor>
#include <QMessageBox>
#include <QWidget>

namespace Vela::UiBase {
namespace {

QString classNameOf(const QObject &object)
{
    return QString::fromLatin1(object.metaObject()->className());
}

QString description(const QWidget &widget)
{
    QStringList lines {QtUiDebugger::tr("Class: ") + classNameOf(widget),
                       QtUiDebugger::tr("Name: ") + widget.objectName()};
    if (const QWidget *parent = widget.parentWidget()) {
        lines << QtUiDebugger::tr("Parent Class: ") + classNameOf(*parent)
              << QtUiDebugger::tr("Parent Name: ") + parent->objectName();
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

QtUiDebugger::QtUiDebugger(QObject *parent)
    : QObject(parent)
{ }

QtUiDebugger::~QtUiDebugger() = default;

void QtUiDebugger::DumpWidgetUnderMouse()
{
    const QWidget *widget = QApplication::widgetAt(QCursor::pos());
    if (!widget)
        return;
    // Given no buttons, the constructor leaves it to the box to show one that closes it;
    // setStandardButtons() would take even that away.
    QMessageBox box(QMessageBox::Information, tr("Widget Info"), description(*widget),
                    QMessageBox::NoButton, nullptr, Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    box.setTextFormat(Qt::PlainText); // an object name may look like markup
    box.exec();
}

} // namespace Vela::UiBase
