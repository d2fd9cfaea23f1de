#version 330 core
// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// The light of the scene, in the eye's coordinates: a headlight over the left shoulder, a cool fill
// from the right, and a sky that is brighter than the ground.

uniform vec4 tint; // what the surface is covered with, as thickly as the last one says

vec3 shade(vec3 position, vec3 vertexNormal, bool isFront)
{
    const vec3 headlight = normalize(vec3(-0.55, 0.70, 0.85));
    const vec3 fill = normalize(vec3(0.9, -0.1, 0.45));
    const vec3 outside = vec3(0.42, 0.54, 0.68);
    const vec3 inside = vec3(0.72, 0.40, 0.22);

    vec3 toEye = normalize(-position);
    vec3 n = normalize(isFront ? vertexNormal : -vertexNormal);
    vec3 surface = mix(isFront ? outside : inside, tint.rgb, tint.a);

    vec3 light = mix(vec3(0.05, 0.05, 0.06), vec3(0.20, 0.21, 0.23), n.y * 0.5 + 0.5);
    light += vec3(0.90, 0.88, 0.84) * max(dot(n, headlight), 0.0);
    light += vec3(0.13, 0.16, 0.21) * max(dot(n, fill), 0.0);

    float gloss = pow(max(dot(n, normalize(headlight + toEye)), 0.0), 42.0) * 0.16;
    float rim = pow(1.0 - max(dot(n, toEye), 0.0), 3.0) * 0.12;
    vec3 linear = surface * light + gloss + rim;
    return pow(linear, vec3(1.0 / 2.2));
}
