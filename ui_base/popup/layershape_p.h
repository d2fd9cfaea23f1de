// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QRegion;
class QWidget;

namespace Vela::UiBase::Internal {

/// Cuts the layer in which @p floating stands out to what is seen of that. The rest belongs to the
/// view below: the mouse reaches it, and it does not turn black where nothing composes translucent
/// windows. Nothing for a widget that is in no layer.
/// @param seen in coordinates of the widget
void cutOutLayer(QWidget &floating, const QRegion &seen);

/// Takes back what cutOutLayer() did.
void restoreLayer(QWidget &floating);

} // namespace Vela::UiBase::Internal
