// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "commandclock.h"
#include "commands/flipnormalscommand.h"
#include "commands/opencommand.h"
#include "commands/savecommand.h"
#include "commands/selectioncommand.h"
#include "commands/smoothcommand.h"
#include "commands/subdividecommand.h"
#include "mesh/cancellation.h"
#include "mesh/meshoperations.h"
#include "mesh/meshreader.h"
#include "meshdocument.h"
#include "support/testcase.h"
#include "support/testmain.h"
#include "testmeshes.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThread>

#include <new>

using namespace Workbench;

namespace {

/// A background command whose work the test decides on.
class FreeCommand : public BackgroundCommand
{
public:
    const QString commandId() const override { return QStringLiteral("FreeCommand"); }
    void setWork(Work work) { m_work = std::move(work); }

    using BackgroundCommand::TakeOver;
    int outOfMemoryCount = 0;

protected:
    Work prepare() override { return m_work; }
    void handleOutOfMemory() override { ++outOfMemoryCount; }

private:
    Work m_work;
};

std::shared_ptr<MeshDocument> documentWith(const Mesh &mesh)
{
    auto document = std::make_shared<MeshDocument>();
    document->open(QStringLiteral("test.obj"), mesh);
    return document;
}

bool isSame(const Mesh &one, const Mesh &other)
{
    return one.positions == other.positions && one.normals == other.normals
        && one.faces == other.faces;
}

} // namespace

class CommandsTest : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Vela::UiBase::CommandBase *>(); }

    void init()
    {
        TestCase::init();
        m_clock = std::make_shared<CommandClock>();
        m_ends = std::make_unique<QSignalSpy>(m_clock.get(), &CommandClock::ended);
    }

    void cleanup()
    {
        m_ends.reset();
        m_clock.reset();
        TestCase::cleanup();
    }

    void workRunsInTheBackgroundAndTheResultIsTakenOverOnTheMainThread()
    {
        auto command = watched(std::make_shared<FreeCommand>());
        QThread *worker = nullptr;
        QThread *taker = nullptr;
        command->setWork([&](const Cancellation &) -> FreeCommand::TakeOver {
            worker = QThread::currentThread();
            return [&] { taker = QThread::currentThread(); };
        });
        QVERIFY(command->onExecute());
        QVERIFY(command->isRunning());
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(worker && worker != QThread::currentThread());
        QCOMPARE(taker, QThread::currentThread());
        QVERIFY(!command->isRunning());
    }

    void theResultIsTakenOverBeforeTheEndIsAnnounced()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        auto command = watched(std::make_shared<SubdivideCommand>(document));
        int facesAtTheEnd = 0;
        connect(m_clock.get(), &CommandClock::ended, this,
                [&] { facesAtTheEnd = document->mesh().faces.size(); });
        command->trigger();
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(facesAtTheEnd, 16);
    }

    void aSecondRunIsRefusedWhileOneIsUnderWay()
    {
        auto command =
            watched(std::make_shared<SubdivideCommand>(documentWith(TestMeshes::tetrahedron())));
        QSignalSpy begins(m_clock.get(), &CommandClock::began);
        QVERIFY(command->onExecute());
        QVERIFY(!command->onExecute());
        QCOMPARE(begins.count(), 1);
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(command->onExecute());
        QTRY_COMPARE(m_ends->count(), 2);
    }

    void savingWritesTheMeshAndIsNoted()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("saved.obj"));
        const auto document = documentWith(TestMeshes::tetrahedron());
        document->flipNormals();
        auto command = watched(std::make_shared<SaveCommand>(document, [path] { return path; }));
        command->trigger();
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(MeshReader::read(path).mesh.faces.size(), 4);
        QVERIFY(!document->isModified());
        QCOMPARE(document->filePath(), path);
    }

    void whatIsChangedWhileItIsSavedStaysUnsaved()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("saved.obj"));
        const auto document = documentWith(TestMeshes::tetrahedron());
        auto command = watched(std::make_shared<SaveCommand>(document, [path] { return path; }));
        command->trigger();
        document->flipNormals();
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(document->isModified());
    }

    void aFileThatCannotBeWrittenIsTold()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        document->flipNormals();
        QSignalSpy problems(document.get(), &MeshDocument::problemReported);
        SaveCommand command(document, [] { return QStringLiteral("/nowhere/saved.obj"); });
        QVERIFY(!command.saveNow());
        QCOMPARE(problems.count(), 1);
        QVERIFY(document->isModified());
    }

    void savingNowIsDoneWhenTheCallReturns()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("saved.obj"));
        const auto document = documentWith(TestMeshes::tetrahedron());
        document->flipNormals();
        SaveCommand command(document, [path] { return path; });
        QVERIFY(command.saveNow());
        QVERIFY(!document->isModified());
        QVERIFY(QFile::exists(path));
        SaveCommand undecided(document, [] { return QString(); });
        QVERIFY(!undecided.saveNow());
    }

    void theMessageOfTheEndTellsWhenARunWasStopped()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        auto command = watched(std::make_shared<SmoothCommand>(document));
        const auto end = Vela::UiBase::CommandBase::ENotification::ExecutionEnded;
        QCOMPARE(command->getExecutionNotificationMessage(end),
                 QStringLiteral("The surface is smoother."));
        command->trigger();
        command->cancel();
        QCOMPARE(command->getExecutionNotificationMessage(end),
                 QStringLiteral("Smooth was stopped."));
        QTRY_COMPARE(m_ends->count(), 1);
    }

    void withoutAMeshNothingIsBegun()
    {
        const auto document = std::make_shared<MeshDocument>();
        auto smooth = watched(std::make_shared<SmoothCommand>(document));
        QSignalSpy begins(m_clock.get(), &CommandClock::began);
        QVERIFY(!smooth->onExecute());
        QCOMPARE(begins.count(), 0);
        QVERIFY(!FlipNormalsCommand(document).onExecute());
    }

    void smoothLowersTheRoughness()
    {
        const Mesh bumpy = TestMeshes::bumpyGrid(8, 0.3F);
        const auto document = documentWith(bumpy);
        auto command = watched(std::make_shared<SmoothCommand>(document));
        command->trigger();
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(roughness(document->mesh()) < roughness(bumpy));
        QCOMPARE(document->mesh().faces, bumpy.faces);
    }

    void flipNormalsIsDoneWhenTheCallReturns()
    {
        const Mesh original = TestMeshes::tetrahedron();
        const auto document = documentWith(original);
        auto command = watched(std::make_shared<FlipNormalsCommand>(document));
        command->trigger();
        QCOMPARE(m_ends->count(), 1);
        QCOMPARE(document->mesh().normals.first(), -original.normals.first());
    }

    void aResultForADocumentThatChangedIsDropped()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        auto command = watched(std::make_shared<SubdivideCommand>(document));
        command->trigger();
        document->flipNormals();
        const Mesh flipped = document->mesh();
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(isSame(document->mesh(), flipped));
    }

    void aCancelledRunEndsAndChangesNothing()
    {
        const Mesh original = TestMeshes::tetrahedron();
        const auto document = documentWith(original);
        auto command = watched(std::make_shared<SmoothCommand>(document));
        command->trigger();
        command->cancel();
        QVERIFY(command->wasCancelled());
        QTRY_COMPARE(m_ends->count(), 1);
        QVERIFY(isSame(document->mesh(), original));
        command->trigger();
        QVERIFY(!command->wasCancelled());
        QTRY_COMPARE(m_ends->count(), 2);
    }

    void cancellingReachesTheWork()
    {
        auto command = watched(std::make_shared<FreeCommand>());
        command->setWork([](const Cancellation &cancellation) -> FreeCommand::TakeOver {
            while (!cancellation.isCancelled())
                QThread::yieldCurrentThread();
            return {};
        });
        command->onExecute();
        command->cancel();
        QTRY_COMPARE(m_ends->count(), 1);
    }

    void cancellingWithoutARunDoesNothing()
    {
        auto command = std::make_shared<FreeCommand>();
        command->cancel();
        QVERIFY(!command->wasCancelled());
    }

    void theOwnerMayLetGoOfACommandDuringItsRun()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        auto command = std::make_shared<SubdivideCommand>(document);
        const std::weak_ptr<SubdivideCommand> watcher = command;
        command->trigger();
        command.reset();
        QTRY_COMPARE(document->mesh().faces.size(), 16);
        QTRY_VERIFY(watcher.expired());
    }

    void workThatRunsOutOfMemoryIsToldAndEnds()
    {
        auto command = watched(std::make_shared<FreeCommand>());
        command->setWork(
            [](const Cancellation &) -> FreeCommand::TakeOver { throw std::bad_alloc(); });
        command->onExecute();
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(command->outOfMemoryCount, 1);
        QVERIFY(!command->isRunning());
    }

    void theSnapshotIsLetGoAtTheEnd()
    {
        auto command = watched(std::make_shared<FreeCommand>());
        auto captured = std::make_shared<int>(0);
        const std::weak_ptr<int> watcher = captured;
        command->setWork([captured](const Cancellation &) -> FreeCommand::TakeOver { return {}; });
        captured.reset();
        command->onExecute();
        command->setWork({});
        QTRY_COMPARE(m_ends->count(), 1);
        QTRY_VERIFY(watcher.expired());
    }

    void aMeshThatIsTooLargeIsNotSubdivided()
    {
        Mesh large = TestMeshes::tetrahedron();
        large.faces.resize(SubdivideCommand::maximumFaces + 1);
        const auto document = documentWith(large);
        QSignalSpy problems(document.get(), &MeshDocument::problemReported);
        SubdivideCommand command(document);
        QVERIFY(!command.onExecute());
        QCOMPARE(problems.count(), 1);
        QVERIFY(problems.first().first().toString().endsWith(QLatin1String("subdivided.")));
    }

    void openReadsTheFileThatTheUserChooses()
    {
        const auto document = std::make_shared<MeshDocument>();
        auto command = watched(std::make_shared<OpenCommand>(
            document, [] { return QStringLiteral(WORKBENCH_TEST_FILES "/tetrahedron.obj"); }));
        QSignalSpy opened(document.get(), &MeshDocument::opened);
        command->trigger();
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(opened.count(), 1);
        QCOMPARE(document->mesh().faces.size(), 4);
        QVERIFY(document->filePath().endsWith(QLatin1String("tetrahedron.obj")));
    }

    void nothingIsOpenedWhenTheUserChangesHisMind()
    {
        auto command = watched(std::make_shared<OpenCommand>(std::make_shared<MeshDocument>(),
                                                             [] { return QString(); }));
        QSignalSpy begins(m_clock.get(), &CommandClock::began);
        command->trigger();
        QCOMPARE(begins.count(), 0);
    }

    void aFileThatCannotBeReadLeavesTheDocumentAlone()
    {
        const Mesh original = TestMeshes::tetrahedron();
        const auto document = documentWith(original);
        QSignalSpy problems(document.get(), &MeshDocument::problemReported);
        auto command = watched(std::make_shared<OpenCommand>(document, [] { return QString(); }));
        QVERIFY(command->open(QStringLiteral(WORKBENCH_TEST_FILES "/pointsonly.obj")));
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(problems.count(), 1);
        QCOMPARE(problems.first().first().toString(),
                 QStringLiteral(WORKBENCH_TEST_FILES "/pointsonly.obj holds no faces."));
        QVERIFY(isSame(document->mesh(), original));
        QCOMPARE(document->filePath(), QStringLiteral("test.obj"));
    }

    void everyCommandHasItsClassAsIdAndAnIcon()
    {
        const auto document = std::make_shared<MeshDocument>();
        const SmoothCommand smooth(document);
        const FlipNormalsCommand flip(document);
        QCOMPARE(smooth.commandId(), QStringLiteral("Workbench::SmoothCommand"));
        QCOMPARE(flip.commandId(), FlipNormalsCommand::className());
        QVERIFY(!smooth.icon().isNull());
        QVERIFY(!flip.icon().isNull());
    }

    void selectionGrowsTurnsRoundAndGoes()
    {
        const auto document = documentWith(TestMeshes::grid(3));
        document->select({0});
        SelectionCommand(ESelectionChange::Grow, document).trigger();
        QCOMPARE(document->selection(), QVector<int>({0, 1, 2, 3, 6, 8, 9}));
        SelectionCommand(ESelectionChange::Invert, document).trigger();
        QCOMPARE(document->selection(), QVector<int>({4, 5, 7, 10, 11, 12, 13, 14, 15, 16, 17}));
        SelectionCommand(ESelectionChange::Clear, document).trigger();
        QCOMPARE(document->selection(), QVector<int>());
        QVERIFY(!document->isModified());
    }

    void selectedFacesAreDeleted()
    {
        const auto document = documentWith(TestMeshes::grid(1));
        document->select({1});
        SelectionCommand(ESelectionChange::Delete, document).trigger();
        QCOMPARE(document->mesh().faces.size(), 1);
        QVERIFY(document->isModified());
        QVERIFY(document->selection().isEmpty());
    }

    void theLastFacesAreNotDeleted()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        document->select({0, 1, 2, 3});
        QSignalSpy problems(document.get(), &MeshDocument::problemReported);
        SelectionCommand(ESelectionChange::Delete, document).trigger();
        QCOMPARE(document->mesh().faces.size(), 4);
        QCOMPARE(problems.count(), 1);
    }

    void selectionCommandsDoNothingWithoutASelection()
    {
        const auto document = documentWith(TestMeshes::tetrahedron());
        SelectionCommand command(ESelectionChange::Invert, document);
        QVERIFY(!command.onExecuteAsync(false));
        QVERIFY(document->selection().isEmpty());
    }

    void theClockCountsWhatRuns()
    {
        auto command = watched(std::make_shared<FreeCommand>());
        command->setWork([](const Cancellation &) -> FreeCommand::TakeOver { return {}; });
        QCOMPARE(m_clock->running(), 0);
        command->onExecute();
        QCOMPARE(m_clock->running(), 1);
        QTRY_COMPARE(m_ends->count(), 1);
        QCOMPARE(m_clock->running(), 0);
        QVERIFY(m_ends->first().at(1).toLongLong() >= 0);
    }

private:
    template<typename Command>
    std::shared_ptr<Command> watched(std::shared_ptr<Command> command)
    {
        CommandClock::watch(m_clock, *command);
        return command;
    }

    std::shared_ptr<CommandClock> m_clock;
    std::unique_ptr<QSignalSpy> m_ends;
};

LUMO_TEST_MAIN(CommandsTest)
#include "tst_commands.moc"
