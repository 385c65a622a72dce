// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/sample/flat_paints.h"

#include "host/sample/code_textures.h"

#include <cmath>
#include <utility>

namespace ogl::host {

namespace {

Material matt(const char* name, Color color) {
    Material material;
    material.name = name;
    material.color = color;
    return material;
}

Material shiny(const char* name, Color color, float reflection, float glossiness) {
    Material material = matt(name, color);
    material.reflection = reflection;
    material.fresnel = 0.2f;
    material.specular = 0.06f;
    material.glossiness = glossiness;
    return material;
}

Material metal(const char* name, Color color, float reflection) {
    Material material = shiny(name, color, reflection, 0.35f);
    material.specular = 0.2f;
    return material;
}

/// The texture has the colours already: the material's, which lit pictures multiply with them and
/// traced ones show alone, are paled, and their brightness makes up for what they take away.
Material textured(Material material, TextureId texture) {
    constexpr double kColored = 0.35;
    const Color c = material.color;
    const double grey = 0.3 * c.red + 0.6 * c.green + 0.1 * c.blue;
    const auto paled = [&](uint8_t channel) {
        return static_cast<uint8_t>(std::lround(grey + (channel - grey) * kColored));
    };
    material.color = {paled(c.red), paled(c.green), paled(c.blue)};
    material.brightness = static_cast<float>(kTexturedBrightness * 255.0 / grey);
    material.texture = texture;
    return material;
}

Material glassMaterial() {
    Material material = shiny("glass", {205, 225, 228}, 0.1f, 0.9f);
    material.opacity = 0.25f;
    return material;
}

Material shining(const char* name, Color color, float emission) {
    Material material = matt(name, color);
    material.emission = emission;
    return material;
}

} // namespace

FlatPaints::FlatPaints(SceneBuilder& b) {
    const auto plain = [&b](const Material& material) { return Paint{b.addMaterial(material)}; };
    const auto pictured = [&b](Texture texture, const Material& material, double width,
                               double height) {
        const TextureId id = b.addTexture(std::move(texture));
        return Paint{b.addMaterial(textured(material, id)), width, height};
    };
    plaster = plain(matt("plaster", {242, 240, 234}));
    render = plain(matt("outside render", {226, 220, 208}));
    cut = pictured(cutHatch(), matt("cut wall", {150, 150, 150}), 0.4, 0.4);
    ceiling = plain(matt("ceiling", {250, 250, 248}));

    Material floor = shiny("oak planks", {190, 152, 112}, 0.04f, 0.5f);
    planks = pictured(woodPlanks(), floor, 1.8, 0.96);
    stone = pictured(stoneTiles(), shiny("stone tiles", {190, 188, 182}, 0.05f, 0.6f), 1.2, 1.2);
    Material glazed = shiny("wall tiles", {218, 232, 230}, 0.06f, 0.8f);
    glazed.specular = 0.02f; // as broad as lamps shine back, more would be a white disc
    wallTiles = pictured(host::wallTiles(), glazed, 0.4, 0.4);
    deck = pictured(deckBoards(), matt("deck boards", {152, 132, 110}), 1.0, 1.0);

    oak = pictured(woodGrain(), matt("oak", {178, 138, 98}), 0.8, 0.8);
    walnut = plain(matt("walnut", {96, 68, 48}));
    whiteLacquer = plain(shiny("white lacquer", {246, 246, 244}, 0.03f, 0.7f));
    greyLacquer = plain(shiny("grey lacquer", {120, 128, 132}, 0.03f, 0.7f));
    worktop = plain(shiny("worktop", {70, 72, 74}, 0.05f, 0.8f));

    steel = plain(metal("brushed steel", {182, 186, 190}, 0.25f));
    brass = plain(metal("brass", {196, 160, 92}, 0.2f));
    black = plain(shiny("black", {28, 29, 31}, 0.03f, 0.8f));
    glass = plain(glassMaterial());
    mirror = plain(shiny("mirror", {214, 222, 224}, 0.6f, 1.0f));
    ceramic = plain(shiny("ceramic", {250, 250, 250}, 0.06f, 0.9f));

    fabric = pictured(wovenFabric(), matt("woven fabric", {126, 138, 148}), 0.5, 0.5);
    cushion = plain(matt("cushion", {198, 128, 82}));
    linen = plain(matt("linen", {240, 236, 228}));
    rug = pictured(stripedRug(), matt("striped rug", {206, 190, 168}), 1.4, 1.4);
    curtain = plain(matt("curtain", {232, 228, 220}));

    shade = plain(shining("lamp shade", {250, 240, 216}, 4.0f));
    bulb = plain(shining("bulb", {255, 246, 226}, 12.0f));

    leaf = pictured(host::leaf(), matt("leaf", {86, 132, 66}), 1.0, 1.0);
    soil = plain(matt("soil", {72, 56, 44}));
    pot = plain(matt("terracotta", {186, 108, 78}));
    painting = pictured(abstractPainting(), matt("painting", {214, 190, 160}), 1.2, 0.9);

    redBook = plain(matt("red book", {168, 62, 52}));
    blueBook = plain(matt("blue book", {58, 88, 122}));
    creamBook = plain(matt("cream book", {226, 214, 188}));
    fruit = plain(shiny("fruit", {206, 120, 44}, 0.02f, 0.5f));
    grass = plain(matt("grass", {142, 168, 112}));
}

} // namespace ogl::host
