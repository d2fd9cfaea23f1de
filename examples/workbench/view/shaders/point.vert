#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

in vec3 position;
in vec3 normal;

uniform mat4 modelView;
uniform mat3 normalMatrix;
uniform mat4 projection;
uniform float size; // pixels

out vec3 eyePosition;
out vec3 eyeNormal;

void main()
{
    vec4 eye = modelView * vec4(position, 1.0);
    eyePosition = eye.xyz;
    eyeNormal = normalMatrix * normal;
    gl_Position = projection * eye;
    gl_PointSize = size;
}
