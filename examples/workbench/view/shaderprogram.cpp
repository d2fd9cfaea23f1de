// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/shaderprogram.h"

#include <QOpenGLShaderProgram>

// The resources stand in a static library, from which the linker takes only what is asked for.
static void initResources()
{
    Q_INIT_RESOURCE(view);
}

namespace Workbench {
namespace {

QOpenGLShader::ShaderType typeOf(const QString &file)
{
    if (file.endsWith(QLatin1String(".vert")))
        return QOpenGLShader::Vertex;
    return file.endsWith(QLatin1String(".geom")) ? QOpenGLShader::Geometry
                                                 : QOpenGLShader::Fragment;
}

} // namespace

QString buildProgram(QOpenGLShaderProgram &program, ShaderFiles files)
{
    initResources();
    for (const char *name : files) {
        const QString file = QStringLiteral(":/workbench/shaders/") + QLatin1String(name);
        if (!program.addShaderFromSourceFile(typeOf(file), file))
            return program.log().simplified();
    }
    program.bindAttributeLocation("position", positionAttribute);
    program.bindAttributeLocation("normal", normalAttribute);
    program.bindAttributeLocation("color", colorAttribute);
    return program.link() ? QString() : program.log().simplified();
}

} // namespace Workbench
