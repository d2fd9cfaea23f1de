// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/messageguard.h"

#include <QMutex>

#include <vector>

namespace Lumo::Test {
namespace {

QMutex mutex;
std::vector<QRegularExpression> expected;
QStringList unexpected;
QtMessageHandler previous = nullptr;

bool isPlatformNoise(const QString &text)
{
    // The offscreen platform says these of its own and no other, and a machine without a folder for run
    // time files makes Qt say where it puts them. Looking for the window under the pointer, Qt asks the
    // X server about frames that the window manager may just be taking away.
    return text.startsWith(QLatin1String("This plugin does not support raise()"))
        || text.startsWith(QLatin1String("This plugin does not support lower()"))
        || text.startsWith(QLatin1String("This plugin does not support setParent!"))
        || text.startsWith(QLatin1String("This plugin does not support propagateSizeHints()"))
        || text.startsWith(QLatin1String("This plugin does not support grabbing the keyboard"))
        || text.startsWith(QLatin1String("QStandardPaths: "))
        || (text.startsWith(QLatin1String("QXcbConnection: XCB error: 3 (BadWindow)"))
            && text.contains(QLatin1String("(TranslateCoords)")));
}

bool takeExpected(const QString &text)
{
    for (auto it = expected.begin(); it != expected.end(); ++it) {
        if (it->match(text).hasMatch()) {
            expected.erase(it);
            return true;
        }
    }
    return false;
}

void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (isPlatformNoise(text))
        return;
    {
        const QMutexLocker lock(&mutex);
        if (takeExpected(text))
            return;
        if (type == QtWarningMsg || type == QtCriticalMsg)
            unexpected << text;
    }
    if (previous)
        previous(type, context, text);
}

} // namespace

MessageGuard &MessageGuard::instance()
{
    static MessageGuard guard;
    return guard;
}

void MessageGuard::install()
{
    const QtMessageHandler current = qInstallMessageHandler(handle);
    if (current != handle)
        previous = current;
}

void MessageGuard::expect(const QString &pattern)
{
    const QMutexLocker lock(&mutex);
    expected.emplace_back(QRegularExpression::anchoredPattern(pattern));
}

QStringList MessageGuard::takeProblems()
{
    const QMutexLocker lock(&mutex);
    QStringList problems;
    for (const QString &text : std::as_const(unexpected))
        problems << QStringLiteral("unannounced message: ") + text;
    for (const QRegularExpression &pattern : expected)
        problems << QStringLiteral("announced message did not come: ") + pattern.pattern();
    unexpected.clear();
    expected.clear();
    return problems;
}

} // namespace Lumo::Test
