#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 eyePosition;
in vec3 eyeNormal;
out vec4 color;

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    // What looks away lies on the far side and would make the near one hard to read.
    if (dot(eyeNormal, eyePosition) > 0.0 || length(gl_PointCoord - 0.5) > 0.5)
        discard;
    color = vec4(shade(eyePosition, eyeNormal, true) * 0.6, 1.0);
}
