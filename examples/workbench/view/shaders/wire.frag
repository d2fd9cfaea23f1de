#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 wirePosition;
in vec3 wireNormal;
noperspective in vec3 sideDistance;
out vec4 color;

uniform float halfWidth; // pixels
uniform bool isFlat;
uniform bool isOpen; // the lines alone, with nothing between them

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    const vec3 line = vec3(0.09, 0.20, 0.32);
    const vec3 farLine = vec3(0.50, 0.59, 0.68);
    float nearest = min(min(sideDistance.x, sideDistance.y), sideDistance.z);
    float cover = 1.0 - smoothstep(halfWidth - 0.5, halfWidth + 0.5, nearest);
    vec3 towardsEye = cross(dFdx(wirePosition), dFdy(wirePosition));
    if (isOpen) {
        if (cover < 0.1)
            discard;
        color = vec4(gl_FrontFacing ? line : farLine, cover);
        return;
    }
    vec3 faceNormal = gl_FrontFacing ? towardsEye : -towardsEye;
    vec3 surface = shade(wirePosition, isFlat ? faceNormal : wireNormal, gl_FrontFacing);
    color = vec4(mix(surface, line, cover * 0.75), 1.0);
}
