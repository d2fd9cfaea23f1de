// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CmdsViewController>

#include <QPointer>

#include <functional>
#include <memory>

class QAction;

namespace Workbench {

class CameraRig;
class CompareController;
class FacePicker;
class MeshDocument;
class MeshView;

/// The controller of the view in which the user works: it shows the mesh of a document, brings the
/// tools, and presents the comparison over the view.
///
///     left button     Orbit, or Pick while that is pushed over it
///     middle button   Pan
///     right button    a rubber band
///     wheel           Zoom
///
/// Its commands come from the application manager.
class MeshViewController : public Vela::UiBase::CmdsViewController
{
    Q_OBJECT

public:
    /// Asked before the view is closed; false keeps it open.
    using Question = std::function<bool()>;

    /// Makes the native view in place of the widget of @p view, which owns the controller from now
    /// on.
    MeshViewController(Vela::UiBase::BaseView *view, std::shared_ptr<MeshDocument> document);
    ~MeshViewController() override;

    /// The native view; null when it has gone.
    MeshView *meshView() const;
    MeshDocument &document() const { return *m_document; }
    CameraRig &rig() const { return *m_rig; }

    void setClosingQuestion(Question question);

    /// Pushes the tool that picks faces over the one that orbits. @p command is what the user ends
    /// it by; it is unchecked with the Escape key.
    void beginPicking(QAction *command);
    /// Pops that tool, if it is there.
    void endPicking();
    bool isPicking();

    /// Presents the mesh of the file beside the present one. The user closes that by @p command,
    /// which is unchecked.
    void beginComparing(QAction *command);
    /// Dismisses that, if it is there.
    void endComparing();
    /// The controller of the comparison; null when there is none.
    CompareController *comparison() const;

    /// Pushes the tools.
    void viewDidLoad() override;
    /// Asks the closing question, then lets go of the tools.
    bool viewWillClose() override;
    /// Asks the closing question.
    bool canShutdown() override;

private:
    void connectDocument();
    void pushTools();
    void finishOperation();

    const std::shared_ptr<MeshDocument> m_document;
    const std::shared_ptr<CameraRig> m_rig;
    const std::shared_ptr<FacePicker> m_picker;
    QPointer<CompareController> m_comparison;
    Question m_question;
};

} // namespace Workbench
