#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// Passes each face on with the distance of its corners to the opposite sides in pixels, so that the
// lines are equally wide at any zoom.
layout(triangles) in;
layout(triangle_strip, max_vertices = 3) out;

uniform vec2 viewport; // pixels

in vec3 eyePosition[];
in vec3 eyeNormal[];
out vec3 wirePosition;
out vec3 wireNormal;
noperspective out vec3 sideDistance;

vec2 pixel(int corner)
{
    return viewport * 0.5 * gl_in[corner].gl_Position.xy / gl_in[corner].gl_Position.w;
}

void main()
{
    vec2 corner[3] = vec2[3](pixel(0), pixel(1), pixel(2));
    vec2 one = corner[1] - corner[0];
    vec2 two = corner[2] - corner[0];
    float area = abs(one.x * two.y - one.y * two.x);
    for (int i = 0; i < 3; ++i) {
        float side = distance(corner[(i + 1) % 3], corner[(i + 2) % 3]);
        sideDistance = vec3(0.0);
        sideDistance[i] = area / max(side, 1e-6);
        wirePosition = eyePosition[i];
        wireNormal = eyeNormal[i];
        gl_Position = gl_in[i].gl_Position;
        EmitVertex();
    }
    EndPrimitive();
}
