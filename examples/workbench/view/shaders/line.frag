#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 lineColor;
out vec4 color;

void main()
{
    color = vec4(lineColor, 1.0);
}
