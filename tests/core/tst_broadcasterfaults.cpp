// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "core/broadcaster.h"

#include "greetprotocol.h"
#include "support/eventloop.h"
#include "support/failingnew.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <new>

using Lumo::Test::FailingNew;
using Lumo::Test::NewCounter;
using testing::ElementsAre;

namespace {

class Counts : public GreetProtocol
{
public:
    void greeted(QString) override { ++calls; }
    int calls = 0;
};

class BroadcasterFaults : public testing::Test
{
protected:
    TestApplication application;
    Tessel::Broadcaster<GreetProtocol> greeter;
    const QString name = QStringLiteral("you");
};

TEST_F(BroadcasterFaults, aFailedBroadcastReachesNobodyOrTheDirectObserversOnly)
{
    for (std::size_t k = 0;; ++k) {
        Tessel::Broadcaster<GreetProtocol> fresh;
        const auto direct = std::make_shared<Counts>();
        const auto queued = std::make_shared<Counts>();
        fresh.addObserver(direct, false);
        fresh.addObserver(queued, true);
        bool failed = false;
        FailingNew fault(k);
        try {
            fresh.broadcast(&GreetProtocol::greeted, name);
        } catch (const std::bad_alloc &) {
            failed = true;
        }
        const bool happened = fault.happened();
        fault.disarm();
        QCoreApplication::processEvents();
        EXPECT_EQ(direct->calls, failed ? 0 : 1) << k;
        EXPECT_EQ(queued->calls, failed ? 0 : 1) << k;
        fresh.broadcast(&GreetProtocol::greeted, name);
        QCoreApplication::processEvents();
        EXPECT_EQ(direct->calls, failed ? 1 : 2) << "after fault " << k;
        EXPECT_EQ(queued->calls, failed ? 1 : 2) << "after fault " << k;
        if (!happened) {
            EXPECT_GT(k, 2u);
            break;
        }
    }
}

TEST_F(BroadcasterFaults, aFailedRegistrationChangesNothing)
{
    Listener::Journal journal;
    QObject parent;
    for (std::size_t k = 0;; ++k) {
        Tessel::Broadcaster<GreetProtocol> fresh;
        const auto known = std::make_shared<Counts>();
        fresh.addObserver(known, false);
        const auto direct = std::make_shared<Counts>();
        const auto queued = std::make_shared<Counts>();
        ObjectListener object(journal, &parent);
        FailingNew fault(k);
        try {
            fresh.addObserver(direct, false);
            fresh.addObserver(queued, true);
            fresh.addObserver(&object);
        } catch (const std::bad_alloc &) { }
        const bool happened = fault.happened();
        fault.disarm();
        fresh.broadcast(&GreetProtocol::greeted, name);
        QCoreApplication::processEvents();
        EXPECT_EQ(known->calls, 1) << k;
        if (!happened) {
            EXPECT_EQ(direct->calls + queued->calls, 2);
            EXPECT_EQ(journal.size(), 1u);
            EXPECT_GT(k, 2u);
            break;
        }
    }
}

TEST_F(BroadcasterFaults, aWaitingBroadcastCostsTheSameForAnyNumberOfObservers)
{
    std::vector<std::shared_ptr<Counts>> observers;
    const auto bytesOfABroadcast = [&] {
        greeter.broadcast(&GreetProtocol::greeted, name);
        const NewCounter counter;
        greeter.broadcast(&GreetProtocol::greeted, name);
        return counter.bytes();
    };
    observers.push_back(std::make_shared<Counts>());
    greeter.addObserver(observers.back(), true);
    const std::size_t bytesOfOne = bytesOfABroadcast();
    for (int i = 1; i < 1000; ++i) {
        observers.push_back(std::make_shared<Counts>());
        greeter.addObserver(observers.back(), true);
    }
    QCoreApplication::processEvents();
    EXPECT_LE(bytesOfABroadcast(), std::max<std::size_t>(bytesOfOne, 128));
    QCoreApplication::processEvents();
}

} // namespace
