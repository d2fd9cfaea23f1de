// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/appearance.h"

#include <QWidget>

#include <memory>

namespace Workbench {

class CameraRig;
class MeshView;

/// Two views of equal size side by side, each under its name, with a button to close them.
class ComparePanel : public QWidget
{
    Q_OBJECT

public:
    /// @param rig the camera of both views
    /// @param parent what the panel is going to cover
    ComparePanel(const std::shared_ptr<CameraRig> &rig, QWidget *parent);

    MeshView &before() const { return *m_before; }
    MeshView &after() const { return *m_after; }

    void setAppearance(const Workbench::Appearance &appearance);

Q_SIGNALS:
    void closeRequested();

private:
    QWidget *makeHeader();

    MeshView *m_before;
    MeshView *m_after;
};

} // namespace Workbench
