// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "raytrace/scene_packer.h"

#include "raytrace/cell_grid.h"
#include "raytrace/pair_list.h"
#include "raytrace/pair_triangles.h"
#include "raytrace/texture_sides.h"

#include <cmath>

namespace ogl {

namespace {

constexpr float kBoxMargin = 0.01f;
constexpr float kExponentRange = 3.1999998f; // just below 3.2
constexpr float kColorScale = 255.0f;

Box enlarged(const Box& box) {
    const Vec3 margin{kBoxMargin, kBoxMargin, kBoxMargin};
    return {box.min - margin, box.max + margin};
}

class ScenePacker {
  public:
    ScenePacker(const SceneLists& lists, int largestSide, PackedScene& packed)
        : lists_(lists), limits_(largestSide), packed_(packed) {}

    bool pack(const SCENE& scene) {
        const PairList list(scene, lists_, limits_);
        if (list.isTooLong())
            return false;
        reserve(list);
        addMaterialRecords(list.records());
        for (const MaterialPair& pair : list.pairs())
            if (!packPair(pair))
                return false;
        return true;
    }

  private:
    /// Room for every triangle, and a third again for those in several cells: memory that is not
    /// used costs nothing, growing does.
    void reserve(const PairList& list) {
        const size_t vertices = 4 * list.triangleCount();
        packed_.vertices.reserve(vertices);
        packed_.normals.reserve(vertices);
        packed_.uvs.reserve(vertices);
    }

    void addMaterialRecords(const std::vector<RecordRun>& runs) {
        size_t count = 0;
        for (const RecordRun& run : runs)
            count += static_cast<size_t>(run.count);
        std::vector<MaterialRecord>& records = packed_.materialRecords;
        records.reserve(count);
        for (const RecordRun& run : runs)
            records.insert(records.end(), static_cast<size_t>(run.count),
                           materialRecord(lists_.materials[run.material]));
    }

    int64_t roomForTriangles() const { return limits_.triangles - packed_.triangleCount(); }

    bool packPair(const MaterialPair& pair) {
        if (!triangles_.read(lists_, pair, roomForTriangles()))
            return false;
        if (triangles_.count() == 0)
            return true;
        packed_.bounds.grow(triangles_.box.min);
        packed_.bounds.grow(triangles_.box.max);
        return packBox(enlarged(triangles_.box));
    }

    bool packBox(const Box& box) {
        CellGrid grid(GridShape(box, triangles_.count()));
        if (!grid.sort(triangles_.positions, roomForTriangles()))
            return false;
        const size_t firstCell = packed_.gridCells.size();
        for (size_t cell = 0; cell < grid.shape().cellCount(); ++cell)
            if (!grid.list(cell).empty())
                packCell(grid, cell);
        const size_t cells = packed_.gridCells.size();
        packed_.objectBounds.push_back({box.min, static_cast<int32_t>(firstCell), box.max,
                                        static_cast<int32_t>(cells - firstCell)});
        return static_cast<int64_t>(cells) <= limits_.cells &&
               static_cast<int64_t>(packed_.objectBounds.size()) <= limits_.cells;
    }

    void packCell(const CellGrid& grid, size_t cell) {
        const std::span<const int32_t> list = grid.list(cell);
        const Box box = grid.shape().cellBox(cell);
        packed_.gridCells.push_back(
            {box.min, packed_.triangleCount(), box.max, static_cast<int32_t>(list.size())});
        copyTriangles(list, triangles_.positions, packed_.vertices);
        copyTriangles(list, triangles_.normals, packed_.normals);
        copyTriangles(list, triangles_.uvs, packed_.uvs);
    }

    static void copyTriangles(std::span<const int32_t> list, const Vec3Array& from, Vec3Array& to) {
        size_t at = to.size();
        to.resize(at + 3 * list.size());
        for (const int32_t triangle : list)
            for (size_t i = 0; i < 3; ++i)
                to[at++] = from[3 * static_cast<size_t>(triangle) + i];
    }

    const SceneLists& lists_;
    PackLimits limits_;
    PackedScene& packed_;
    PairTriangles triangles_;
};

} // namespace

MaterialRecord materialRecord(const MATERIAL& material) {
    const auto channel = [](uint8_t value) { return static_cast<float>(value) / kColorScale; };
    return {channel(material.color.red),
            channel(material.color.green),
            channel(material.color.blue),
            material.opacity,
            material.reflection,
            material.specular,
            material.fresnel,
            std::pow(10.0f, 1.0f + kExponentRange * material.glossiness)};
}

bool packScene(const SCENE& scene, int largestSide, PackedScene& packed) {
    packed = PackedScene{};
    const SceneLists lists(scene);
    if (ScenePacker(lists, largestSide, packed).pack(scene))
        return true;
    packed = PackedScene{};
    return false;
}

} // namespace ogl
