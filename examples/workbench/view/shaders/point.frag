#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 eyePosition;
in vec3 eyeNormal;
out vec4 color;

uniform float size; // pixels

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    // What looks away lies on the far side and would make the near one hard to read.
    float outside = size * (length(gl_PointCoord - 0.5) - 0.5); // pixels
    float cover = clamp(-outside, 0.0, 1.0);
    if (dot(eyeNormal, eyePosition) > 0.0 || cover == 0.0)
        discard;
    color = vec4(shade(eyePosition, eyeNormal, true), cover);
}
