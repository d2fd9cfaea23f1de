#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 eyePosition;
in vec3 eyeNormal;
out vec4 color;

uniform bool isFlat;

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront);

void main()
{
    vec3 towardsEye = cross(dFdx(eyePosition), dFdy(eyePosition));
    vec3 faceNormal = gl_FrontFacing ? towardsEye : -towardsEye;
    color = vec4(shade(eyePosition, isFlat ? faceNormal : eyeNormal, gl_FrontFacing), 1.0);
}
