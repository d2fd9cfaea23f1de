// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imageviewcontroller.h"

#include "image/imagedocument.h"
#include "image/imagepantool.h"
#include "image/imageview.h"
#include "image/imagezoomtool.h"

#include <ui_base/BaseView>

#include <utility>

namespace Workbench {

using namespace Vela::UiBase;

ImageViewController::ImageViewController(BaseView *view, std::shared_ptr<ImageDocument> document)
    : CmdsViewController(view)
    , m_document(std::move(document))
{
    view->setQtWidget(new ImageView(view->getQtWidget()->parentWidget()));
    connect(m_document.get(), &ImageDocument::opened, this, [this] {
        if (imageView())
            imageView()->setImage(m_document->image());
    });
}

ImageView *ImageViewController::imageView() const
{
    return qobject_cast<ImageView *>(getQtWidget());
}

void ImageViewController::viewDidLoad()
{
    CmdsViewController::viewDidLoad();
    pushTool(eToolButtonLeft, std::make_shared<ImagePanTool>(getView()));
    pushTool(eToolButtonNone, std::make_shared<ImageZoomTool>(getView()));
}

bool ImageViewController::viewWillClose()
{
    if (!CmdsViewController::viewWillClose())
        return false;
    const std::shared_ptr<InteractiveTool> tool = getOperatingTool();
    if (auto *const panTool = dynamic_cast<ImagePanTool *>(tool.get()))
        panTool->finish();
    clearTools();
    return true;
}

} // namespace Workbench
