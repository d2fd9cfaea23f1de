// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

// The templates of this folder are instantiated in several libraries; their type information has to
// be one and the same everywhere for dynamic_cast and exceptions to work across them.
#if defined(__GNUC__) && !defined(_WIN32)
#define TESSEL_CORE_VISIBLE __attribute__((visibility("default")))
#else
#define TESSEL_CORE_VISIBLE
#endif
