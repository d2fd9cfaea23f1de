// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QByteArray;

namespace Vela::UiBase::Internal {

/// Whether @p file, the contents of a file, begins as a PNG does.
bool isPng(const QByteArray &file);

/// Whether @p png, which isPng(), is complete and has right checksums. Qt reads any other with a
/// warning.
bool isIntactPng(const QByteArray &png);

} // namespace Vela::UiBase::Internal
