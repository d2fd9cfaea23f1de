#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in float height;
out vec4 color;

// Breaks up the bands that a gentle gradient shows with eight bits per channel.
float dither()
{
    return fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715)))) - 0.5;
}

void main()
{
    const vec3 lower = vec3(0.753, 0.784, 0.820);
    const vec3 upper = vec3(0.957, 0.965, 0.973);
    color = vec4(mix(lower, upper, smoothstep(0.0, 1.0, height)) + dither() / 255.0, 1.0);
}
