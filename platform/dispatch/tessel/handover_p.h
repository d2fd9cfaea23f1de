// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace Tessel {

// Qt is not built for ThreadSanitizer, which so can't see that Qt hands events and work from one
// thread to the next under a lock. It is told where one thread lets go of something and where the
// next one has it. In any other build the two do nothing.

inline void letGo([[maybe_unused]] void *what)
{
#ifdef __SANITIZE_THREAD__
    __tsan_release(what);
#endif
}

inline void takeOver([[maybe_unused]] void *what)
{
#ifdef __SANITIZE_THREAD__
    __tsan_acquire(what);
#endif
}

} // namespace Tessel
