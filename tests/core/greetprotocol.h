// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QObject>
#include <QString>
#include <QThread>

#include <functional>
#include <string>
#include <vector>

/// A protocol with operations of every shape that a broadcaster can send.
class GreetProtocol
{
public:
    virtual ~GreetProtocol() = default;
    virtual void greeted(QString name)
    {
        Q_UNUSED(name)
        ++unheard;
    }
    virtual void greetedByReference(const QString &name) { Q_UNUSED(name) }
    virtual void left() { }
    virtual int count(int factor) { return factor; }
    virtual bool mayLeave() { return true; }

    /// Greetings that no derived class took, as one that is destroyed already does not.
    inline static int unheard = 0;
};

/// Writes down what it hears in a journal that several observers share.
class Listener : public GreetProtocol
{
public:
    using Journal = std::vector<std::string>;

    explicit Listener(Journal &to, std::string asName = "direct")
        : journal(to)
        , called(std::move(asName))
    { }

    void greeted(QString name) override
    {
        journal.push_back(called + ":" + name.toStdString());
        thread = QThread::currentThread();
        if (onGreeted)
            onGreeted();
    }

    void greetedByReference(const QString &name) override
    {
        journal.push_back(called + ":" + name.toStdString());
    }

    int count(int factor) override { return factor * weight; }

    Journal &journal;
    std::string called;
    QThread *thread = nullptr;
    int weight = 1;
    std::function<void()> onGreeted;
};

/// The same as a QObject, for registration by plain pointer.
class ObjectListener : public QObject, public Listener
{
public:
    explicit ObjectListener(Journal &to, QObject *parent, std::string asName = "object")
        : QObject(parent)
        , Listener(to, std::move(asName))
    { }
};

/// The application of a test that needs the main queue.
class TestApplication
{
private:
    int m_argc = 1;
    char m_name[5] = "test";
    char *m_argv[2] = {m_name, nullptr};
    QCoreApplication m_application {m_argc, m_argv};
};
