// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CmdsViewController>

#include <QPointer>

#include <memory>

namespace Workbench {

class CameraRig;
class ComparePanel;
class MeshViewController;

/// Shows the mesh as it was in its file beside what has become of it, seen by one camera. It is made
/// to be presented over the view of the mesh, whose direction and appearance it begins with.
class CompareController : public Vela::UiBase::CmdsViewController
{
    Q_OBJECT

public:
    /// Makes a view for itself, which owns it. Follows the document and the appearance of
    /// @p presenter from now on.
    explicit CompareController(MeshViewController &presenter);

    /// The two views; null when they have gone.
    ComparePanel *panel() const;
    CameraRig &rig() const { return *m_rig; }

    /// Escape asks to be closed.
    bool keyPress(QKeyEvent *event) override;

    /// Pushes the tools that move the camera.
    void viewDidLoad() override;
    bool viewWillClose() override;

Q_SIGNALS:
    /// The user is done.
    void closeRequested();

private:
    void follow(MeshViewController &presenter);

    const std::shared_ptr<CameraRig> m_rig;
};

} // namespace Workbench
