// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "core/coreexport.h"

#include <memory>

namespace Tessel {

/// The one place of an object that knows its shared owners. \sa SharedObject
class TESSEL_CORE_VISIBLE SharedObjectInternal
    : public std::enable_shared_from_this<SharedObjectInternal>
{
public:
    virtual ~SharedObjectInternal() = default;
};

/// Gives objects of the class T, which derives from it, a shared_from_this() that also works on an
/// object that nobody owns yet. A class may have several such bases; they share one owner count.
template<typename T>
class TESSEL_CORE_VISIBLE SharedObject : public virtual SharedObjectInternal
{
public:
    /// A shared pointer to this object. If none owns it yet, the result adopts it: the object is
    /// deleted with the last copy, so it has to come from new. Null while the object is being
    /// destroyed. Owners may come and go on any thread, but the first call on an unowned object
    /// must not race with another.
    /// @throw std::bad_alloc when memory runs out while it adopts the object, which is deleted then
    std::shared_ptr<T> shared_from_this()
    {
        const std::weak_ptr<SharedObjectInternal> self = this->weak_from_this();
        if (const auto owner = self.lock())
            return std::dynamic_pointer_cast<T>(owner);
        const std::weak_ptr<SharedObjectInternal> never;
        const bool hadOwner = self.owner_before(never) || never.owner_before(self);
        if (hadOwner)
            return nullptr;
        return std::dynamic_pointer_cast<T>(std::shared_ptr<SharedObject<T>>(this));
    }
};

} // namespace Tessel
