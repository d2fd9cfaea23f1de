// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "controllers/comparecontroller.h"

#include "controllers/meshviewcontroller.h"
#include "meshdocument.h"
#include "tools/orbittool.h"
#include "tools/pantool.h"
#include "tools/zoomtool.h"
#include "view/camerarig.h"
#include "view/comparepanel.h"
#include "view/meshview.h"

#include <ui_base/BaseView>

#include <QKeyEvent>

namespace Workbench {

using namespace Vela::UiBase;

CompareController::CompareController(MeshViewController &presenter)
    : CmdsViewController(new BaseView(presenter.getView(), Qt::WindowFlags()))
    , m_rig(std::make_shared<CameraRig>())
{
    m_rig->setCamera(presenter.rig().camera());
    getView()->setQtWidget(new ComparePanel(m_rig, presenter.getQtWidget()));
    connect(panel(), &ComparePanel::closeRequested, this, &CompareController::closeRequested);
    follow(presenter);
}

ComparePanel *CompareController::panel() const
{
    return qobject_cast<ComparePanel *>(getQtWidget());
}

void CompareController::follow(MeshViewController &presenter)
{
    MeshDocument &document = presenter.document();
    panel()->before().setMesh(document.originalMesh());
    panel()->after().setMesh(document.mesh());
    panel()->setAppearance(presenter.meshView()->appearance());
    connect(&document, &MeshDocument::meshChanged, panel(), [&document, panel = panel()] {
        panel->before().setMesh(document.originalMesh());
        panel->after().setMesh(document.mesh());
    });
    connect(presenter.meshView(), &MeshView::appearanceChanged, panel(),
            &ComparePanel::setAppearance);
}

bool CompareController::keyPress(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return CmdsViewController::keyPress(event);
    Q_EMIT closeRequested();
    return true;
}

void CompareController::viewDidLoad()
{
    CmdsViewController::viewDidLoad();
    pushTool(eToolButtonLeft, std::make_shared<OrbitTool>(getView(), m_rig));
    pushTool(eToolButtonMiddle, std::make_shared<PanTool>(getView(), m_rig));
    pushTool(eToolButtonNone, std::make_shared<ZoomTool>(getView(), m_rig));
}

bool CompareController::viewWillClose()
{
    clearTools();
    return CmdsViewController::viewWillClose();
}

} // namespace Workbench
