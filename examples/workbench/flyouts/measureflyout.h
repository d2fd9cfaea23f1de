// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/panelcommand.h"

#include <memory>

class QLabel;

namespace Workbench {

class MeshDocument;
class SidePanel;

/// Tells the sizes of the mesh and of what is selected, as long as its panel is open. The button in
/// the strip of the panel opens another one beside it, with figures of the faces.
class MeasureFlyout : public PanelCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit MeasureFlyout(std::shared_ptr<MeshDocument> document);

    void onBegin() override;
    /// There is nothing to apply.
    bool onExecuteAsync(bool checked) override;

    /// The panel beside; null when that has gone with the window.
    SidePanel *facesPanel() const;

private:
    MeasureFlyout(std::shared_ptr<MeshDocument> document, QWidget *table);

    void addFacesPanel();
    void speak();
    void showMesh();
    void showFaces();
    void showSelection();

    const std::shared_ptr<MeshDocument> m_document;
    QLabel *m_size;
    QLabel *m_area;
    QLabel *m_volume;
    QLabel *m_selected;
    QPointer<SidePanel> m_facesPanel;
    QLabel *m_shortest;
    QLabel *m_longest;
    QLabel *m_mean;
    QLabel *m_sharpest;
};

} // namespace Workbench
