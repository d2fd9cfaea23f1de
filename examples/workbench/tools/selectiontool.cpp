// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "tools/selectiontool.h"

#include "meshdocument.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Workbench {

SelectionTool::SelectionTool(Vela::UiBase::BaseView *view, SelectionScene scene)
    : InteractiveTool(view)
    , m_scene(std::move(scene))
{ }

void SelectionTool::finish()
{
    if (isOperating())
        endOperation();
}

void SelectionTool::select(const QVector<int> &faces, Qt::KeyboardModifiers modifiers)
{
    if (!modifiers.testFlag(Qt::ControlModifier)) {
        m_scene.document->select(faces);
        return;
    }
    const QVector<int> &before = m_scene.document->selection();
    QVector<int> both;
    std::set_union(before.begin(), before.end(), faces.begin(), faces.end(),
                   std::back_inserter(both));
    m_scene.document->select(both);
}

} // namespace Workbench
