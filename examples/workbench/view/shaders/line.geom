#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// Makes a strip of two triangles of each line, so that it is as wide as wanted: OpenGL itself
// promises a width of one pixel only.
layout(lines) in;
layout(triangle_strip, max_vertices = 4) out;

uniform vec2 viewport; // pixels
uniform float width;   // pixels

in vec3 endColor[];
out vec3 lineColor;

// The end, moved along the line to where the eye can see.
vec4 before(vec4 end, vec4 other)
{
    const float nearest = 1e-5;
    float depth = end.z + end.w;
    float otherDepth = other.z + other.w;
    return depth >= nearest ? end : mix(end, other, (nearest - depth) / (otherDepth - depth));
}

void emit(vec4 end, vec2 shift, vec3 color)
{
    for (int side = -1; side <= 1; side += 2) {
        lineColor = color;
        gl_Position = end + vec4(shift * float(side) * end.w, 0.0, 0.0);
        EmitVertex();
    }
}

void main()
{
    vec4 ends[2] = vec4[2](gl_in[0].gl_Position, gl_in[1].gl_Position);
    if (ends[0].z + ends[0].w <= 0.0 && ends[1].z + ends[1].w <= 0.0)
        return;
    vec4 from = before(ends[0], ends[1]);
    vec4 to = before(ends[1], ends[0]);
    vec2 along = (to.xy / to.w - from.xy / from.w) * viewport;
    if (dot(along, along) == 0.0)
        return;
    vec2 across = normalize(vec2(-along.y, along.x)) * width / viewport;
    emit(from, across, endColor[0]);
    emit(to, across, endColor[1]);
    EndPrimitive();
}
