#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 wirePosition;
in vec3 wireNormal;
noperspective in vec3 sideDistance;
out vec4 color;

uniform float halfWidth; // pixels

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    const vec3 line = vec3(0.09, 0.20, 0.32);
    float nearest = min(min(sideDistance.x, sideDistance.y), sideDistance.z);
    float cover = 1.0 - smoothstep(halfWidth - 0.5, halfWidth + 0.5, nearest);
    vec3 surface = shade(wirePosition, wireNormal, gl_FrontFacing);
    color = vec4(mix(surface, line, cover * 0.75), 1.0);
}
