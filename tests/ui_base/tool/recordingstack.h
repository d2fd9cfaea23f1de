// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/tool/testtool.h"
#include "ui_base/tool/toolstack.h"

#include <utility>

namespace Lumo::Test {

/// A stack that writes down what its tools tell it before it acts on it, as a view controller
/// would.
class RecordingStack : public Vela::UiBase::ToolStack
{
public:
    using Tool = Vela::UiBase::InteractiveTool;

    void toolActivated(Tool *tool) override { m_recorder.toolActivated(tool); }
    void toolDeactivated(Tool *tool) override { m_recorder.toolDeactivated(tool); }
    void toolSuspended(Tool *tool) override { m_recorder.toolSuspended(tool); }
    void toolResumed(Tool *tool) override { m_recorder.toolResumed(tool); }
    void toolCursorChange(Tool *tool) override { m_recorder.toolCursorChange(tool); }
    void toolBeganOperating(Tool *tool) override
    {
        m_recorder.toolBeganOperating(tool);
        ToolStack::toolBeganOperating(tool);
    }
    void toolEndedOperating(Tool *tool) override
    {
        m_recorder.toolEndedOperating(tool);
        ToolStack::toolEndedOperating(tool);
    }

    /// What was heard since the last call, separated by blanks.
    QString takeEvents() { return m_recorder.takeEvents().join(QLatin1Char(' ')); }
    void react(const char *event, std::function<void()> reaction)
    {
        m_recorder.react(event, std::move(reaction));
    }

    using ToolStack::isResetting;
    using ToolStack::m_pendingRightPress;

private:
    ToolRecorder m_recorder;
};

} // namespace Lumo::Test
