#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

uniform vec3 lower;
uniform vec3 upper;
in float height;
out vec4 color;

// Breaks up the bands that a gentle gradient shows with eight bits per channel.
float dither()
{
    return fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5;
}

void main()
{
    color = vec4(mix(lower, upper, smoothstep(0.0, 1.0, height)) + dither() / 255.0, 1.0);
}
