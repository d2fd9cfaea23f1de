// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

namespace Lumo::Bench {

/// The rest of a benchmark program's main, after its application object is made: runs what the
/// command line of Google Benchmark asks for and returns the exit code.
int runBenchmarks(int argc, char **argv);

} // namespace Lumo::Bench
