// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_common_res/string.h"

#include <QCoreApplication>

namespace Vela::Resource {

QString TranslatedText::toString() const
{
    return QCoreApplication::translate("Vela::Resource::String", m_source);
}

QString StableName::toString() const
{
    return QString::fromLatin1(m_name);
}

} // namespace Vela::Resource
