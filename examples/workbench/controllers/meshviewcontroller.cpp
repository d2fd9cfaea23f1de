// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "controllers/meshviewcontroller.h"

#include "controllers/comparecontroller.h"
#include "meshdocument.h"
#include "tools/bandtool.h"
#include "tools/orbittool.h"
#include "tools/pantool.h"
#include "tools/picktool.h"
#include "tools/zoomtool.h"
#include "view/camerarig.h"
#include "view/facepicker.h"
#include "view/meshview.h"

#include <ui_base/BaseView>

#include <QAction>

#include <utility>

namespace Workbench {

using namespace Vela::UiBase;

MeshViewController::MeshViewController(BaseView *view, std::shared_ptr<MeshDocument> document)
    : CmdsViewController(view)
    , m_document(std::move(document))
    , m_rig(std::make_shared<CameraRig>())
    , m_picker(std::make_shared<FacePicker>())
{
    view->setQtWidget(new MeshView(m_rig, view->getQtWidget()->parentWidget()));
    connectDocument();
}

MeshViewController::~MeshViewController() = default;

MeshView *MeshViewController::meshView() const
{
    return qobject_cast<MeshView *>(getQtWidget());
}

void MeshViewController::connectDocument()
{
    connect(m_document.get(), &MeshDocument::meshChanged, this, [this] {
        m_picker->setMesh(m_document->mesh());
        if (meshView())
            meshView()->setMesh(m_document->mesh());
    });
    connect(m_document.get(), &MeshDocument::selectionChanged, this, [this] {
        if (meshView())
            meshView()->setSelection(m_document->selection());
    });
    connect(m_document.get(), &MeshDocument::opened, this, [this] {
        Camera camera;
        camera.frame(boundsOf(m_document->mesh()));
        m_rig->setCamera(camera);
    });
}

void MeshViewController::setClosingQuestion(Question question)
{
    m_question = std::move(question);
}

void MeshViewController::viewDidLoad()
{
    CmdsViewController::viewDidLoad();
    pushTools();
}

void MeshViewController::pushTools()
{
    const SelectionScene scene {m_document, m_rig, m_picker};
    pushTool(eToolButtonLeft, std::make_shared<OrbitTool>(getView(), m_rig));
    pushTool(eToolButtonMiddle, std::make_shared<PanTool>(getView(), m_rig));
    pushTool(eToolButtonRight, std::make_shared<BandTool>(getView(), scene));
    pushTool(eToolButtonNone, std::make_shared<ZoomTool>(getView(), m_rig));
}

bool MeshViewController::canShutdown()
{
    return !m_question || m_question();
}

bool MeshViewController::viewWillClose()
{
    if (!canShutdown() || !CmdsViewController::viewWillClose())
        return false;
    // A view can be closed in the middle of a drag.
    finishOperation();
    clearTools();
    return true;
}

/// Ends what the user is dragging. The tool that is covered by another would wait for ever for the
/// release of its button.
void MeshViewController::finishOperation()
{
    const std::shared_ptr<InteractiveTool> tool = getOperatingTool();
    if (auto *const cameraTool = dynamic_cast<CameraTool *>(tool.get()))
        cameraTool->finish();
    else if (auto *const selectionTool = dynamic_cast<SelectionTool *>(tool.get()))
        selectionTool->finish();
}

bool MeshViewController::isPicking()
{
    return dynamic_cast<PickTool *>(getTool(eToolButtonLeft).get());
}

void MeshViewController::beginPicking(QAction *command)
{
    if (isPicking() || !getView())
        return;
    finishOperation();
    const SelectionScene scene {m_document, m_rig, m_picker};
    pushTool(eToolButtonLeft, std::make_shared<PickTool>(getView(), scene, command));
}

void MeshViewController::endPicking()
{
    if (!isPicking())
        return;
    finishOperation();
    popTool(eToolButtonLeft);
}

void MeshViewController::beginComparing(QAction *command)
{
    if (m_comparison || !meshView())
        return;
    m_comparison = new CompareController(*this);
    connect(m_comparison, &CompareController::closeRequested, command,
            [command] { command->setChecked(false); });
    presentViewController(m_comparison, eTransitionFromBottom);
}

void MeshViewController::endComparing()
{
    if (m_comparison)
        m_comparison->dismissViewController();
    m_comparison.clear();
}

CompareController *MeshViewController::comparison() const
{
    return m_comparison;
}

} // namespace Workbench
