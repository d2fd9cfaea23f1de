#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 eyePosition;
in vec3 eyeNormal;
out vec4 color;

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    color = vec4(shade(eyePosition, eyeNormal, gl_FrontFacing), 1.0);
}
