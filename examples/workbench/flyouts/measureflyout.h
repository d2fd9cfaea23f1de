// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/panelcommand.h"

#include <memory>

class QLabel;

namespace Workbench {

class MeshDocument;

/// Tells the sizes of the mesh and of what is selected, as long as its panel is open.
class MeasureFlyout : public PanelCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    explicit MeasureFlyout(std::shared_ptr<MeshDocument> document);

    void onBegin() override;
    /// There is nothing to apply.
    bool onExecuteAsync(bool checked) override;

private:
    MeasureFlyout(std::shared_ptr<MeshDocument> document, QWidget *table);

    QLabel *addRow(const QString &name);
    void showMesh();
    void showSelection();

    const std::shared_ptr<MeshDocument> m_document;
    QWidget *const m_table;
    QLabel *m_size;
    QLabel *m_area;
    QLabel *m_volume;
    QLabel *m_selected;
};

} // namespace Workbench
