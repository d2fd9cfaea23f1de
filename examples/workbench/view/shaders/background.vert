#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// One triangle that covers the picture, without any buffer.
out float height;

void main()
{
    vec2 corner = vec2(gl_VertexID == 1 ? 3.0 : -1.0, gl_VertexID == 2 ? 3.0 : -1.0);
    height = corner.y * 0.5 + 0.5;
    gl_Position = vec4(corner, 0.0, 1.0);
}
