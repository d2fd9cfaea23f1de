// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/BaseView>
#include <ui_base/BaseViewController>

#include "support/recordingobservers.h"

#include <QEvent>
#include <QHash>

#include <functional>

namespace Lumo::Test {

/// Records all that a controller of the class @p Base hears, answers input with `consumes` and a
/// close with `agreesToClose`, and calls what a test puts into `onCall` under the name of an
/// operation.
template<typename Base>
class Recording : public Base
{
public:
    using Base::Base;

    bool mouseDoubleClick(QMouseEvent *) override { return input("mouseDoubleClick"); }
    bool mouseMove(QMouseEvent *) override { return input("mouseMove"); }
    bool mousePress(QMouseEvent *) override { return input("mousePress"); }
    bool mouseRelease(QMouseEvent *) override { return input("mouseRelease"); }
    bool mouseWheel(QWheelEvent *) override { return input("mouseWheel"); }
    bool mouseEnter(QEvent *) override { return input("mouseEnter"); }
    bool mouseLeave(QEvent *) override { return input("mouseLeave"); }
    bool mouseDragEnter(QDragEnterEvent *) override { return input("mouseDragEnter"); }
    bool mouseDragLeave(QDragLeaveEvent *) override { return input("mouseDragLeave"); }
    bool mouseDragMove(QDragMoveEvent *) override { return input("mouseDragMove"); }
    bool mouseDrop(QDropEvent *) override { return input("mouseDrop"); }
    bool keyPress(QKeyEvent *) override { return input("keyPress"); }
    bool keyRelease(QKeyEvent *) override { return input("keyRelease"); }

    void viewDidLoad() override
    {
        record("viewDidLoad");
        Base::viewDidLoad();
    }
    void viewWillAppear() override
    {
        record("viewWillAppear");
        Base::viewWillAppear();
    }
    void viewDidAppear() override
    {
        record("viewDidAppear");
        Base::viewDidAppear();
    }
    void viewWillDisappear() override
    {
        record("viewWillDisappear");
        Base::viewWillDisappear();
    }
    bool viewWillClose() override
    {
        record("viewWillClose");
        return Base::viewWillClose() && agreesToClose;
    }
    void viewDidResize(QResizeEvent *event) override
    {
        record("viewDidResize");
        Base::viewDidResize(event);
    }
    void viewDidMove(QMoveEvent *event) override
    {
        record("viewDidMove");
        Base::viewDidMove(event);
    }

    EventLog log;
    bool consumes = false;
    bool agreesToClose = true;
    QHash<QString, std::function<void()>> onCall;

private:
    bool input(const char *operation)
    {
        record(operation);
        return consumes;
    }
    void record(const char *operation)
    {
        const QString name = QString::fromLatin1(operation);
        log.add(name);
        if (const std::function<void()> call = onCall.value(name))
            call();
    }
};

using RecordingController = Recording<Vela::UiBase::BaseViewController>;

} // namespace Lumo::Test
