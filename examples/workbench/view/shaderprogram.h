// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QOpenGLShader>
#include <QString>

#include <initializer_list>

class QOpenGLShaderProgram;

namespace Workbench {

/// The places of the attributes in every program here.
constexpr int positionAttribute = 0;
constexpr int normalAttribute = 1;
constexpr int colorAttribute = 2;

/// A shader in the resources, by the name of its file. The name tells its kind too.
using ShaderFiles = std::initializer_list<const char *>;

/// Compiles and links @p files into @p program, for the current context.
/// @return what the driver has against it; empty when it is ready
QString buildProgram(QOpenGLShaderProgram &program, ShaderFiles files);

} // namespace Workbench
