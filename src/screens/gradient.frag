// SPDX-License-Identifier: GPL-3.0-or-later
#version 440

// A linear gradient of two colours over a rectangle with round corners.
layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 fragColor;
layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    float qt_Opacity;
    float radius; // of the corners
    vec2 size;
    vec3 plane; // how far the gradient has got: x·u + y·v + z
    vec4 firstColor;
    vec4 lastColor;
};

void main()
{
    float share = clamp(dot(vec3(qt_TexCoord0, 1.0), plane), 0.0, 1.0);
    // Distance from the edge, in the unit of the size, positive outside.
    vec2 fromCorner = abs(qt_TexCoord0 - 0.5) * size - size * 0.5 + radius;
    float outside = length(max(fromCorner, 0.0)) - radius;
    float coverage = radius > 0.0 ? clamp(0.5 - outside / fwidth(outside), 0.0, 1.0) : 1.0;
    fragColor = mix(firstColor, lastColor, share) * coverage * qt_Opacity;
}
