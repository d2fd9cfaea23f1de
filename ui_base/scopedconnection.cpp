// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/scopedconnection.h"

#include <QByteArray>

namespace Vela::UiBase {

class ScopedConnectionPrivate
{
public:
    bool connected = false;
    const QObject *sender = nullptr;
    QByteArray signal;
    const QObject *receiver = nullptr;
    QByteArray method;
    QMetaObject::Connection connection;
    QMetaObject::Connection senderDestroyed;
    QMetaObject::Connection receiverDestroyed;

    bool canConnect() const { return sender && receiver && !signal.isEmpty() && !method.isEmpty(); }

    void forgetEnds()
    {
        connected = false;
        sender = nullptr;
        receiver = nullptr;
    }
};

ScopedConnection::ScopedConnection(const QObject *sender, const char *signal,
                                   const QObject *receiver, const char *method,
                                   Qt::ConnectionType type, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<ScopedConnectionPrivate>())
{
    d->sender = sender;
    d->signal = signal;
    d->receiver = receiver;
    d->method = method;
    if (d->canConnect())
        d->connection = connect(sender, signal, receiver, method, type);
    d->connected = static_cast<bool>(d->connection);
    if (sender)
        d->senderDestroyed =
            connect(sender, &QObject::destroyed, this, &ScopedConnection::onDestroyed);
    if (receiver)
        d->receiverDestroyed =
            connect(receiver, &QObject::destroyed, this, &ScopedConnection::onDestroyed);
}

ScopedConnection::ScopedConnection(const QObject *sender, const char *signal, const char *method,
                                   Qt::ConnectionType type, QObject *parent)
    : ScopedConnection(sender, signal, sender, method, type, parent)
{ }

ScopedConnection::~ScopedConnection()
{
    if (d->connected && d->sender && d->receiver) {
        disconnect(d->connection);
        disconnect(d->senderDestroyed);
        disconnect(d->receiverDestroyed);
    }
    d->forgetEnds();
}

bool ScopedConnection::IsConnected() const
{
    return d->connected;
}

void ScopedConnection::onDestroyed(QObject *obj)
{
    if (!d->connected || (obj != d->sender && obj != d->receiver))
        return;
    disconnect(d->connection);
    d->forgetEnds();
}

} // namespace Vela::UiBase
