// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_common_res/commonresexport.h"

#include <QString>

namespace Vela::Resource {

/// A text of the library. It is translated each time it is read, so that a translator that is
/// installed later takes effect.
class LUMO_COMMON_RES_EXPORT TranslatedText
{
public:
    /// @param source the English text, marked for translation in the context "Vela::Resource::String";
    ///               it is not copied and has to live as long as the object
    constexpr explicit TranslatedText(const char *source)
        : m_source(source)
    {
    }

    /// The text in the language of the application.
    operator QString() const;

private:
    const char *m_source;
};

/// The shared texts and names.
namespace String {

/// Name of the group of a command that names no other.
inline constexpr TranslatedText COMMAND_DEFAULT_GROUP {"Default"};

} // namespace String

} // namespace Vela::Resource
