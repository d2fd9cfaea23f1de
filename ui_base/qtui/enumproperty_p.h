// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <QObject>
#include <QVariant>

#include <type_traits>

namespace Vela::UiBase::Internal {

/// Reads the dynamic property @p name of @p object as an enumerator of @p Enum, which has to be
/// declared as a metatype and is registered here on first use. A value of another type is
/// converted; without an object or a value, or when that fails, the result is the enumerator of 0.
template<typename Enum>
Enum enumProperty(const QObject *object, const char *name)
{
    static_assert(std::is_enum_v<Enum>);
    qRegisterMetaType<Enum>();
    return object && name ? object->property(name).template value<Enum>() : Enum {};
}

} // namespace Vela::UiBase::Internal
