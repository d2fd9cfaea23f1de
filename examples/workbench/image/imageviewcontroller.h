// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CmdsViewController>

#include <memory>

namespace Workbench {

class ImageDocument;
class ImageView;

/// The controller of the view that shows the image of a document: the left button drags it, the
/// wheel changes its scale. Its commands come from the application manager.
class ImageViewController : public Vela::UiBase::CmdsViewController
{
    Q_OBJECT

public:
    /// Makes an ImageView in place of the widget of @p view, which owns the controller from now on.
    ImageViewController(Vela::UiBase::BaseView *view, std::shared_ptr<ImageDocument> document);

    /// The widget; null when it has gone.
    ImageView *imageView() const;

    /// Pushes the tools.
    void viewDidLoad() override;
    /// Ends a drag and lets go of the tools.
    bool viewWillClose() override;

private:
    const std::shared_ptr<ImageDocument> m_document;
};

} // namespace Workbench
