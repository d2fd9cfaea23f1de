// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/InteractiveTool>

#include <QVector>

#include <memory>

namespace Workbench {

class CameraRig;
class FacePicker;
class MeshDocument;

/// What the tools that select faces work on.
struct SelectionScene
{
    std::shared_ptr<MeshDocument> document;
    std::shared_ptr<CameraRig> rig;
    std::shared_ptr<FacePicker> picker;
};

/// A tool by which the user selects faces. With the control key they join the ones selected.
class SelectionTool : public Vela::UiBase::InteractiveTool
{
public:
    SelectionTool(Vela::UiBase::BaseView *view, SelectionScene scene);

    /// Ends the operation, if there is one, without selecting anything.
    void finish();

protected:
    const SelectionScene &scene() const { return m_scene; }
    void select(const QVector<int> &faces, Qt::KeyboardModifiers modifiers);

private:
    const SelectionScene m_scene;
};

} // namespace Workbench
