// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/zoomimagecommand.h"

#include "image/imageview.h"
#include "image/imageviewcontroller.h"
#include "language.h"

namespace Workbench {
namespace {

constexpr double factorOfStep = 1.25;

struct Description
{
    const char *name;
    const char *text;
    const char *toolTip;
};

Description descriptionOf(EImageZoom zoom)
{
    switch (zoom) {
    case EImageZoom::OriginalSize:
        return {"OriginalSize", QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "&Original Size"),
                QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand",
                                  "Show a pixel of the image as one of the screen")};
    case EImageZoom::In:
        return {"In", QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "Zoom &In"),
                QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "Show the image larger")};
    case EImageZoom::Out:
        return {"Out", QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "Zoom &Out"),
                QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "Show the image smaller")};
    case EImageZoom::Fit:
        break;
    }
    return {"Fit", QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "&Fit Image"),
            QT_TRANSLATE_NOOP("Workbench::ZoomImageCommand", "Show the whole image")};
}

void apply(EImageZoom zoom, ImageView &view)
{
    switch (zoom) {
    case EImageZoom::Fit:
        return view.fit();
    case EImageZoom::OriginalSize:
        return view.showOriginalSize();
    case EImageZoom::In:
        return view.zoom(factorOfStep);
    case EImageZoom::Out:
        return view.zoom(1.0 / factorOfStep);
    }
}

} // namespace

ZoomImageCommand::ZoomImageCommand(EImageZoom zoom)
    : CommandBase(nullptr)
    , m_zoom(zoom)
{
    const Description description = descriptionOf(zoom);
    inEveryLanguage(*this, [this, description] {
        setText(tr(description.text));
        setToolTip(tr(description.toolTip));
    });
    setObjectName(QStringLiteral("image_") + QString::fromLatin1(description.name).toLower());
}

const QString ZoomImageCommand::commandId() const
{
    return QString::fromLatin1(staticMetaObject.className())
        + QString::fromLatin1(descriptionOf(m_zoom).name);
}

bool ZoomImageCommand::onExecuteAsync(bool checked)
{
    Q_UNUSED(checked)
    auto *const controller = qobject_cast<ImageViewController *>(getViewController());
    if (!controller || !controller->imageView())
        return false;
    apply(m_zoom, *controller->imageView());
    return true;
}

} // namespace Workbench
