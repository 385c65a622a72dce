// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
//
// Smooths the edges of the finished picture: fast approximate anti-aliasing, written after its
// published description (T. Lottes, "FXAA", NVIDIA white paper, 2009, and the talk "Filtering
// approaches for real-time anti-aliasing", SIGGRAPH 2011) with the search distances of its quality
// preset 39. Brightness comes in alpha.
#version 130

uniform sampler2D tex; // linear
uniform vec2 rcpFrame;

out vec4 FragColor;

const float kSubpixelAmount = 0.80;    // 0 .. 1, removal of lone pixels
const float kEdgeThreshold = 0.125;    // contrast that counts, of the brightest pixel
const float kEdgeThresholdMin = 0.0425; // and at least
const int kStepCount = 12;
const float kSteps[kStepCount] = // pixels
    float[kStepCount](1.0, 1.0, 1.0, 1.0, 1.0, 1.5, 2.0, 2.0, 2.0, 2.0, 4.0, 8.0);

float lumaAt(vec2 place) {
    return textureLod(tex, place, 0.0).a;
}

// Brightness of a pixel and of those around it, [column][row] from the lower left.
struct Block {
    float at[9];
};

float cell(Block b, int x, int y) {
    return b.at[(y + 1) * 3 + x + 1];
}

Block readBlock(vec2 place) {
    Block b;
    for (int y = -1; y <= 1; ++y)
        for (int x = -1; x <= 1; ++x)
            b.at[(y + 1) * 3 + x + 1] = lumaAt(place + vec2(x, y) * rcpFrame);
    return b;
}

// How far the pixel stands out from those around it: the share of a pixel to move the lookup by.
float subpixelShift(Block b, float range) {
    float sides = cell(b, 0, -1) + cell(b, 0, 1) + cell(b, -1, 0) + cell(b, 1, 0);
    float corners = cell(b, -1, -1) + cell(b, 1, -1) + cell(b, -1, 1) + cell(b, 1, 1);
    float mean = (2.0 * sides + corners) / 12.0;
    float blend = smoothstep(0.0, 1.0, clamp(abs(mean - cell(b, 0, 0)) / range, 0.0, 1.0));
    return blend * blend * kSubpixelAmount;
}

// Bend of the brightness across a line of three pixels.
float bend(float before, float middle, float after) {
    return abs(before - 2.0 * middle + after);
}

bool runsHorizontally(Block b) {
    float upwards = bend(cell(b, -1, -1), cell(b, -1, 0), cell(b, -1, 1)) +
                    2.0 * bend(cell(b, 0, -1), cell(b, 0, 0), cell(b, 0, 1)) +
                    bend(cell(b, 1, -1), cell(b, 1, 0), cell(b, 1, 1));
    float sideways = bend(cell(b, -1, -1), cell(b, 0, -1), cell(b, 1, -1)) +
                     2.0 * bend(cell(b, -1, 0), cell(b, 0, 0), cell(b, 1, 0)) +
                     bend(cell(b, -1, 1), cell(b, 0, 1), cell(b, 1, 1));
    return upwards >= sideways;
}

// Where an edge ends: how far, in pixels, and the brightness there against the edge's.
struct End {
    float reach;
    float luma;
};

End findEnd(vec2 start, vec2 along, float edgeLuma, float threshold) {
    End end = End(kSteps[0], 0.0);
    for (int i = 1; i < kStepCount; ++i) {
        end.luma = lumaAt(start + along * end.reach) - edgeLuma;
        if (abs(end.luma) >= threshold)
            break;
        end.reach += kSteps[i];
    }
    return end;
}

// Share of a pixel to move the lookup by across the edge between the pixel and its neighbour, from
// the place of the pixel on the edge's run.
float edgeShift(vec2 place, float luma, float neighbor, vec2 across, vec2 along) {
    float edgeLuma = 0.5 * (luma + neighbor);
    float threshold = 0.25 * abs(neighbor - luma);
    vec2 start = place + across * 0.5;
    End back = findEnd(start, -along, edgeLuma, threshold);
    End ahead = findEnd(start, along, edgeLuma, threshold);
    float nearLuma = back.reach < ahead.reach ? back.luma : ahead.luma;
    // At the end of the run that belongs to the neighbour's side, the pixel keeps its colour.
    if ((nearLuma < 0.0) == (luma - edgeLuma < 0.0))
        return 0.0;
    return 0.5 - min(back.reach, ahead.reach) / (back.reach + ahead.reach);
}

void main() {
    vec2 place = gl_FragCoord.xy * rcpFrame;
    Block b = readBlock(place);
    float luma = cell(b, 0, 0);
    float below = cell(b, 0, -1);
    float above = cell(b, 0, 1);
    float left = cell(b, -1, 0);
    float right = cell(b, 1, 0);
    float brightest = max(luma, max(max(below, above), max(left, right)));
    float range = brightest - min(luma, min(min(below, above), min(left, right)));
    if (range < max(kEdgeThresholdMin, brightest * kEdgeThreshold)) {
        FragColor = vec4(textureLod(tex, place, 0.0).rgb, 1.0);
        return;
    }

    bool horizontal = runsHorizontally(b);
    vec2 along = horizontal ? vec2(rcpFrame.x, 0.0) : vec2(0.0, rcpFrame.y);
    vec2 across = rcpFrame - along;
    float first = horizontal ? below : left;
    float second = horizontal ? above : right;
    bool towardFirst = abs(first - luma) >= abs(second - luma);
    if (towardFirst)
        across = -across;
    float shift = max(edgeShift(place, luma, towardFirst ? first : second, across, along),
                      subpixelShift(b, range));
    FragColor = vec4(textureLod(tex, place + across * shift, 0.0).rgb, 1.0);
}
