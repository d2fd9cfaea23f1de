// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <core/Broadcaster>
#include <tessel/dispatch.h>

#include <QCoreApplication>

#include <cstdio>
#include <memory>

class Protocol
{
public:
    virtual ~Protocol() = default;
    virtual void said(int) { }
};

class Observer : public Protocol
{
public:
    void said(int value) override { m_heard = value; }
    int heard() const { return m_heard; }

private:
    int m_heard = 0;
};

// A broadcast to an observer on the main queue goes through the host's dispatch library.
int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    Tessel::Broadcaster<Protocol> broadcaster;
    const auto observer = std::make_shared<Observer>();
    broadcaster.addObserver(observer, true);
    broadcaster.broadcast(&Protocol::said, 7);
    QCoreApplication::processEvents();
    std::printf("host: heard %d, own dispatch calls %d\n", observer->heard(), ownDispatchCalls());
    return observer->heard() == 7 && ownDispatchCalls() == 1 ? 0 : 1;
}
