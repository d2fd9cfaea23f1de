// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "support/testmain.h"

#include <cstdio>

namespace Lumo::Test {

void prepareProcess()
{
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace Lumo::Test
