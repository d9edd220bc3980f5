#pragma once

namespace fontkit {

/** The code bytes of a glyph program that are no vector. */
enum GlyphCode {
    CodeEnd = 0x0,
    CodePenDown = 0x1,
    CodePenUp = 0x2,
    CodeScaleDown = 0x3,
    CodeScaleUp = 0x4,
    CodePush = 0x5,
    CodePop = 0x6,
    CodeSubshape = 0x7,
    CodeLine = 0x8,
    CodeLines = 0x9,
    CodeOctantArc = 0xA,
    CodeFractionalArc = 0xB,
    CodeBulge = 0xC,
    CodeBulges = 0xD,
    CodeVerticalOnly = 0xE,
    CodeNothing = 0xF,
    CodeFirstVector = 0x10
};

/** Names of the sixteen directions, counter-clockwise from east. */
constexpr const char *kDirectionNames[16] = {"e", "ene", "ne", "nne", "n", "nnw", "nw", "wnw",
                                             "w", "wsw", "sw", "ssw", "s", "sse", "se", "ese"};

} // namespace fontkit
