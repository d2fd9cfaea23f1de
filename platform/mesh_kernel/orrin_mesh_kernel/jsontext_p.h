// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

namespace Orrin::Core::Internal {

/// Appends @p text to @p json as the inside of a JSON string, in UTF-8. Surrogate pairs are joined
/// whatever the width of wchar_t; what is no character, as a lone surrogate, becomes U+FFFD.
void appendJsonText(std::string &json, std::wstring_view text);

} // namespace Orrin::Core::Internal
