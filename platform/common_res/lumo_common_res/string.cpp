// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_common_res/string.h"

#include <QCoreApplication>

namespace Vela::Resource {

TranslatedText::operator QString() const
{
    return QCoreApplication::translate("Vela::Resource::String", m_source);
}

} // namespace Vela::Resource
