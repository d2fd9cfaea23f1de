#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 position;
in vec3 color;

uniform mat4 toClip;

out vec3 endColor;

void main()
{
    endColor = color;
    gl_Position = toClip * vec4(position, 1.0);
}
