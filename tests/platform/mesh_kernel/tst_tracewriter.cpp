// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/failingnew.h"

#include <orrin_mesh_kernel/Kernel>
#include <orrin_mesh_kernel/TraceWriter>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QSet>
#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

using Lumo::Test::FailingNew;
using Orrin::Core::Kernel;
using Orrin::Core::TraceWriter;

namespace {

/// A slice put together from its two events.
struct Slice
{
    QString name;
    bool isChecked;
    bool isUnfinished;
    double begin;
    double end;
    double beginThread;
    double endThread;
    int beginPosition;
};

using Events = std::vector<QJsonObject>;

QByteArray contentOf(const std::string &path)
{
    QFile file(QString::fromStdString(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return file.readAll();
}

Events eventsOf(const std::string &path)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(contentOf(path), &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << qPrintable(error.errorString());
    const QJsonValue list = document.object().value(QStringLiteral("traceEvents"));
    EXPECT_TRUE(list.isArray());
    Events events;
    for (const auto &value : list.toArray())
        events.push_back(value.toObject());
    return events;
}

QString text(const QJsonObject &event, const char *key)
{
    return event.value(QLatin1String(key)).toString();
}

double number(const QJsonObject &event, const char *key)
{
    const QJsonValue value = event.value(QLatin1String(key));
    EXPECT_TRUE(value.isDouble()) << key;
    return value.toDouble();
}

QJsonObject arguments(const QJsonObject &event)
{
    return event.value(QLatin1String("args")).toObject();
}

Events withPhase(const Events &events, const char *phase)
{
    Events found;
    for (const QJsonObject &event : events) {
        if (text(event, "ph") == QLatin1String(phase))
            found.push_back(event);
    }
    return found;
}

QStringList namesOf(const Events &events)
{
    QStringList names;
    for (const QJsonObject &event : events)
        names << text(event, "name");
    return names;
}

QStringList instantsOf(const std::string &path)
{
    return namesOf(withPhase(eventsOf(path), "i"));
}

/// The name that the metadata event @p what gives, by thread.
std::map<double, QString> metadata(const Events &events, const char *what)
{
    std::map<double, QString> names;
    for (const QJsonObject &event : withPhase(events, "M")) {
        if (text(event, "name") == QLatin1String(what))
            names[number(event, "tid")] = arguments(event).value(QLatin1String("name")).toString();
    }
    return names;
}

Slice sliceFrom(const QJsonObject &begin, const QJsonObject &end, int position)
{
    const QJsonObject endArguments = arguments(end);
    EXPECT_EQ(text(begin, "name"), text(end, "name"));
    EXPECT_EQ(text(begin, "cat"), QStringLiteral("command"));
    EXPECT_EQ(text(end, "cat"), QStringLiteral("command"));
    EXPECT_EQ(number(begin, "pid"), ::getpid());
    EXPECT_EQ(number(end, "pid"), ::getpid());
    const QJsonValue checked = arguments(begin).value(QLatin1String("checked"));
    EXPECT_TRUE(checked.isBool());
    EXPECT_EQ(checked, endArguments.value(QLatin1String("checked")));
    return {text(begin, "name"),
            checked.toBool(),
            endArguments.value(QLatin1String("unfinished")).toBool(),
            number(begin, "ts"),
            number(end, "ts"),
            number(begin, "tid"),
            number(end, "tid"),
            position};
}

/// The slices of a trace in the order of their ends. Fails unless begins and ends pair by an id
/// that stands for one run only, and time never goes back.
std::vector<Slice> slicesOf(const Events &events)
{
    std::vector<Slice> slices;
    std::map<QString, std::pair<QJsonObject, int>> open;
    QSet<QString> ids;
    double last = 0;
    for (const QJsonObject &event : events) {
        if (text(event, "ph") == QLatin1String("M"))
            continue;
        EXPECT_GE(number(event, "ts"), last);
        last = number(event, "ts");
        const QString id = text(event, "id");
        if (text(event, "ph") == QLatin1String("b")) {
            EXPECT_FALSE(ids.contains(id)) << qPrintable(id);
            open[id] = {event, ids.size()};
            ids.insert(id);
        } else if (text(event, "ph") == QLatin1String("e")) {
            EXPECT_EQ(open.count(id), 1U) << qPrintable(id);
            slices.push_back(sliceFrom(open[id].first, event, open[id].second));
            open.erase(id);
        }
    }
    EXPECT_TRUE(open.empty());
    return slices;
}

std::vector<Slice> slicesOf(const std::string &path)
{
    return slicesOf(eventsOf(path));
}

int checkTrace(const std::string &path, const std::string &options = {})
{
    const std::string command = "\"" PYTHON "\" \"" CHECKTRACE "\" \"" + path + "\" " + options;
    return std::system(command.c_str());
}

class TraceWriterTest : public ::testing::Test
{
protected:
    std::string pathOf(const char *name) const
    {
        return m_folder.filePath(QLatin1String(name)).toStdString();
    }

    /// Writes @p waypoints to a trace that is then closed.
    std::string write(const std::vector<std::wstring> &waypoints) const
    {
        TraceWriter writer(path);
        EXPECT_TRUE(writer.isOpen());
        const auto sink = writer.sink();
        for (const std::wstring &waypoint : waypoints)
            sink(waypoint);
        EXPECT_TRUE(writer.close()) << writer.errorText();
        return path;
    }

    QTemporaryDir m_folder;
    const std::string path = pathOf("trace.json");
};

using TraceWriterDeathTest = TraceWriterTest;

/// Lets files of this process grow to @p size at most while alive.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t size)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = size;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    void (*m_handler)(int);
    rlimit m_before {};
};

} // namespace

TEST_F(TraceWriterTest, traceWithoutWaypointsIsValid)
{
    write({});
    const Events events = eventsOf(path);
    EXPECT_EQ(namesOf(events), QStringList {QStringLiteral("process_name")});
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, beginAndEndOfARunBecomeOneSlice)
{
    write({L"CMD BEGIN Vela::OpenCommand(false)", L"CMD END   Vela::OpenCommand(false)",
           L"CMD BEGIN Vela::OpenCommand(true)", L"CMD END   Vela::OpenCommand(true)"});
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 2U);
    EXPECT_EQ(slices[0].name, QStringLiteral("Vela::OpenCommand"));
    EXPECT_FALSE(slices[0].isChecked);
    EXPECT_TRUE(slices[1].isChecked);
    EXPECT_FALSE(slices[0].isUnfinished);
    EXPECT_TRUE(instantsOf(path).isEmpty());
    EXPECT_EQ(checkTrace(path, "--require Vela::OpenCommand"), 0);
    EXPECT_NE(checkTrace(path, "--require Vela::OtherCommand 2>/dev/null"), 0);
}

TEST_F(TraceWriterTest, interleavedRunsPairByClassAndValue)
{
    write({L"CMD BEGIN A(true)", L"CMD BEGIN B(true)", L"CMD BEGIN A(false)", L"CMD END   A(true)",
           L"CMD END   B(true)", L"CMD END   A(false)"});
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 3U);
    EXPECT_EQ(slices[0].beginPosition, 0);
    EXPECT_EQ(slices[1].beginPosition, 1);
    EXPECT_EQ(slices[2].beginPosition, 2);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, runsOfOneClassInsideEachOtherNest)
{
    write({L"CMD BEGIN A(true)", L"CMD BEGIN A(true)", L"CMD END   A(true)", L"CMD END   A(true)"});
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 2U);
    EXPECT_EQ(slices[0].beginPosition, 1);
    EXPECT_EQ(slices[1].beginPosition, 0);
}

TEST_F(TraceWriterTest, beginWithoutEndLeavesLaterRunsRightAndEndsUnfinished)
{
    write({L"CMD BEGIN A(true)", L"CMD BEGIN A(true)", L"CMD END   A(true)", L"other",
           L"CMD BEGIN A(true)", L"CMD END   A(true)"});
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 3U);
    EXPECT_EQ(slices[0].beginPosition, 1);
    EXPECT_EQ(slices[1].beginPosition, 2);
    EXPECT_FALSE(slices[1].isUnfinished);
    EXPECT_EQ(slices[2].beginPosition, 0);
    EXPECT_TRUE(slices[2].isUnfinished);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, oldestRunEndsUnfinishedWhenTooManyAreOpen)
{
    write(std::vector<std::wstring>(1025, L"CMD BEGIN A(true)"));
    const Events events = eventsOf(path);
    const auto slices = slicesOf(events);
    ASSERT_EQ(slices.size(), 1025U);
    EXPECT_EQ(slices[0].beginPosition, 0);
    EXPECT_TRUE(slices[0].isUnfinished);
    // Process and thread name come first, then 1024 begins.
    EXPECT_EQ(text(events.at(1025), "ph"), QStringLiteral("b"));
    EXPECT_EQ(text(events.at(1026), "ph"), QStringLiteral("e"));
    EXPECT_EQ(text(events.at(1027), "ph"), QStringLiteral("b"));
}

TEST_F(TraceWriterTest, endWithoutBeginBecomesAnInstant)
{
    write({L"CMD END   A(true)", L"CMD BEGIN A(true)", L"CMD END   A(false)", L"CMD END   A(true)",
           L"CMD END   A(true)"});
    EXPECT_EQ(slicesOf(path).size(), 1U);
    EXPECT_EQ(
        instantsOf(path),
        (QStringList {QStringLiteral("CMD END   A(true)"), QStringLiteral("CMD END   A(false)"),
                      QStringLiteral("CMD END   A(true)")}));
}

TEST_F(TraceWriterTest, otherTextsBecomeInstantsOnTheirThread)
{
    const std::vector<std::wstring> texts {L"",
                                           L"CMD",
                                           L"mesh loaded",
                                           L"CMD BEGIN ",
                                           L"CMD BEGIN A",
                                           L"CMD BEGIN (true)",
                                           L"CMD BEGIN A(maybe)",
                                           L"CMD BEGIN A(true) ",
                                           L"CMD END A(true)",
                                           L" CMD BEGIN A(true)",
                                           L"cmd begin A(true)"};
    write(texts);
    QStringList expected;
    for (const std::wstring &waypoint : texts)
        expected << QString::fromStdWString(waypoint);
    EXPECT_EQ(instantsOf(path), expected);
    EXPECT_TRUE(slicesOf(path).empty());
    const QJsonObject instant = withPhase(eventsOf(path), "i").front();
    EXPECT_EQ(text(instant, "s"), QStringLiteral("t"));
    EXPECT_EQ(number(instant, "tid"), ::getpid());
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, classNamesMayHoldParentheses)
{
    write({L"CMD BEGIN A(true)(false)", L"CMD END   A(true)(false)"});
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 1U);
    EXPECT_EQ(slices[0].name, QStringLiteral("A(true)"));
    EXPECT_FALSE(slices[0].isChecked);
}

TEST_F(TraceWriterTest, everyTextSurvivesEscaping)
{
    std::wstring controls;
    for (wchar_t c = 0; c < 0x20; ++c)
        controls += c;
    const std::vector<std::wstring> texts {
        controls, L"\"quoted\" \\ / \x7F", L"\u0080\u00E9\u07FF\u0800\u20AC\u2028\uFFFE\uFFFF",
        L"\U00010000\U0001F600\U0010FFFF", std::wstring {L'a', wchar_t(0xD83D), wchar_t(0xDE00)}};
    write(texts);
    const QStringList names = instantsOf(path);
    ASSERT_EQ(names.size(), int(texts.size()));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(names[i], QString::fromStdWString(texts[std::size_t(i)])) << i;
    EXPECT_EQ(names[4], QString::fromUtf8("a\xF0\x9F\x98\x80"));
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, whatIsNoCharacterIsReplaced)
{
    const auto high = wchar_t(0xD83D);
    const auto low = wchar_t(0xDE00);
    write({{high},
           {low},
           {high, L'a'},
           {low, high},
           {high, high, low},
           {wchar_t(0x110000)},
           {wchar_t(-1)}});
    const QChar replaced(0xFFFD);
    const QString smile = QString::fromUtf8("\xF0\x9F\x98\x80");
    EXPECT_EQ(instantsOf(path),
              (QStringList {replaced, replaced, replaced + QStringLiteral("a"),
                            QString(replaced) + replaced, replaced + smile, replaced, replaced}));
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, classNamesAndProcessNameAreEscapedToo)
{
    TraceWriter writer(path, L"\"\u20AC\"");
    writer.sink()(L"CMD BEGIN \"\\\n(true)");
    ASSERT_TRUE(writer.close());
    EXPECT_EQ(slicesOf(path).at(0).name, QStringLiteral("\"\\\n"));
    EXPECT_EQ(metadata(eventsOf(path), "process_name")[::getpid()],
              QString::fromUtf8("\"\xE2\x82\xAC\""));
}

TEST_F(TraceWriterTest, longTextsAreCutAndStillPair)
{
    const std::wstring longName(100000, L'\x1F');
    write({std::wstring(4096, L'a'), std::wstring(4097, L'a'), L"CMD BEGIN " + longName + L"(true)",
           L"CMD END   " + longName + L"(true)"});
    const QStringList names = instantsOf(path);
    ASSERT_EQ(names.size(), 2);
    EXPECT_EQ(names[0], QString(4096, QLatin1Char('a')));
    EXPECT_EQ(names[1], QString(4096, QLatin1Char('a')) + QChar(0x2026));
    const auto slices = slicesOf(path);
    ASSERT_EQ(slices.size(), 1U);
    EXPECT_EQ(slices[0].name.size(), 4097);
    EXPECT_FALSE(slices[0].isUnfinished);
}

TEST_F(TraceWriterTest, timesAreMicroseconds)
{
    using Clock = std::chrono::steady_clock;
    using Microseconds = std::chrono::duration<double, std::micro>;
    TraceWriter writer(path);
    const auto sink = writer.sink();
    const auto beforeBegin = Clock::now();
    sink(L"CMD BEGIN A(true)");
    const auto afterBegin = Clock::now();
    while (Clock::now() - afterBegin < std::chrono::milliseconds(2)) { }
    const auto beforeEnd = Clock::now();
    sink(L"CMD END   A(true)");
    const auto afterEnd = Clock::now();
    ASSERT_TRUE(writer.close());
    const Slice slice = slicesOf(path).at(0);
    EXPECT_GE(slice.end - slice.begin, Microseconds(beforeEnd - afterBegin).count() - 1);
    EXPECT_LE(slice.end - slice.begin, Microseconds(afterEnd - beforeBegin).count() + 1);
}

TEST_F(TraceWriterTest, runMayEndOnAnotherThread)
{
    Kernel kernel;
    TraceWriter writer(path);
    kernel.setWaypointSink(writer.sink());
    kernel.ProfilerWaypoint(L"CMD BEGIN A(true)");
    double thread = 0;
    std::thread([&] {
        thread = double(::gettid());
        kernel.ProfilerWaypoint(L"CMD END   A(true)");
    }).join();
    ASSERT_TRUE(writer.close());
    const Slice slice = slicesOf(path).at(0);
    EXPECT_EQ(slice.beginThread, ::getpid());
    EXPECT_EQ(slice.endThread, thread);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, threadsAreNamedOnceEach)
{
    TraceWriter writer(path);
    const auto sink = writer.sink();
    double ids[2] = {};
    const auto work = [&](int i, const char *name) {
        ids[i] = double(::gettid());
        ::pthread_setname_np(::pthread_self(), name);
        sink(L"a");
        sink(L"b");
    };
    sink(L"a");
    std::thread(work, 0, "mesh worker").join();
    std::thread(work, 1, "a\"\xC3").join(); // the system cuts names, also inside a character
    ASSERT_TRUE(writer.close());
    const Events events = eventsOf(path);
    EXPECT_EQ(namesOf(withPhase(events, "M")).count(QStringLiteral("thread_name")), 3);
    auto names = metadata(events, "thread_name");
    EXPECT_EQ(names[::getpid()], QStringLiteral("main"));
    EXPECT_EQ(names[ids[0]], QStringLiteral("mesh worker"));
    EXPECT_EQ(names[ids[1]], QStringLiteral("a\"") + QChar(0xFFFD));
}

TEST_F(TraceWriterTest, processIsNamedAfterTheProgramByDefault)
{
    write({});
    EXPECT_EQ(metadata(eventsOf(path), "process_name")[::getpid()],
              QStringLiteral("tst_tracewriter"));
}

TEST_F(TraceWriterTest, twoTracesAtOnceKeepApart)
{
    TraceWriter first(path);
    TraceWriter second(pathOf("second.json"));
    first.sink()(L"CMD BEGIN A(true)");
    second.sink()(L"CMD END   A(true)");
    second.sink()(L"CMD BEGIN B(true)");
    first.sink()(L"CMD END   A(true)");
    ASSERT_TRUE(first.close() && second.close());
    EXPECT_FALSE(slicesOf(path).at(0).isUnfinished);
    EXPECT_EQ(slicesOf(pathOf("second.json")).at(0).name, QStringLiteral("B"));
    EXPECT_EQ(instantsOf(pathOf("second.json")).size(), 1);
    EXPECT_EQ(metadata(eventsOf(pathOf("second.json")), "thread_name")[::getpid()],
              QStringLiteral("main"));
}

TEST_F(TraceWriterTest, existingFileIsOverwritten)
{
    write(std::vector<std::wstring>(1000, L"long"));
    write({L"short"});
    EXPECT_EQ(instantsOf(path), QStringList {QStringLiteral("short")});
}

TEST_F(TraceWriterTest, fileIsValidAfterEachFlushWhileOpen)
{
    TraceWriter writer(path);
    const auto sink = writer.sink();
    EXPECT_EQ(eventsOf(path).size(), 1U);
    sink(L"a");
    EXPECT_TRUE(writer.flush());
    EXPECT_TRUE(writer.isOpen());
    EXPECT_EQ(instantsOf(path), QStringList {QStringLiteral("a")});
    EXPECT_TRUE(writer.flush());
    sink(L"b");
    EXPECT_TRUE(writer.flush());
    EXPECT_EQ(instantsOf(path), (QStringList {QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_TRUE(writer.close());
    EXPECT_EQ(instantsOf(path).size(), 2);
}

TEST_F(TraceWriterTest, fullBufferGoesToTheFileAsWholeEvents)
{
    TraceWriter writer(path);
    const auto sink = writer.sink();
    int written = 0;
    while (contentOf(path).size() < 200000) {
        sink(L"waypoint " + std::to_wstring(written++));
        ASSERT_LT(written, 10000) << "nothing reaches the file";
    }
    const QStringList names = instantsOf(path);
    EXPECT_LE(written - names.size(), 64 * 1024 / 80);
    EXPECT_EQ(names.last(), QStringLiteral("waypoint %1").arg(names.size() - 1));
    EXPECT_TRUE(writer.close());
    EXPECT_EQ(instantsOf(path).size(), written);
}

TEST_F(TraceWriterTest, closeEndsTheTraceOnceAndForAll)
{
    TraceWriter writer(path);
    writer.sink()(L"CMD BEGIN A(true)");
    EXPECT_TRUE(writer.close());
    EXPECT_FALSE(writer.isOpen());
    EXPECT_TRUE(writer.errorText().empty());
    const QByteArray content = contentOf(path);
    writer.sink()(L"CMD END   A(true)");
    EXPECT_TRUE(writer.flush());
    EXPECT_TRUE(writer.close());
    EXPECT_EQ(contentOf(path), content);
    EXPECT_TRUE(slicesOf(path).at(0).isUnfinished);
}

TEST_F(TraceWriterTest, destructorClosesAndTheSinkMayOutliveIt)
{
    Kernel kernel;
    {
        TraceWriter writer(path);
        kernel.setWaypointSink(writer.sink());
        kernel.ProfilerWaypoint(L"a");
    }
    const QByteArray content = contentOf(path);
    EXPECT_EQ(instantsOf(path).size(), 1);
    EXPECT_EQ(kernel.ProfilerWaypoint(L"b"), Orrin::Core::eRcmSuccess);
    kernel.setWaypointSink({});
    EXPECT_EQ(contentOf(path), content);
}

TEST_F(TraceWriterTest, fileThatCannotBeOpenedIsReportedAndIgnored)
{
    for (const std::string &bad : {pathOf("missing/trace.json"), pathOf("."), std::string()}) {
        TraceWriter writer(bad);
        EXPECT_FALSE(writer.isOpen()) << bad;
        EXPECT_FALSE(writer.errorText().empty());
        EXPECT_NO_THROW(writer.sink()(L"a"));
        EXPECT_FALSE(writer.flush());
        EXPECT_FALSE(writer.close());
    }
    EXPECT_EQ(TraceWriter(pathOf("missing/trace.json")).errorText(), "No such file or directory");
}

TEST_F(TraceWriterTest, deviceWithoutSpaceIsReported)
{
    TraceWriter writer("/dev/full");
    EXPECT_FALSE(writer.isOpen());
    EXPECT_EQ(writer.errorText(), "No space left on device");
    EXPECT_FALSE(writer.close());
}

TEST_F(TraceWriterTest, writeThatFailsHalfWayLeavesAValidTrace)
{
    constexpr int limit = 100000;
    TraceWriter writer(path);
    {
        const FileSizeLimit guard(limit);
        const auto sink = writer.sink();
        for (int i = 0; i < 5000 && writer.isOpen(); ++i)
            EXPECT_NO_THROW(sink(L"waypoint " + std::to_wstring(i)));
        EXPECT_FALSE(writer.isOpen());
        EXPECT_EQ(writer.errorText(), "File too large");
        EXPECT_FALSE(writer.flush());
        EXPECT_FALSE(writer.close());
    }
    const QStringList names = instantsOf(path);
    EXPECT_GT(names.size(), 100);
    EXPECT_EQ(names.last(), QStringLiteral("waypoint %1").arg(names.size() - 1));
    EXPECT_LE(contentOf(path).size(), limit);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, failedWriteCutsItsOwnFileAfterTheWorkingFolderChanged)
{
    const QString before = QDir::currentPath();
    const QTemporaryDir elsewhere;
    const QString other = elsewhere.filePath("trace.json");
    const QByteArray otherContent(5000, 'x');
    QFile otherFile(other);
    ASSERT_TRUE(otherFile.open(QIODevice::WriteOnly));
    otherFile.write(otherContent);
    otherFile.close();
    ASSERT_TRUE(QDir::setCurrent(QString::fromStdString(pathOf("."))));
    TraceWriter writer("trace.json");
    ASSERT_TRUE(QDir::setCurrent(elsewhere.path()));
    {
        const FileSizeLimit guard(rlim_t(contentOf(path).size()) + 10);
        writer.sink()(std::wstring(100, L'a'));
        EXPECT_FALSE(writer.close());
    }
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_EQ(contentOf(other.toStdString()), otherContent);
    EXPECT_EQ(eventsOf(path).size(), 1U);
}

TEST_F(TraceWriterTest, failureAtTheLastFlushIsReportedByClose)
{
    TraceWriter writer(path);
    writer.sink()(L"a");
    const FileSizeLimit guard(rlim_t(contentOf(path).size()) + 10);
    EXPECT_TRUE(writer.isOpen());
    EXPECT_FALSE(writer.close());
    EXPECT_EQ(writer.errorText(), "File too large");
    EXPECT_EQ(eventsOf(path).size(), 1U);
}

TEST_F(TraceWriterTest, lackOfMemoryLosesSingleEventsAndIsReported)
{
    const std::vector<std::wstring> waypoints {L"CMD BEGIN A(true)", L"CMD END   A(true)",
                                               L"CMD END   B(true)", L"some other waypoint"};
    TraceWriter writer(path);
    const auto sink = writer.sink();
    EXPECT_TRUE(writer.errorText().empty());
    std::size_t faults = 0;
    for (const std::wstring &waypoint : waypoints) {
        for (std::size_t k = 0;; ++k) {
            FailingNew fault(k);
            EXPECT_NO_THROW(sink(waypoint));
            fault.disarm();
            if (!fault.happened())
                break;
            ++faults;
        }
    }
    EXPECT_GE(faults, waypoints.size());
    EXPECT_TRUE(writer.isOpen());
    EXPECT_EQ(writer.errorText(), "Cannot allocate memory");
    EXPECT_FALSE(writer.flush());
    EXPECT_FALSE(writer.close());
    EXPECT_EQ(slicesOf(path).size(), 1U);
    EXPECT_EQ(
        instantsOf(path),
        (QStringList {QStringLiteral("CMD END   B(true)"), QStringLiteral("some other waypoint")}));
}

TEST_F(TraceWriterTest, lackOfMemoryInTheFirstEventOfAThreadKeepsTheTraceValid)
{
    TraceWriter writer(path);
    const auto sink = writer.sink();
    const std::wstring waypoint = L"CMD BEGIN A(true)";
    std::size_t faults = 0;
    for (bool happened = true; happened; ++faults) {
        std::thread([&] {
            FailingNew fault(faults);
            sink(waypoint);
            happened = fault.happened();
        }).join();
    }
    EXPECT_GT(faults, 2U);
    EXPECT_FALSE(writer.close());
    EXPECT_EQ(slicesOf(path).size(), 1U);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterTest, threadsWriteTogether)
{
    constexpr int count = 4;
    constexpr int runs = 500;
    TraceWriter writer(path);
    Kernel kernel;
    kernel.setWaypointSink(writer.sink());
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&kernel, &writer, own = std::to_wstring(i)] {
            for (int k = 0; k < runs; ++k) {
                kernel.ProfilerWaypoint((L"CMD BEGIN Own" + own + L"(true)").c_str());
                kernel.ProfilerWaypoint(L"CMD BEGIN Shared(false)");
                kernel.ProfilerWaypoint(L"instant");
                kernel.ProfilerWaypoint(L"CMD END   Shared(false)");
                kernel.ProfilerWaypoint((L"CMD END   Own" + own + L"(true)").c_str());
                if (k % 100 == 0) {
                    EXPECT_TRUE(writer.flush());
                }
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    ASSERT_TRUE(writer.close());
    const Events events = eventsOf(path);
    const auto slices = slicesOf(events);
    EXPECT_EQ(slices.size(), std::size_t(2 * count * runs));
    EXPECT_EQ(withPhase(events, "i").size(), std::size_t(count * runs));
    for (const Slice &slice : slices) {
        EXPECT_FALSE(slice.isUnfinished);
        EXPECT_TRUE(slice.name == QLatin1String("Shared") || slice.beginThread == slice.endThread);
    }
    EXPECT_EQ(checkTrace(path, "--require Own0 --require Own3 --require Shared"), 0);
}

TEST_F(TraceWriterTest, closingWhileThreadsWriteLeavesAValidTrace)
{
    std::atomic<int> written {0};
    Kernel kernel;
    std::vector<std::thread> threads;
    {
        TraceWriter writer(path);
        kernel.setWaypointSink(writer.sink());
        for (int i = 0; i < 3; ++i) {
            threads.emplace_back([&] {
                for (int k = 0; k < 3000; ++k, ++written) {
                    kernel.ProfilerWaypoint(L"CMD BEGIN A(true)");
                    kernel.ProfilerWaypoint(L"CMD END   A(true)");
                }
            });
        }
        while (written < 500)
            std::this_thread::yield();
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_GE(slicesOf(path).size(), 500U);
    EXPECT_EQ(checkTrace(path), 0);
}

TEST_F(TraceWriterDeathTest, traceThatNobodyClosedIsClosedAtExit)
{
    const auto leaveOpen = [this] {
        static TraceWriter *kept = nullptr;
        kept = new TraceWriter(path);
        kept->sink()(L"CMD BEGIN A(true)");
        kept->sink()(L"a");
        std::exit(0);
    };
    EXPECT_EXIT(leaveOpen(), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(checkTrace(path, "--require A"), 0);
    EXPECT_EQ(instantsOf(path).size(), 1);
}

TEST_F(TraceWriterDeathTest, traceOfAProcessThatDiesIsValidUpToTheLastFlush)
{
    const auto die = [this] {
        static TraceWriter *kept = nullptr;
        kept = new TraceWriter(path);
        kept->sink()(L"CMD BEGIN A(true)");
        kept->flush();
        kept->sink()(L"lost");
        ::_exit(0);
    };
    EXPECT_EXIT(die(), ::testing::ExitedWithCode(0), "");
    EXPECT_EQ(namesOf(withPhase(eventsOf(path), "b")), QStringList {QStringLiteral("A")});
    EXPECT_EQ(checkTrace(path, "--allow-open"), 0);
    EXPECT_NE(checkTrace(path, "2>/dev/null"), 0);
}
