#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The rubber band: a border and a thin film inside it.
out vec4 color;

uniform vec2 lowest;  // pixels, y up
uniform vec2 highest; // pixels
uniform float border; // pixels

void main()
{
    vec2 inside = min(gl_FragCoord.xy - lowest, highest - gl_FragCoord.xy);
    float depth = min(inside.x, inside.y);
    if (depth < 0.0)
        discard;
    color = vec4(0.16, 0.40, 0.64, depth < border ? 1.0 : 0.14);
}
