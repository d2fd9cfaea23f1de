// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT
//
// How often does an application wake up when nobody touches it? The workbench, which has a view with
// tools and commands, runs beside this program, and what the system counts for its threads is read
// twice. A program with one plain widget is the peer.

#include "support/runbenchmarks.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>
#include <QWidget>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

// Until everything that follows the start is over: the mesh is read, the messages have gone.
constexpr unsigned long settling = 5;
constexpr unsigned long watching = 4;
constexpr char plainFlag[] = "--plain-widget";

/// How often threads of the process have gone to sleep, which they do once for each wake-up.
std::int64_t sleepsOf(qint64 process)
{
    const QDir threads(QStringLiteral("/proc/%1/task").arg(process));
    std::int64_t sum = 0;
    for (const QString &thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile status(threads.filePath(thread + QStringLiteral("/status")));
        if (!status.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &line : status.readAll().split('\n')) {
            if (line.startsWith("voluntary_ctxt_switches:"))
                sum += line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
        }
    }
    return sum;
}

/// Ends the program with this object.
class Running
{
public:
    Running(const QString &program, const QStringList &arguments)
    {
        m_process.setStandardOutputFile(QProcess::nullDevice());
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(program, arguments);
        m_process.waitForStarted();
    }
    ~Running()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    bool isAlive() { return !m_process.waitForFinished(0) && m_process.processId() != 0; }
    std::int64_t sleeps() const { return sleepsOf(m_process.processId()); }

    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    QProcess m_process;
};

void wakeUps(benchmark::State &state, const QString &program, const QStringList &arguments)
{
    for (auto _ : state) {
        Running running(program, arguments);
        QThread::sleep(settling);
        const std::int64_t before = running.sleeps();
        QThread::sleep(watching);
        const std::int64_t after = running.sleeps();
        if (before == 0 || !running.isAlive())
            state.SkipWithError("the program has not run");
        state.counters["per_second"] =
            static_cast<double>(after - before) / static_cast<double>(watching);
    }
}

void idlePlain(benchmark::State &state)
{
    wakeUps(state, QCoreApplication::applicationFilePath(), {QString::fromLatin1(plainFlag)});
}

void idleWorkbench(benchmark::State &state)
{
    wakeUps(state, QStringLiteral(WORKBENCH), {});
}

BENCHMARK(idlePlain)->Iterations(1);
BENCHMARK(idleWorkbench)->Iterations(1);

int showPlainWidget()
{
    QWidget widget;
    widget.resize(800, 600);
    widget.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    if (argc == 2 && !std::strcmp(argv[1], plainFlag))
        return showPlainWidget();
    return Lumo::Bench::runBenchmarks(argc, argv);
}
