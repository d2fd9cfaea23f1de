// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tour/tourguide.h"

namespace Workbench {

class Tracing;

/// Uses the workbench by itself as a user would, checks after each step what he would see and what
/// the document says, and keeps a picture of it.
///
/// It never waits for a time: each step goes on when the run that it began has ended and the view
/// has presented it. Where there is no OpenGL, the checks of the view's picture give way to the one
/// that the window says so.
class Tour
{
public:
    /// @param tracing what writes the runs to a file, so that the tour can compare; may be null
    Tour(MainWindow &window, const Options &options, Tracing *tracing);

    /// Takes the tour and closes the window. Needs the application, and runs its event loop.
    /// @return the exit code of the process: 0 when everything was as it should be
    int run();

private:
    void compareTrace();

    TourGuide m_guide;
    Tracing *const m_tracing;
    const QString m_traceFile;
};

} // namespace Workbench
