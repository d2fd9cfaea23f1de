// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/scopedconnection.h"

#include "support/testcase.h"
#include "support/testmain.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>

#include <memory>

using Vela::UiBase::ScopedConnection;

class Counter : public QObject
{
    Q_OBJECT

public:
    int counted = 0;

public Q_SLOTS:
    void count() { ++counted; }
};

class TestScopedConnection : public Lumo::Test::TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void connectsUntilItDies()
    {
        QObject sender;
        Counter receiver;
        auto connection = std::make_unique<ScopedConnection>(
            &sender, SIGNAL(objectNameChanged(QString)), &receiver, SLOT(count()),
            Qt::DirectConnection, nullptr);
        QVERIFY(connection->IsConnected());
        connection.reset();
        sender.setObjectName(QStringLiteral("renamed"));
        QCOMPARE(receiver.counted, 0);
    }

    void itHasOneSlotOfItsOwn()
    {
        const QMetaObject &meta = ScopedConnection::staticMetaObject;
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        const QMetaMethod method = meta.method(meta.methodOffset());
        QCOMPARE(method.methodSignature(), QByteArray("onDestroyed(QObject*)"));
        QCOMPARE(method.methodType(), QMetaMethod::Slot);
        QCOMPARE(method.access(), QMetaMethod::Private);
    }

    void deliversTheSignal()
    {
        QObject sender;
        auto receiver = std::make_unique<Counter>();
        const ScopedConnection connection(&sender, SIGNAL(objectNameChanged(QString)),
                                          receiver.get(), SLOT(count()), Qt::DirectConnection,
                                          nullptr);
        sender.setObjectName(QStringLiteral("a"));
        sender.setObjectName(QStringLiteral("b"));
        QCOMPARE(receiver->counted, 2);
    }

    void endsWithTheReceiver()
    {
        QObject sender;
        auto receiver = std::make_unique<QObject>();
        const ScopedConnection connection(&sender, SIGNAL(objectNameChanged(QString)),
                                          receiver.get(), SLOT(deleteLater()), Qt::DirectConnection,
                                          nullptr);
        receiver.reset();
        QVERIFY(!connection.IsConnected());
    }

    void endsWithTheSender()
    {
        auto sender = std::make_unique<QObject>();
        QObject receiver;
        const ScopedConnection connection(sender.get(), SIGNAL(objectNameChanged(QString)),
                                          &receiver, SLOT(deleteLater()), Qt::DirectConnection,
                                          nullptr);
        sender.reset();
        QVERIFY(!connection.IsConnected());
    }

    void theShortFormConnectsTheSenderToItself()
    {
        Counter counter;
        const ScopedConnection connection(&counter, SIGNAL(objectNameChanged(QString)),
                                          SLOT(count()), Qt::DirectConnection, nullptr);
        QVERIFY(connection.IsConnected());
        counter.setObjectName(QStringLiteral("renamed"));
        QCOMPARE(counter.counted, 1);
    }

    void aSignalCanBeTheMethod()
    {
        QObject sender;
        QObject receiver;
        const QSignalSpy passedOn(&receiver, &QObject::objectNameChanged);
        const ScopedConnection connection(&sender, SIGNAL(objectNameChanged(QString)), &receiver,
                                          SIGNAL(objectNameChanged(QString)), Qt::DirectConnection,
                                          nullptr);
        sender.setObjectName(QStringLiteral("renamed"));
        QCOMPARE(passedOn.count(), 1);
    }

    void itDisconnectsExactlyItsOwnConnection()
    {
        Counter counter;
        QObject sender;
        connect(&sender, SIGNAL(objectNameChanged(QString)), &counter, SLOT(count()));
        {
            const ScopedConnection connection(&sender, SIGNAL(objectNameChanged(QString)), &counter,
                                              SLOT(count()), Qt::DirectConnection, nullptr);
            sender.setObjectName(QStringLiteral("a"));
            QCOMPARE(counter.counted, 2);
        }
        sender.setObjectName(QStringLiteral("b"));
        QCOMPARE(counter.counted, 3);
    }

    void theGivenConnectionTypeIsUsed()
    {
        Counter counter;
        QObject sender;
        const ScopedConnection connection(&sender, SIGNAL(objectNameChanged(QString)), &counter,
                                          SLOT(count()), Qt::QueuedConnection, nullptr);
        sender.setObjectName(QStringLiteral("a"));
        QCOMPARE(counter.counted, 0);
        QTRY_COMPARE(counter.counted, 1);
    }

    void itDiesWithItsParent()
    {
        Counter counter;
        QObject sender;
        auto parent = std::make_unique<QObject>();
        QPointer<ScopedConnection> connection =
            new ScopedConnection(&sender, SIGNAL(objectNameChanged(QString)), &counter,
                                 SLOT(count()), Qt::DirectConnection, parent.get());
        parent.reset();
        QVERIFY(!connection);
        sender.setObjectName(QStringLiteral("a"));
        QCOMPARE(counter.counted, 0);
    }

    void aReceiverThatOwnsTheConnectionMayDie()
    {
        QObject sender;
        auto receiver = std::make_unique<Counter>();
        new ScopedConnection(&sender, SIGNAL(objectNameChanged(QString)), receiver.get(),
                             SLOT(count()), Qt::DirectConnection, receiver.get());
        receiver.reset();
        sender.setObjectName(QStringLiteral("a"));
    }

    void missingEndsConnectNothing()
    {
        QObject object;
        const char *const signal = SIGNAL(objectNameChanged(QString));
        const char *const slot = SLOT(deleteLater());
        QVERIFY(!ScopedConnection(nullptr, signal, &object, slot, Qt::AutoConnection, nullptr)
                     .IsConnected());
        QVERIFY(!ScopedConnection(&object, signal, nullptr, slot, Qt::AutoConnection, nullptr)
                     .IsConnected());
        QVERIFY(!ScopedConnection(&object, nullptr, &object, slot, Qt::AutoConnection, nullptr)
                     .IsConnected());
        QVERIFY(!ScopedConnection(&object, signal, &object, nullptr, Qt::AutoConnection, nullptr)
                     .IsConnected());
        QVERIFY(
            !ScopedConnection(nullptr, signal, slot, Qt::AutoConnection, nullptr).IsConnected());
    }

    void anUnknownSignalConnectsNothingAndSurvivesItsEnds()
    {
        auto sender = std::make_unique<QObject>();
        QObject receiver;
        expectMessage(QStringLiteral("QObject::connect: No such signal QObject::unknown\\(\\).*"));
        const ScopedConnection connection(sender.get(), SIGNAL(unknown()), &receiver,
                                          SLOT(deleteLater()), Qt::AutoConnection, nullptr);
        QVERIFY(!connection.IsConnected());
        sender.reset();
        QVERIFY(!connection.IsConnected());
    }
};

LUMO_TEST_MAIN(TestScopedConnection)

#include "tst_scopedconnection.moc"
