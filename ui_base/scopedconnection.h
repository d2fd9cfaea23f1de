// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QObject>

#include <memory>

namespace Vela::UiBase {

class ScopedConnectionPrivate;

/// A connection between a signal and a slot that ends with this object, with the sender or with the
/// receiver, whichever goes first. It belongs to the thread of the three objects.
///
/// Use it where a connection has to end before both of its ends do, as for an object that is
/// watched only while something else lasts.
class LUMO_UI_BASE_EXPORT ScopedConnection : public QObject
{
    Q_OBJECT

public:
    /// Connects @p signal of @p sender to @p method of @p receiver, both written with SIGNAL() and
    /// SLOT(). Neither object is owned. With a null object or text nothing is connected; a signal
    /// or slot that does not exist leaves Qt's own warning.
    /// @param parent owner of the connection, may be null
    ScopedConnection(const QObject *sender, const char *signal, const QObject *receiver,
                     const char *method, Qt::ConnectionType type, QObject *parent);

    /// The same with @p sender as its own receiver.
    ScopedConnection(const QObject *sender, const char *signal, const char *method,
                     Qt::ConnectionType type, QObject *parent);

    /// Disconnects exactly the connection made by the constructor.
    ~ScopedConnection() override;

    /// True from a successful construction until either end is destroyed.
    bool IsConnected() const;

private Q_SLOTS:
    void onDestroyed(QObject *obj);

private:
    const std::unique_ptr<ScopedConnectionPrivate> d;
    Q_DISABLE_COPY(ScopedConnection)
};

} // namespace Vela::UiBase
