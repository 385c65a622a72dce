// SPDX-FileCopyrightText: The ogl authors
// SPDX-License-Identifier: MIT
#include "host/soup/welder.h"

#include "host/soup/hash_index.h"

#include <cstring>

namespace ogl::host {

namespace {

// Cells much larger than the weld distance: most points lie away from their cell's sides and need
// one look-up.
constexpr double kCellsPerDistance = 16.0;

uint64_t exactKey(Vec3 p) {
    // Adding 0 turns a negative zero into a positive one.
    const double values[3] = {p.x + 0.0, p.y + 0.0, p.z + 0.0};
    uint64_t bits[3];
    std::memcpy(bits, values, sizeof bits);
    return mixBits(bits[0] + mixBits(bits[1] + mixBits(bits[2])));
}

struct CellSpan {
    int64_t low;
    int64_t high;
};

CellSpan cellSpan(double v, double distance, double cell) {
    return {static_cast<int64_t>(std::floor((v - distance) / cell)),
            static_cast<int64_t>(std::floor((v + distance) / cell))};
}

class Welder {
  public:
    Welder(double distance, size_t expected)
        : distance_(distance), cell_(distance * kCellsPerDistance), cells_(expected) {}

    uint32_t numberOf(Vec3 p) {
        const CellSpan x = cellSpan(p.x, distance_, cell_);
        const CellSpan y = cellSpan(p.y, distance_, cell_);
        const CellSpan z = cellSpan(p.z, distance_, cell_);
        for (int64_t i = x.low; i <= x.high; ++i)
            for (int64_t j = y.low; j <= y.high; ++j)
                for (int64_t k = z.low; k <= z.high; ++k)
                    if (const uint32_t found = findIn(cellKey(i, j, k), p); found != kNoVertex)
                        return found;
        const auto number = static_cast<uint32_t>(points.size());
        points.push_back(p);
        const auto own = [this](double v) { return static_cast<int64_t>(std::floor(v / cell_)); };
        cells_.add(cellKey(own(p.x), own(p.y), own(p.z)), number);
        return number;
    }

    std::vector<Vec3> points;

  private:
    uint32_t findIn(uint64_t key, Vec3 p) const {
        for (uint32_t n = cells_.first(key); n != HashIndex::kEnd; n = cells_.next(n)) {
            const Vec3 d = points[n] - p;
            if (dot(d, d) <= distance_ * distance_)
                return n;
        }
        return kNoVertex;
    }

    double distance_;
    double cell_;
    HashIndex cells_;
};

} // namespace

WeldedPoints weldPoints(std::span<const Vec3> positions, double distance, double limit) {
    WeldedPoints welded;
    welded.numbers.resize(positions.size(), kNoVertex);
    // Soups repeat their corners bit by bit; those are found without looking around.
    HashIndex exact(positions.size() / 2);
    std::vector<uint32_t> exactPositions;
    Welder welder(distance, positions.size() / 4);
    for (size_t i = 0; i < positions.size(); ++i) {
        const Vec3 p = positions[i];
        if (!isFinite(p) || std::fabs(p.x) > limit || std::fabs(p.y) > limit ||
            std::fabs(p.z) > limit)
            continue;
        const uint64_t key = exactKey(p);
        uint32_t same = exact.first(key);
        const auto isSame = [&](uint32_t n) {
            const Vec3 q = positions[exactPositions[n]];
            return q.x == p.x && q.y == p.y && q.z == p.z;
        };
        while (same != HashIndex::kEnd && !isSame(same))
            same = exact.next(same);
        if (same != HashIndex::kEnd) {
            welded.numbers[i] = welded.numbers[exactPositions[same]];
            continue;
        }
        exact.add(key, static_cast<uint32_t>(exactPositions.size()));
        exactPositions.push_back(static_cast<uint32_t>(i));
        welded.numbers[i] = welder.numberOf(p);
    }
    welded.points = std::move(welder.points);
    return welded;
}

} // namespace ogl::host
